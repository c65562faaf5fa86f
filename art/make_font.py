#!/usr/bin/env python3
"""Makes the built-in font sheet from art/font_glyphs.txt: 16 by 16 cells of 16 by 16 pixels, in
the order of the Latin-1 table, white, with the shapes in the alpha channel."""
import pathlib

import numpy as np
from PIL import Image

import tga

HERE = pathlib.Path(__file__).parent
ACCENTS = {"À": "A grave", "Á": "A acute", "Â": "A hat", "Ã": "A tilde", "Ä": "A dots",
           "Å": "A ring", "È": "E grave", "É": "E acute", "Ê": "E hat", "Ë": "E dots",
           "Ì": "I grave", "Í": "I acute", "Î": "I hat", "Ï": "I dots", "Ñ": "N tilde",
           "Ò": "O grave", "Ó": "O acute", "Ô": "O hat", "Õ": "O tilde", "Ö": "O dots",
           "Ù": "U grave", "Ú": "U acute", "Û": "U hat", "Ü": "U dots", "Ý": "Y acute"}


def read_glyphs():
    """Names to 8 by 8 bitmaps."""
    glyphs = {}
    blocks = (HERE / "font_glyphs.txt").read_text(encoding="utf-8").split("\n\n")
    for block in blocks:
        lines = [line for line in block.splitlines() if line and not line.startswith("//")]
        if not lines:
            continue
        names, rows = lines[0].split(), [line.split() for line in lines[1:]]
        assert len(rows) == 8, names
        for column, name in enumerate(names):
            glyphs[name] = cell([row[column] for row in rows], name)
    return glyphs


def cell(rows, name):
    bits = np.zeros((8, 8), bool)
    for y, row in enumerate(rows):
        assert len(row) in (5, 7), (name, y, row)
        start = 1 if len(row) == 5 else 0
        for x, mark in enumerate(row):
            if mark == "#":
                bits[y, start + x] = True
                if len(row) == 5:  # bold, by a second column
                    bits[y, start + x + 1] = True
    return bits


def accented(glyphs, char):
    base, accent = ACCENTS[char.upper()].split() if char != "ÿ" else ("Y", "dots")
    if char.isupper():
        return glyphs[base + "_low"] | glyphs[accent]
    return glyphs["ı" if base == "I" else base.lower()] | glyphs[accent]


def bitmap(glyphs, code):
    char = bytes([code]).decode("latin-1")
    if char in glyphs:
        return glyphs[char]
    if char in "Çç":
        return glyphs["C" if char == "Ç" else "c"] | glyphs["cedilla"]
    if char.upper() in ACCENTS or char == "ÿ":
        return accented(glyphs, char)
    if code in (32, 160):
        return np.zeros((8, 8), bool)
    if code == 173:  # soft hyphen
        return glyphs["-"]
    # Control codes show as a small box, so that stray ones are seen.
    box = np.zeros((8, 8), bool)
    box[1:7, 1:7] = True
    box[2:6, 2:6] = False
    return box


def doubled(bits):
    """Twice the size; the corners of stairs are filled, so that slanted strokes stay even."""
    p = np.pad(bits, 1)
    up, down, left, right = p[:-2, 1:-1], p[2:, 1:-1], p[1:-1, :-2], p[1:-1, 2:]
    big = np.kron(bits, np.ones((2, 2), bool)).astype(float)
    for dy, a in ((0, up), (1, down)):
        for dx, b in ((0, left), (1, right)):
            other_y, other_x = (down if dy == 0 else up), (right if dx == 0 else left)
            stair = (a == b) & (a != other_y) & (b != other_x)
            quarter = np.where(stair, a, bits).astype(float)
            big[dy::2, dx::2] = quarter
    return big


def main():
    glyphs = read_glyphs()
    alpha = np.zeros((256, 256))
    for code in range(256):
        y, x = code // 16 * 16, code % 16 * 16
        alpha[y:y + 16, x:x + 16] = doubled(bitmap(glyphs, code))
    sheet = np.full((256, 256, 4), 255, np.uint8)
    sheet[..., 3] = np.round(alpha * 255)
    data = tga.plain(Image.fromarray(sheet, "RGBA"))
    assert len(data) == 262188
    (HERE / "embedded" / "DEFAULT_FONT.tga").write_bytes(data)


if __name__ == "__main__":
    main()
