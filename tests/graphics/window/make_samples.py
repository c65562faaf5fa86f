#!/usr/bin/env python3
"""Writes one small image per kind of file into samples/: 8 by 8 pixels, red above left, green
above right, blue below left, white below right; where the kind can, the white doesn't show."""
import pathlib
import struct

from PIL import Image

TARGET = pathlib.Path(__file__).parent / "samples"
RED, GREEN, BLUE, WHITE = (255, 0, 0), (0, 255, 0), (0, 0, 255), (255, 255, 255)


def quarter(x, y):
    return (RED, GREEN, BLUE, WHITE)[(x >= 4) + 2 * (y >= 4)]


def picture():
    image = Image.new("RGB", (8, 8))
    for y in range(8):
        for x in range(8):
            image.putpixel((x, y), quarter(x, y))
    return image


def bitmap16():
    """Red in 5 bits, green in 6, blue in 5, given as masks."""
    rows = b"".join(struct.pack("<H", (r >> 3) << 11 | (g >> 2) << 5 | b >> 3)
                    for y in range(7, -1, -1) for r, g, b in (quarter(x, y) for x in range(8)))
    info = struct.pack("<IiiHHIIiiII", 40, 8, 8, 1, 16, 3, len(rows), 0, 0, 0, 0)
    masks = struct.pack("<III", 0xF800, 0x07E0, 0x001F)
    offset = 14 + len(info) + len(masks)
    return b"BM" + struct.pack("<IHHI", offset + len(rows), 0, 0, offset) + info + masks + rows


def targa(depth, top_first, coded):
    rows = []
    for y in range(8) if top_first else range(7, -1, -1):
        row = b""
        for part in (0, 4):
            r, g, b = quarter(part, y)
            alpha = 0 if (r, g, b) == WHITE else 255
            pixel = bytes((b, g, r, alpha)[:depth // 8])
            row += bytes([127 + 4]) + pixel if coded else pixel * 4
        rows.append(row)
    alpha_bits = 8 if depth == 32 else 0
    return struct.pack("<BBBHHBHHHHBB", 0, 0, 10 if coded else 2, 0, 0, 0, 0, 0, 8, 8, depth,
                       alpha_bits | (0x20 if top_first else 0)) + b"".join(rows)


def main():
    TARGET.mkdir(exist_ok=True)
    image = picture()
    image.save(TARGET / "rgb.png")
    image.resize((32, 32), Image.NEAREST).save(TARGET / "large.png")
    image.save(TARGET / "rgb.bmp")
    image.save(TARGET / "rgb.jpg", quality=92, subsampling=0)
    image.convert("CMYK").save(TARGET.parent / "refused" / "cmyk.jpg")
    image.quantize(8).save(TARGET / "palette.png")
    clear = image.convert("RGBA")
    clear.putdata([(*p[:3], 0 if p[:3] == WHITE else 255) for p in clear.getdata()])
    clear.save(TARGET / "rgba.png")
    indexed = image.quantize(4)
    indexed.save(TARGET / "key.gif", transparency=indexed.getpixel((7, 7)))
    (TARGET / "bits16.bmp").write_bytes(bitmap16())
    for name, arguments in (("tga24", (24, False, False)), ("tga24top", (24, True, True)),
                            ("tga32", (32, False, False)), ("tga32top", (32, True, False)),
                            ("tga32run", (32, False, True))):
        (TARGET / f"{name}.tga").write_bytes(targa(*arguments))


if __name__ == "__main__":
    main()
