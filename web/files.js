// Pixels as PNG files, files as a zip, icons side by side as one picture.

const CRC_TABLE = Uint32Array.from({ length: 256 }, (_, n) => {
  for (let k = 0; k < 8; ++k) n = n & 1 ? 0xEDB88320 ^ (n >>> 1) : n >>> 1;
  return n;
});

function crc32(bytes) {
  let crc = ~0;
  for (const byte of bytes) crc = CRC_TABLE[(crc ^ byte) & 0xFF] ^ (crc >>> 8);
  return ~crc >>> 0;
}

function joined(parts) {
  const whole = new Uint8Array(parts.reduce((sum, part) => sum + part.length, 0));
  let at = 0;
  for (const part of parts) {
    whole.set(part, at);
    at += part.length;
  }
  return whole;
}

// Numbers as bytes: 'n4' of the network's order, 'l2' and 'l4' with the lowest byte first.
function bytesOf(...fields) {
  const bytes = [];
  for (const [form, value] of fields) {
    const count = Number(form[1]);
    const one = Array.from({ length: count }, (_, i) => Math.floor(value / 256 ** i) & 0xFF);
    bytes.push(...(form[0] === 'n' ? one.reverse() : one));
  }
  return Uint8Array.from(bytes);
}

const ascii = (text) => Uint8Array.from(text, (c) => c.charCodeAt(0));

async function deflated(bytes) {
  const stream = new Blob([bytes]).stream().pipeThrough(new CompressionStream('deflate'));
  return new Uint8Array(await new Response(stream).arrayBuffer());
}

function chunk(type, data) {
  const body = joined([ascii(type), data]);
  return joined([bytesOf(['n4', data.length]), body, bytesOf(['n4', crc32(body)])]);
}

// Each row as the difference to the one above: icons have long level edges and empty rows.
function filteredRows({ width, height, data }) {
  const row = 4 * width;
  const rows = new Uint8Array((row + 1) * height);
  for (let y = 0; y < height; ++y) {
    rows[y * (row + 1)] = 2;
    for (let x = 0; x < row; ++x) {
      const above = y === 0 ? 0 : data[(y - 1) * row + x];
      rows[y * (row + 1) + 1 + x] = data[y * row + x] - above;
    }
  }
  return rows;
}

// `image` has width, height and data: RGBA bytes, alpha straight.
export async function encodePng(image) {
  const header = bytesOf(['n4', image.width], ['n4', image.height], ['n1', 8], ['n1', 6], ['n1', 0],
    ['n1', 0], ['n1', 0]);
  return joined([bytesOf(['n4', 0x89504E47], ['n4', 0x0D0A1A0A]), chunk('IHDR', header),
    chunk('IDAT', await deflated(filteredRows(image))), chunk('IEND', new Uint8Array())]);
}

// Files are arrays of name and bytes; they are kept as they are, pictures being small already. The
// date is always the same, so that the same files give the same zip.
export function encodeZip(files) {
  const NEW_YEAR_1980 = ['l4', 0x00210000], UTF8 = 0x0800;
  const parts = [];
  const directory = [];
  let at = 0;
  for (const [name, content] of files) {
    const nameBytes = new TextEncoder().encode(name);
    const facts = [['l2', 20], ['l2', UTF8], ['l2', 0], NEW_YEAR_1980, ['l4', crc32(content)],
      ['l4', content.length], ['l4', content.length], ['l2', nameBytes.length], ['l2', 0]];
    const local = joined([bytesOf(['l4', 0x04034B50], ...facts), nameBytes, content]);
    directory.push(joined([bytesOf(['l4', 0x02014B50], ['l2', 20], ...facts, ['l2', 0], ['l2', 0],
      ['l2', 0], ['l4', 0], ['l4', at]), nameBytes]));
    parts.push(local);
    at += local.length;
  }
  const index = joined(directory);
  const end = bytesOf(['l4', 0x06054B50], ['l2', 0], ['l2', 0], ['l2', files.length], ['l2', files.length],
    ['l4', index.length], ['l4', at], ['l2', 0]);
  return joined([...parts, index, end]);
}

// Images of one size in rows of nearly as many as there are rows, `gap` pixels apart.
export function sheetOf(images, gap) {
  const columns = Math.ceil(Math.sqrt(images.length));
  const rows = Math.ceil(images.length / columns);
  const [cellWidth, cellHeight] = [images[0].width + gap, images[0].height + gap];
  const width = columns * cellWidth + gap;
  const height = rows * cellHeight + gap;
  const data = new Uint8ClampedArray(4 * width * height);
  images.forEach((image, i) => {
    const left = gap + (i % columns) * cellWidth;
    const top = gap + Math.floor(i / columns) * cellHeight;
    for (let y = 0; y < image.height; ++y) {
      const from = 4 * y * image.width;
      data.set(image.data.subarray(from, from + 4 * image.width), 4 * ((top + y) * width + left));
    }
  });
  return { width, height, data };
}
