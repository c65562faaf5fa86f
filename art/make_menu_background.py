#!/usr/bin/env python3
"""Paints what stands around the scores of a finished level: a wall of the cistern with a measuring
glass on the left, through whose clear middle the counted water shows, and a slate for the texts.
800 by 600 pixels of picture in the corner of a square."""
import numpy as np
from PIL import Image

import surfaces
from lettering import line_distance
from menu_paint import (BRASS_LIGHT, CREAM, NIGHT, RIM, VERDIGRIS, WATER, WATER_DEEP, Sheet, save)
from painting import blur, colour, mix, smooth

TUBE = (64, 120, 176, 540)  # the column of a full body of water
SLATE = (208, 108, 762, 484)
HEAD = (250, 22, 720, 92)


def tiled(s, picture):
    """A tiling picture over the sheet, one texel to a pixel."""
    wide = np.kron(picture, np.ones((s.fine, s.fine, 1)))
    reps = (s.rgb.shape[0] // wide.shape[0] + 1, s.rgb.shape[1] // wide.shape[1] + 1, 1)
    return np.tile(wide, reps)[:s.rgb.shape[0], :s.rgb.shape[1]]


def wall(s):
    s.over(tiled(s, surfaces.wall()), np.ones_like(s.alpha))
    far = np.hypot((s.x - 330) / 620, (s.y - 210) / 520)
    s.rgb = s.rgb * (1.25 - 0.8 * smooth(0.1, 1.1, far))[..., None]
    glow = np.exp(-np.hypot((s.x - 120) / 150, (s.y - 360) / 260) ** 2)
    s.tint(mix(WATER, WATER_DEEP, 0.4), 0.20 * glow)


def shadow(s, distance, reach=9.0, strength=0.75):
    s.tint(NIGHT, strength * np.exp(-np.maximum(distance, 0) / reach))


def plate(s, box, radius, paint, rim, seed):
    """A sheet of something in a frame of brass."""
    left, top, right, bottom = box
    d = s.box(left, top, right, bottom, radius)
    shadow(s, s.box(left + 5, top + 7, right + 5, bottom + 7, radius))
    mask = s.soft(d)
    s.tint(s.brass(seed), mask)
    s.relief(blur(np.minimum(np.clip(-d, 0, 3), np.clip(d + rim, 0, 3)), 1.6), 0.55, mask)
    s.tint(NIGHT, 0.7 * mask * smooth(-1.4, 0.0, d))
    s.tint(BRASS_LIGHT, 0.35 * mask * np.exp(-((d + 2.4) / 1.0) ** 2) * smooth(bottom, top, s.y))
    inner = s.box(left + rim, top + rim, right - rim, bottom - rim, max(radius - rim, 2))
    s.tint(NIGHT, 0.85 * mask * np.exp(-(np.maximum(inner, 0) / 1.2) ** 2))
    inside = s.soft(inner)
    s.tint(paint, inside)
    s.tint(NIGHT, 0.6 * inside * smooth(-14, 0, s.box(left + rim + 3, top + rim + 4,
                                                      right - rim + 20, bottom - rim + 20, 8)))
    return inner


def slate(s):
    grey = mix(colour("0e1f25"), colour("16303a"), s.grain(501, 1.5, (3.0, 1.0), low=2))
    grey = grey * (0.94 + 0.12 * s.grain(502, 0.6, low=10))[..., None]
    plate(s, SLATE, 12, grey, 13, 503)
    left, top, right, bottom = SLATE
    for x in np.linspace(left + 6.8, right - 6.8, 12):
        s.rivet(x, top + 6.6, 3.2)
        s.rivet(x, bottom - 6.6, 3.2)
    for y in np.linspace(top + 6.6, bottom - 6.6, 9)[1:-1]:
        s.rivet(left + 6.8, y, 3.2)
        s.rivet(right - 6.8, y, 3.2)


def heading(s):
    for x in (300, 670):  # the straps that it hangs from
        strap = s.box(x - 9, -10, x + 9, 120, 3)
        shadow(s, s.box(x - 5, -10, x + 13, 122, 3), 5)
        s.tint(s.brass(511) * 0.62, s.soft(strap))
        s.relief(blur(np.clip(-strap, 0, 2), 1.0), 0.5, s.soft(strap))
        s.rivet(x, 9, 3.6)
        s.rivet(x, 101, 3.6)
    metal = tiled(s, surfaces.metal() * 0.30 + colour("0d1d23") * 0.55)
    plain = mix(colour("12262c"), colour("1d3a43"), smooth(92, 22, s.y))
    plate(s, HEAD, 14, mix(metal, plain, 0.85), 11, 512)
    for x in (HEAD[0] + 23, HEAD[2] - 23):
        for y in (HEAD[1] + 22, HEAD[3] - 22):
            s.rivet(x, y, 4.0)
    d = line_distance(800 * s.fine, 600 * s.fine, "Level finished", 30 * s.fine,
                      (485 * s.fine, 58 * s.fine), 6.4, 370 * s.fine) / s.fine - 2.5
    s.tint(colour("03080a"), 0.95 * np.exp(-(np.maximum(d, 0) / 3.0) ** 2))
    s.tint(mix(colour("b98f48"), CREAM, smooth(76, 44, s.y)), s.soft(d))
    s.tint(colour("ffffff"), 0.5 * s.soft(d) * np.exp(-((s.y - 46) / 4) ** 2))


def pipe(s, left, right, top, bottom, seed):
    """A standing copper pipe gone green."""
    across = (s.x - (left + right) / 2) / ((right - left) / 2)
    mask = s.soft(np.abs(across) * (right - left) / 2 - (right - left) / 2) * \
        s.soft(np.maximum(top - s.y, s.y - bottom))
    shadow(s, s.box(left + 8, top - 20, right + 9, bottom, 2), 7)
    green = smooth(0.36, 0.6, s.grain(seed, 1.5, (1.0, 0.5), low=3))
    base = mix(s.brass(seed + 1) * [0.95, 0.75, 0.68], VERDIGRIS, green * 0.8)
    s.tint(base * tube_light(across)[..., None], mask)


def tube_light(across):
    """Brightness round a standing cylinder, -1 its left and 1 its right side."""
    return 0.35 + 0.9 * np.exp(-((across + 0.38) / 0.42) ** 2) + 0.16 * smooth(0.75, 1.0, across)


def collar(s, left, right, top, bottom, seed):
    d = s.box(left, top, right, bottom, 5)
    shadow(s, s.box(left + 7, top + 5, right + 8, bottom + 6, 5), 7)
    across = (s.x - (left + right) / 2) / ((right - left) / 2)
    mask = s.soft(d)
    s.tint(s.brass(seed) * (0.25 + tube_light(across))[..., None], mask)
    s.relief(blur(np.clip(-d, 0, 3), 1.6), 0.5, mask)
    s.tint(NIGHT, 0.7 * mask * smooth(-1.4, 0, d))
    for x in np.linspace(left + 12, right - 12, 5):
        s.rivet(x, (top + bottom) / 2, 3.4)


def glass(s):
    left, top, right, bottom = TUBE
    pipe(s, 94, 146, -10, 110, 521)
    pipe(s, 94, 146, 550, 610, 524)
    shadow(s, s.box(left + 6, top, right + 12, bottom, 2), 8)
    walls = s.soft(s.box(left - 5, top - 4, right + 5, bottom + 4, 2))
    s.tint(mix(colour("27505a"), RIM, 0.35 * np.exp(-((s.x - left + 3.6) / 1.1) ** 2) +
               0.35 * np.exp(-((s.x - right - 1.6) / 1.0) ** 2)), walls)
    hole = s.soft(s.box(left, top, right, bottom, 0.5), 0.3)
    see_through(s, hole)
    collar(s, left - 17, right + 17, top - 26, top + 1, 531)
    collar(s, left - 17, right + 17, bottom - 1, bottom + 26, 534)
    marks(s)


def see_through(s, hole):
    """The clear part: the tint of thick glass, darker at its sides, with light from the left."""
    left, top, right, bottom = TUBE
    across = (s.x - (left + right) / 2) / ((right - left) / 2)
    down = smooth(top, bottom, s.y)
    tint = mix(colour("10a0d2"), colour("0a5288"), down)
    alpha = 0.42 + 0.22 * down
    side = smooth(0.62, 1.0, np.abs(across)) ** 1.5
    tint, alpha = mix(tint, colour("05202c"), side), np.maximum(alpha, 0.8 * side)
    light = 0.62 * np.exp(-((across + 0.66) / 0.075) ** 2) + 0.22 * np.exp(
        -((across + 0.46) / 0.05) ** 2) + 0.35 * np.exp(-((across - 0.8) / 0.05) ** 2)
    light = light * smooth(top + 4, top + 26, s.y) * smooth(bottom - 4, bottom - 22, s.y)
    tint, alpha = mix(tint, RIM, light), np.maximum(alpha, light)
    s.rgb = mix(s.rgb, tint, hole)
    s.alpha = s.alpha * (1 - hole) + alpha * hole


def marks(s):
    """Eighths of the glass, the quarters longer."""
    left, top, right, bottom = TUBE
    for i in range(1, 8):
        y = bottom - (bottom - top) * i / 8
        long = 34 if i % 4 == 0 else 24 if i % 2 == 0 else 14
        line = s.soft(np.maximum(np.abs(s.y - y) - 1.0, np.maximum(right - long - s.x,
                                                                  s.x - right + 1)))
        lower = s.soft(np.maximum(np.abs(s.y - y - 1.6) - 1.0, np.maximum(right - long - s.x,
                                                                         s.x - right + 1)))
        s.over(NIGHT, 0.6 * lower)
        s.over(CREAM, 0.95 * line)


def main():
    s = Sheet(800, 600, 2)
    wall(s)
    slate(s)
    heading(s)
    glass(s)
    square = Image.new("RGBA", (1024, 1024), (0, 0, 0, 255))
    square.paste(s.image(steps=72), (0, 0))
    save(square, "background")


if __name__ == "__main__":
    main()
