// The pixels of a PNG file with 8-bit RGBA, for comparing files that may be packed differently.
import { inflateSync } from 'node:zlib';

export function pixelsOfPng(file) {
  const [width, height] = [file.readUInt32BE(16), file.readUInt32BE(20)];
  const packed = [];
  for (let at = 8; at < file.length;) {
    const length = file.readUInt32BE(at);
    if (file.toString('latin1', at + 4, at + 8) === 'IDAT') packed.push(file.subarray(at + 8, at + 8 + length));
    at += 12 + length;
  }
  const rows = inflateSync(Buffer.concat(packed));
  const row = 4 * width;
  const pixels = Buffer.alloc(row * height);
  for (let y = 0; y < height; ++y) {
    const filter = rows[y * (row + 1)];
    for (let x = 0; x < row; ++x) {
      const a = x < 4 ? 0 : pixels[y * row + x - 4];
      const b = y === 0 ? 0 : pixels[(y - 1) * row + x];
      const c = x < 4 || y === 0 ? 0 : pixels[(y - 1) * row + x - 4];
      const paeth = [a, b, c].reduce((best, one) =>
        (Math.abs(a + b - c - one) < Math.abs(a + b - c - best) ? one : best));
      const guess = [0, a, b, (a + b) >> 1, paeth][filter];
      pixels[y * row + x] = rows[y * (row + 1) + 1 + x] + guess;
    }
  }
  return { width, height, pixels };
}
