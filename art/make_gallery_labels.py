#!/usr/bin/env python3
"""Makes the name plates of levels/gallery.tmj: enamel, with the console font's letters. Each
object of that map whose texture lies in img\\gallery gets a picture of its name."""
import json
import pathlib

import numpy as np

from make_font import read_glyphs
from painting import colour, fill, mix, noise, shaded, to_image

ROOT = pathlib.Path(__file__).parent.parent
TARGET = ROOT / "data" / "img" / "gallery"
HEIGHT, MARGIN = 20, 8
ENAMEL, RIM, INK = colour("20393b"), colour("a98a4f"), colour("e9dfc3")


def plate(text, glyphs):
    width = 8 * len(text) + 2 * MARGIN
    size = max(width, HEIGHT)
    worn = shaded(fill(size, "000000") + ENAMEL, 0.85 + 0.3 * noise(size, len(text), 1.2, low=2))
    picture = worn[:HEIGHT, :width]
    y, x = np.mgrid[0:HEIGHT, 0:width]
    border = np.minimum(np.minimum(x, width - 1 - x), np.minimum(y, HEIGHT - 1 - y))
    picture = mix(picture, RIM, (border == 1) * 0.9)
    ink = np.zeros((HEIGHT, width))
    for i, char in enumerate(text):
        if char != " ":
            ink[6:14, MARGIN + 8 * i:MARGIN + 8 * i + 8] = glyphs[char]
    corner = (np.minimum(x, width - 1 - x) + np.minimum(y, HEIGHT - 1 - y)) > 1
    return to_image(mix(picture, INK, ink), corner.astype(float))


def main():
    TARGET.mkdir(parents=True, exist_ok=True)
    glyphs = read_glyphs()
    level = json.loads((ROOT / "levels" / "gallery.tmj").read_text(encoding="utf-8"))
    for layer in level["layers"]:
        for thing in layer["objects"]:
            texture = next((p["value"] for p in thing.get("properties", [])
                            if p["name"] == "texture"), "")
            if texture.startswith("img\\gallery\\"):
                plate(thing["name"], glyphs).save(TARGET / texture.split("\\")[-1], optimize=True)


if __name__ == "__main__":
    main()
