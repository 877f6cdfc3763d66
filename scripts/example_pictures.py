"""Draws the pictures of cookbook and reference, as small PNG files, or tells which are out of date.

    example_pictures.py PROGRAMS WORK TO            runs every PROGRAMS/cookbook_NAME and reference_NAME in
                                                    the folder WORK and puts the pictures that are there
                                                    then into TO/cookbook and TO/reference
    example_pictures.py --compare PROGRAMS WORK TO  empties WORK, draws into it and only compares

Reads the three plain formats that the programs write: PNG without filters, PPM and BMP without
compression. The pictures of the programs in Python and JavaScript are not compared: they need a shared
library and the npm package, which take builds of their own."""
import os
import pathlib
import shutil
import struct
import subprocess
import sys
import zlib


def read_png(data):
    width, height, _, kind = struct.unpack(">IIBB", data[16:26])
    depth = {2: 3, 6: 4}[kind]
    at, rows = 8, b""
    while at < len(data):
        length, kind = struct.unpack(">I4s", data[at:at + 8])
        if kind == b"IDAT":
            rows += data[at + 8:at + 8 + length]
        at += length + 12
    rows, step = zlib.decompress(rows), width * depth + 1
    if any(rows[::step]):
        raise ValueError("a PNG with filters")
    return width, height, depth, b"".join(rows[y * step + 1:(y + 1) * step] for y in range(height))


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


def draw(programs, work):
    """Runs the programs, and returns the pictures in `work` then: by book and name, each with its frames."""
    for program in programs:
        subprocess.run([program.resolve()], cwd=work, check=True,
                       env={**os.environ, "SDL_VIDEODRIVER": "dummy"})
    readers = {".png": read_png, ".ppm": read_ppm, ".bmp": read_bmp}
    frames = {}
    for file in sorted(work.iterdir()):
        if file.suffix in readers:
            picture = readers[file.suffix](file.read_bytes())
            frames.setdefault(file.stem.split("-")[0], []).append(picture)
    books = {name: book for book, _, name in (program.stem.partition("_") for program in programs)}
    return {f"{books.get(name, 'cookbook')}/{name}": beside(pictures) for name, pictures in frames.items()}


def difference(old, new):
    """In words; empty where the pictures are equal to the last bit."""
    if old[:3] != new[:3]:
        return "{} x {} with {} channels became {} x {} with {}".format(*old[:3], *new[:3])
    depth, levels = old[2], [abs(a - b) for a, b in zip(old[3], new[3])]
    pixels = sum(any(levels[at:at + depth]) for at in range(0, len(levels), depth))
    return f"{pixels} pixels differ, by up to {max(levels)} of 255" if pixels else ""


def compare(programs, drawn, work, target):
    """Returns what is wrong; what is drawn now is left in work/now, to be looked at."""
    wrong = []
    for name in sorted({program.stem.replace("_", "/", 1) for program in programs} | drawn.keys()):
        committed, now = target / f"{name}.png", work / "now" / f"{name}.png"
        if name not in drawn:
            wrong.append(f"{name} writes no picture of its name")
            continue
        now.parent.mkdir(parents=True, exist_ok=True)
        write_png(now, drawn[name])
        if not committed.exists():
            wrong.append(f"{committed} is missing")
        elif text := difference(read_png(committed.read_bytes()), drawn[name]):
            wrong.append(f"{committed} is not what examples/{name} draws now: {text}")
    return wrong


def main(arguments):
    only_compare = arguments[:1] == ["--compare"]
    folder, work, target = map(pathlib.Path, arguments[only_compare:])
    programs = sorted([*folder.glob("cookbook_*"), *folder.glob("reference_*")])
    if not programs:
        return f"no programs of the examples in {folder}: build with -DGLYPHWRIGHT_EXAMPLES=ON"
    if not only_compare:
        for name, picture in draw(programs, work).items():
            write_png(target / f"{name}.png", picture)
        return None
    shutil.rmtree(work, ignore_errors=True)
    work.mkdir(parents=True)
    wrong = compare(programs, draw(programs, work), work, target)
    if wrong:
        return "\n".join(wrong + [f"look at {work / 'now'}; where it is right, run scripts/docs"])
    print(f"{len(programs)} pictures are as committed")
    return None


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
