"""cookbook_pictures.py FROM TO: turns the pictures of the cookbook's programs into small PNG files.

Reads the three plain formats that they write: uncompressed PNG, PPM and 32-bit BMP."""
import pathlib
import struct
import sys
import zlib


def read_png(data):
    width, height = struct.unpack(">II", data[16:24])
    at, rows = 8, b""
    while at < len(data):
        length, kind = struct.unpack(">I4s", data[at:at + 8])
        if kind == b"IDAT":
            rows += data[at + 8:at + 8 + length]
        at += length + 12
    rows, step = zlib.decompress(rows), width * 4 + 1
    return width, height, 4, b"".join(rows[y * step + 1:(y + 1) * step] for y in range(height))


def read_ppm(data):
    _, width, height, _ = data.split(None, 4)[:4]
    return int(width), int(height), 3, data[-int(width) * int(height) * 3:]


def read_bmp(data):
    start, = struct.unpack("<I", data[10:14])
    width, height = struct.unpack("<ii", data[18:26])
    if struct.unpack("<H", data[28:30])[0] not in (24, 32):
        raise ValueError("a BMP of another depth")
    depth = struct.unpack("<H", data[28:30])[0] // 8
    step, out = (width * depth + 3) // 4 * 4, bytearray()
    for y in reversed(range(height)):
        for x in range(width):
            out += data[start + y * step + x * depth:start + y * step + x * depth + 3][::-1]
    return width, height, 3, bytes(out)


def beside(pictures):
    """Frames from left to right."""
    width, height, depth = pictures[0][:3]
    rows = (b"".join(p[3][y * width * depth:(y + 1) * width * depth] for p in pictures)
            for y in range(height))
    return width * len(pictures), height, depth, b"".join(rows)


def write_png(file, picture):
    width, height, depth, pixels = picture
    rows = b"".join(b"\0" + pixels[y * width * depth:(y + 1) * width * depth]
                    for y in range(height))
    header = struct.pack(">IIBBBBB", width, height, 8, 6 if depth == 4 else 2, 0, 0, 0)
    png = b"\x89PNG\r\n\x1a\n"
    for kind, data in ((b"IHDR", header), (b"IDAT", zlib.compress(rows, 9)), (b"IEND", b"")):
        png += struct.pack(">I", len(data)) + kind + data
        png += struct.pack(">I", zlib.crc32(kind + data))
    file.write_bytes(png)


readers = {".png": read_png, ".ppm": read_ppm, ".bmp": read_bmp}
source, target = map(pathlib.Path, sys.argv[1:])
pictures = {}
for file in sorted(source.iterdir()):
    if file.suffix in readers:
        picture = readers[file.suffix](file.read_bytes())
        pictures.setdefault(file.stem.split("-")[0], []).append(picture)
for name, frames in pictures.items():
    write_png(target / f"{name}.png", beside(frames))
