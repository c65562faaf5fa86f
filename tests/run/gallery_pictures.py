#!/usr/bin/python3
"""Takes a picture of every bay of levels/gallery.tmj in the real game, which starts anew with
its water in each.

    with_display.sh gallery_pictures.py VANTREL VANTREL-LEVEL OUT [TITLE...]

Titles choose bays by the text of their plates. OUT gets one picture each, and all.png.
"""

import json
import pathlib
import subprocess
import sys
import time

import numpy
from PIL import Image

import game_driver

WAIT = 2.2  # seconds from the start of the level to the picture
COLUMNS = 6  # of the sheet with all of them
SMALL = (400, 300)


def plates(level):
    """Titles and places of the plates, in the level's order."""
    for layer in level["layers"]:
        for thing in layer["objects"]:
            texture = [p["value"] for p in thing.get("properties", []) if p["name"] == "texture"]
            if texture and texture[0].startswith("img\\gallery\\"):
                yield thing["name"], thing["x"], thing["y"]


def start_at(level, x, y):
    """Moves the start of water and camera below the plate at (x, y)."""
    for layer in level["layers"]:
        for thing in layer["objects"]:
            if thing["type"] in ("WaterStart", "CameraStart"):
                thing["x"], thing["y"] = x, y + 44


def shoot(program, level):
    game = game_driver.Driver(program, "-MAP", str(level.resolve()))
    try:
        time.sleep(WAIT)
        return Image.fromarray(game.picture().astype(numpy.uint8))
    finally:
        game.close()


def main(program, compiler, out, *titles):
    out = pathlib.Path(out)
    out.mkdir(parents=True, exist_ok=True)
    level = json.loads((pathlib.Path(game_driver.ROOT) / "levels" / "gallery.tmj").read_text())
    source, target = out / "bay.tmj", out / "bay.swah"
    pictures = []
    for title, x, y in plates(level):
        if titles and title not in titles:
            continue
        start_at(level, x, y)
        source.write_text(json.dumps(level), encoding="utf-8")
        subprocess.run([compiler, "compile", source, "-o", target], check=True)
        pictures.append(shoot(program, target))
        pictures[-1].save(out / f"{title.replace(' ', '_')}.png")
    rows = -(-len(pictures) // COLUMNS)
    sheet = Image.new("RGB", (COLUMNS * SMALL[0], rows * SMALL[1]))
    for i, picture in enumerate(pictures):
        place = (i % COLUMNS * SMALL[0], i // COLUMNS * SMALL[1])
        sheet.paste(picture.resize(SMALL), place)
    sheet.save(out / "all.png")


if __name__ == "__main__":
    if len(sys.argv) < 4:
        sys.exit(__doc__)
    main(*sys.argv[1:])
