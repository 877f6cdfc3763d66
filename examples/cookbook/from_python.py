"""Draws an icon into a PNG file: from_python.py libglyphwright.so [NAME [FILE]]"""
import ctypes as c
import struct
import sys
import zlib


class Attributes(c.Structure):  # the fields up to the flat fill; those after it stay zero
    _fields_ = [("struct_size", c.c_uint32), ("parts", c.c_uint32), ("width", c.c_double),
                ("height", c.c_double), ("scale", c.c_double), ("fill", c.c_double * 4),
                ("rest", c.c_double * 35)]


class Buffer(c.Structure):
    _fields_ = [("struct_size", c.c_uint32), ("format", c.c_int32), ("pixels", c.c_void_p),
                ("width", c.c_size_t), ("height", c.c_size_t), ("row_bytes", c.c_size_t)]


class Message(c.Structure):
    _fields_ = [("text", c.c_char_p), ("capacity", c.c_size_t)]


library, name, file = (sys.argv[1:] + ["heartPath", "from_python.png"][len(sys.argv) - 2:])[:3]
glyphwright = c.CDLL(library)
path, text = c.c_void_p(), c.create_string_buffer(200)
message = Message(c.cast(text, c.c_char_p), 200)
side = 96
look = Attributes(c.sizeof(Attributes), 0, side, side, 1, (c.c_double * 4)(0.9, 0.2, 0.4, 1))
pixels = (c.c_uint8 * (side * side * 4))()
buffer = Buffer(c.sizeof(Buffer), 2, c.addressof(pixels), side, side, 0)  # 2: straight RGBA
if (glyphwright.glyphwright_path_named(name.encode(), c.byref(path), c.byref(message))
        or glyphwright.glyphwright_render(path, c.byref(look), c.byref(buffer), c.byref(message))):
    sys.exit(text.value.decode())
glyphwright.glyphwright_path_free(path)

rows = b"".join(b"\0" + bytes(pixels)[y * side * 4:(y + 1) * side * 4] for y in range(side))
with open(file, "wb") as png:
    png.write(b"\x89PNG\r\n\x1a\n")
    for kind, data in ((b"IHDR", struct.pack(">IIBBBBB", side, side, 8, 6, 0, 0, 0)),
                       (b"IDAT", zlib.compress(rows)), (b"IEND", b"")):
        png.write(struct.pack(">I", len(data)) + kind + data
                  + struct.pack(">I", zlib.crc32(kind + data)))
