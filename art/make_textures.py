#!/usr/bin/env python3
"""Paints the level's textures into data/img; names on the command line make only these."""
import pathlib
import sys

import surfaces
from painting import to_image

TARGET = pathlib.Path(__file__).parent.parent / "data" / "img"


def main(names):
    TARGET.mkdir(parents=True, exist_ok=True)
    for paint in surfaces.ALL:
        if not names or paint.__name__ in names:
            to_image(paint()).save(TARGET / f"{paint.__name__}.png", optimize=True)


if __name__ == "__main__":
    main(sys.argv[1:])
