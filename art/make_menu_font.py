#!/usr/bin/env python3
"""Paints the menus' font sheet: 16 by 16 cells of 32 by 32 pixels in the order of the Latin-1
table, white, with the shapes in the alpha channel."""
import pathlib

import numpy as np
from PIL import Image

from lettering import Field, glyph, moved

TARGET = pathlib.Path(__file__).parent.parent / "data" / "img" / "menu" / "font.png"
CELL, FINE = 32, 4
LEFT, TOP = 4.6, 4.1  # of a capital's corner in its cell
UNIT_X, UNIT_Y = 1.14, 1.02
PEN = 2.05  # half a stroke's width, in pixels of the sheet


def cell(char):
    size = CELL * FINE
    field = Field(size, size)
    for path, weight in glyph(char):
        pen = moved([path], LEFT * FINE, TOP * FINE, UNIT_X * FINE, UNIT_Y * FINE)[0]
        dot = 1.25 if len(path) == 1 else 1.0
        field.add(pen, PEN * FINE * (1.0 - weight * dot))
    covered = np.clip(PEN * FINE - field.distance + 0.5, 0.0, 1.0)
    return covered.reshape(CELL, FINE, CELL, FINE).mean((1, 3))


def main():
    sheet = np.full((16 * CELL, 16 * CELL, 4), 255, np.uint8)
    for code in range(256):
        y, x = code // 16 * CELL, code % 16 * CELL
        sheet[y:y + CELL, x:x + CELL, 3] = np.round(cell(bytes([code]).decode("latin-1")) * 255)
    TARGET.parent.mkdir(exist_ok=True)
    Image.fromarray(sheet, "RGBA").save(TARGET, optimize=True)


if __name__ == "__main__":
    main()
