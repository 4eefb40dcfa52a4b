"""Pictures as lists of rows of RGB bytes: read from a virtual screen's memory and from PNG files, written as PNG."""

import struct
import zlib

SIGNATURE = b"\x89PNG\r\n\x1a\n"
CHANNELS = {0: 1, 2: 3, 4: 2, 6: 4}  # bytes a pixel, by colour type, at a depth of 8 bits


def read_screen(path):
    """What the display server has drawn: a dump whose header is 25 numbers, most significant byte first."""
    with open(path, "rb") as file:
        data = file.read()
    header = struct.unpack(">25I", data[:100])
    size, width, height, bits, stride, colours = (header[i] for i in (0, 4, 5, 11, 12, 19))
    if bits != 32:
        raise ValueError(f"{bits} bits a pixel")
    start = size + 12 * colours
    rows = []
    for y in range(height):
        row = data[start + y * stride:start + y * stride + 4 * width]
        rgb = bytearray(3 * width)
        rgb[0::3], rgb[1::3], rgb[2::3] = row[2::4], row[1::4], row[0::4]
        rows.append(bytes(rgb))
    return rows


def cut(rows, left, top, width, height):
    return [row[3 * left:3 * (left + width)] for row in rows[top:top + height]]


def changed_pixels(before, after):
    return sum(a[3 * x:3 * x + 3] != b[3 * x:3 * x + 3]
               for a, b in zip(before, after) if a != b for x in range(len(a) // 3))


def write_png(path, rows):
    def chunk(kind, content):
        return struct.pack(">I", len(content)) + kind + content + struct.pack(">I", zlib.crc32(kind + content))

    head = struct.pack(">IIBBBBB", len(rows[0]) // 3, len(rows), 8, 2, 0, 0, 0)
    pixels = zlib.compress(b"".join(b"\0" + row for row in rows))
    with open(path, "wb") as file:
        file.write(SIGNATURE + chunk(b"IHDR", head) + chunk(b"IDAT", pixels) + chunk(b"IEND", b""))


def read_png(path):
    """(width, height, colours in it); a ValueError says what is wrong with the file."""
    with open(path, "rb") as file:
        data = file.read()
    if not data.startswith(SIGNATURE):
        raise ValueError("no PNG file")
    at, packed = len(SIGNATURE), b""
    while at < len(data):
        length, kind = struct.unpack(">I4s", data[at:at + 8])
        content = data[at + 8:at + 8 + length]
        if zlib.crc32(kind + content) != struct.unpack(">I", data[at + 8 + length:at + 12 + length])[0]:
            raise ValueError(f"checksum of {kind} is wrong")
        if kind == b"IHDR":
            width, height, depth, colour, _, _, interlaced = struct.unpack(">IIBBBBB", content)
        elif kind == b"IDAT":
            packed += content
        at += 12 + length
    if depth != 8 or interlaced or colour not in CHANNELS:
        raise ValueError(f"depth {depth}, colour type {colour}, interlaced {interlaced}")
    return width, height, colours_in(zlib.decompress(packed), width, height, CHANNELS[colour])


def colours_in(lines, width, height, channels):
    """The pixels are differences to those beside and above, as the first byte of each line says."""
    stride = width * channels
    if len(lines) != height * (stride + 1):
        raise ValueError("the picture is cut off")
    above, colours = bytearray(stride), set()
    for y in range(height):
        kind, line = lines[y * (stride + 1)], bytearray(lines[y * (stride + 1) + 1:(y + 1) * (stride + 1)])
        if kind:
            undo_differences(kind, line, above, channels)
        colours.update(zip(*(line[i::channels] for i in range(channels))))
        above = line
    return colours


def undo_differences(kind, line, above, channels):
    for i, difference in enumerate(line):
        left = line[i - channels] if i >= channels else 0
        corner = above[i - channels] if i >= channels else 0
        predicted = (0, left, above[i], (left + above[i]) // 2, nearest(left, above[i], corner))[kind]
        line[i] = (difference + predicted) & 255


def nearest(left, above, corner):
    guess = left + above - corner
    return min((left, above, corner), key=lambda value: abs(guess - value))
