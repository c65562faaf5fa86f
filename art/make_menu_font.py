#!/usr/bin/env python3
"""Paints the menus' font sheet: 16 by 16 cells of 32 by 32 pixels in the order of the Latin-1
table, white, with the shapes in the alpha channel. A thin dark halo round each letter keeps long
texts legible over bright stone, whatever colour they are drawn in."""
import pathlib

import numpy as np
from PIL import Image

from lettering import Field, glyph, moved

TARGET = pathlib.Path(__file__).parent.parent / "data" / "img" / "menu" / "font.png"
CELL, FINE = 32, 4
LEFT, TOP = 4.6, 4.8  # of a capital's corner in its cell
UNIT_X, UNIT_Y = 1.14, 0.97
PEN = 2.05  # half a stroke's width, in pixels of the sheet
HALO = 0.95


def cell(char):
    size = CELL * FINE
    field = Field(size, size)
    for path, weight in glyph(char):
        pen = moved([path], LEFT * FINE, TOP * FINE, UNIT_X * FINE, UNIT_Y * FINE)[0]
        dot = 1.25 if len(path) == 1 else 1.0
        field.add(pen, PEN * FINE * (1.0 - weight * dot))
    covered = np.clip(PEN * FINE - field.distance + 0.5, 0.0, 1.0)
    away = np.maximum(field.distance / FINE - PEN, 0.0)  # pixels of the sheet
    edge = np.minimum(np.minimum(field.x, size - field.x), np.minimum(field.y, size - field.y))
    halo = HALO * np.exp(-(away / 3.0) ** 2) * np.clip(edge / FINE - 0.5, 0.0, 1.0)
    shape = (CELL, FINE, CELL, FINE)
    return covered.reshape(shape).mean((1, 3)), halo.reshape(shape).mean((1, 3))


def paint(sheet, covered, halo):
    """White letters over their dark halo, as colour and alpha."""
    alpha = covered + halo * (1.0 - covered)
    white = np.where(alpha > 0.002, covered / np.maximum(alpha, 1e-6), 1.0)
    sheet[..., :3] = np.round(white * 255)[..., None]
    sheet[..., 3] = np.round(alpha * 255)


def main():
    sheet = np.full((16 * CELL, 16 * CELL, 4), 255, np.uint8)
    for code in range(256):
        y, x = code // 16 * CELL, code % 16 * CELL
        paint(sheet[y:y + CELL, x:x + CELL], *cell(bytes([code]).decode("latin-1")))
    TARGET.parent.mkdir(exist_ok=True)
    Image.fromarray(sheet, "RGBA").save(TARGET, optimize=True)


if __name__ == "__main__":
    main()
