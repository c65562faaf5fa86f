#!/usr/bin/env python3
"""Draws the place of the opening film: a spout over a stone basin in the cistern.
    level.py OUT.tmj"""
import pathlib
import sys

sys.path.append(str(pathlib.Path(__file__).resolve().parents[2] / "levels"))
from tiled import Map  # noqa: E402

STONE, ROCK, PIPE = "img\\masonry.png", "img\\rock.png", "img\\pipe.png"
WALL, PLASTER, METAL, MOSS = "img\\wall.png", "img\\plaster.png", "img\\metal.png", "img\\moss.png"
level = Map()


def box(left, top, right, bottom):
    return [(left, top), (right, top), (right, bottom), (left, bottom)]


def scenery(layer, points, texture):
    level.polygon(points, "stone", texture, layer=layer, flags="scenery")


def main():
    for x in (-200, 240, 680):
        for y in (-300, 125):
            scenery(0, box(x, y, x + 440, y + 425), WALL)
    arch = [(250, 420), (250, 220), (264, 160), (300, 112), (350, 84), (400, 76), (450, 84),
            (500, 112), (536, 160), (550, 220), (550, 420)]
    scenery(0, arch, PLASTER)

    # The basin: a floor, two steep sides with kerbs, rock under and beside them.
    level.polygon([(372, 430), (428, 430), (462, 376), (492, 376), (500, 402), (584, 402),
                   (584, 470), (216, 470), (216, 402), (300, 402), (308, 376), (338, 376)],
                  "stone", STONE, layer=1)
    level.polygon([(-200, 470), (1000, 470), (1000, 800), (-200, 800)], "stone", ROCK, layer=1)
    level.polygon([(-200, 380), (60, 390), (120, 410), (216, 402), (216, 470), (-200, 470)],
                  "stone", ROCK, layer=1)
    level.polygon([(584, 402), (690, 412), (750, 392), (1000, 380), (1000, 470), (584, 470)],
                  "stone", ROCK, layer=1)
    level.polygon([(-200, -300), (90, -300), (120, -60), (84, 60), (110, 180), (70, 300),
                   (86, 392), (-200, 380)], "stone", ROCK, layer=1)
    level.polygon([(1000, -300), (1000, 380), (712, 394), (736, 290), (700, 170), (722, 50),
                   (690, -70), (716, -300)], "stone", ROCK, layer=1)

    # The spout, and things that somebody bolted on.
    scenery(1, box(388, -300, 412, 150), PIPE)
    scenery(2, [(382, 134), (418, 134), (420, 166), (410, 176), (390, 176), (380, 166)], METAL)
    scenery(1, box(412, 30, 722, 50), PIPE)
    scenery(1, box(84, 30, 388, 50), PIPE)
    level.object(400, 40, "img\\wheel_FRAME01.png", layer=2)
    level.object(210, 150, "img\\lamp_FRAME01.png", layer=1)
    level.object(590, 150, "img\\lamp_FRAME01.png", layer=1)
    level.object(560, 44, "img\\gauge_FRAME04.png", layer=2)
    scenery(3, [(308, 376), (338, 376), (344, 386), (330, 388), (320, 382), (309, 390)], MOSS)
    scenery(3, [(492, 376), (470, 376), (478, 386), (490, 388), (500, 402), (504, 398)], MOSS)

    for x in (376, 392, 408, 424):
        level.emitter(1, (x, 412), "fx\\steam.cfg", (0, -1))
    level.water_start(400, 176)
    level.camera_start(400, 292)
    level.save(sys.argv[1])


if __name__ == "__main__":
    main()
