#!/usr/bin/env python3
"""Paints the level's textures into data/img; names on the command line make only these."""
import pathlib
import sys

import places
import surfaces
from painting import to_image

TARGET = pathlib.Path(__file__).parent.parent / "data" / "img"


def main(names):
    TARGET.mkdir(parents=True, exist_ok=True)
    files = {paint.__name__: paint for paint in surfaces.ALL} | places.FILES
    for name, paint in files.items():
        if not names or name in names:
            picture = paint()
            alpha = picture[..., 3] if picture.shape[2] == 4 else None
            to_image(picture[..., :3], alpha).save(TARGET / f"{name}.png", optimize=True)


if __name__ == "__main__":
    main(sys.argv[1:])
