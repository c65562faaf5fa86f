"""Writing of TGA images: 32 bits, bottom-left origin, plain or run-length coded."""
import struct

FOOTER = struct.pack("<II", 0, 0) + b"TRUEVISION-XFILE.\0"


def _header(kind, width, height):
    return struct.pack("<BBBHHBHHHHBB", 0, 0, kind, 0, 0, 0, 0, 0, width, height, 32, 8)


def _rows(image):
    """Rows of B, G, R, A pixels, the bottom row first, from an RGBA picture."""
    width, height = image.size
    data = image.convert("RGBA").tobytes()
    for y in range(height - 1, -1, -1):
        row = data[4 * width * y:4 * width * (y + 1)]
        yield [bytes((row[i + 2], row[i + 1], row[i], row[i + 3])) for i in range(0, len(row), 4)]


def plain(image):
    body = b"".join(b"".join(row) for row in _rows(image))
    return _header(2, *image.size) + body + FOOTER


def _packets(row):
    """A row as (repeated, pixels) packets of at most 128 pixels, as short as they get."""
    packets = []
    at = 0
    while at < len(row):
        end = at + 1
        while end < len(row) and row[end] == row[at] and end - at < 128:
            end += 1
        if end - at > 1:
            packets.append((True, row[at:end]))
        elif packets and not packets[-1][0] and len(packets[-1][1]) < 128:
            packets[-1][1].append(row[at])
        else:
            packets.append((False, [row[at]]))
        at = end
    return packets


def _coded(packets):
    return b"".join(bytes([127 + len(pixels)]) + pixels[0] if repeated else
                    bytes([len(pixels) - 1]) + b"".join(pixels)
                    for repeated, pixels in packets)


def _split_one(packets):
    """Cuts one raw packet in two, which makes the file one byte longer."""
    for i, (repeated, pixels) in enumerate(packets):
        if not repeated and len(pixels) > 1:
            half = len(pixels) // 2
            packets[i:i + 1] = [(False, pixels[:half]), (False, pixels[half:])]
            return True
    return False


def run_length(image, size=None):
    """Run-length coded; with `size`, exactly that many bytes. A picture that codes shorter is
    filled up by cutting packets; one that codes longer is an error, as is one that has too
    little to cut."""
    rows = [_packets(row) for row in _rows(image)]
    total = 18 + sum(len(_coded(row)) for row in rows) + len(FOOTER)
    if size is not None:
        if total > size:
            raise ValueError(f"{total} bytes, {total - size} too many")
        y = 0
        stuck = 0
        while total < size:
            if _split_one(rows[y % len(rows)]):
                total += 1
                stuck = 0
            else:
                stuck += 1
                if stuck > len(rows):
                    raise ValueError(f"{total} bytes, {size - total} too few to fill up")
            y += 1
    return _header(10, *image.size) + b"".join(_coded(row) for row in rows) + FOOTER
