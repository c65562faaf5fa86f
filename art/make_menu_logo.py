#!/usr/bin/env python3
"""Paints the name of the game: letters of bent glass tube in brass, with water standing in them as
in one vessel."""
import numpy as np

from lettering import line_distance
from menu_paint import (BRASS_LIGHT, GLASS, GLASS_DARK, NIGHT, RIM, WATER_LIGHT, Sheet, save)
from painting import blur, colour, mix, smooth

BORE, WALL = 8.3, 4.2  # half the tube's inner width and the thickness of its brass, in pixels
TOP, BASE = 24.0, 92.0
SURFACE = 55.0


def surface(s):
    return (SURFACE + 3.6 * np.sin(s.x / 33.0 + 0.6) + 1.5 * np.sin(s.x / 13.5) -
            3.0 * np.exp(-((s.x - 262) / 26) ** 2))


def bubbles(s, inside):
    rng = np.random.default_rng(421)
    for _ in range(60):
        x, y, r = rng.uniform(14, 498), rng.uniform(64, 100), rng.uniform(0.9, 2.3)
        ring = np.abs(s.disc(x, y, r))
        s.tint(RIM, 0.6 * inside * np.exp(-(ring / 0.5) ** 2))
        s.tint(RIM, 0.8 * inside * s.soft(s.disc(x - 0.4 * r, y - 0.4 * r, 0.3 * r)))


def drips(s, tube):
    """Drops that hang from the letters and fall."""
    for x, y, r in ((61, 108, 2.6), (61, 119, 1.7), (230, 109, 2.3), (373, 108, 2.8),
                    (373.5, 121, 1.6), (480, 107.5, 2.0), (147, 107, 1.8)):
        s.drop(x, y, r)


def main():
    s = Sheet(512, 128)
    d = line_distance(512 * s.fine, 128 * s.fine, "VANTREL", (BASE - TOP) * s.fine,
                      (256 * s.fine, (TOP + BASE) / 2 * s.fine), 10.5, 462 * s.fine) / s.fine
    outer = BORE + WALL
    drips(s, d)
    s.over(NIGHT, s.soft(d - outer - 2.0, 1.0) * 0.9)
    s.over(s.brass(431, 1.3), s.soft(d - outer))
    inside = s.soft(d - BORE)
    wall = np.clip(1 - ((d - BORE - WALL / 2) / (WALL / 2)) ** 2, 0, 1)
    s.relief(blur(np.sqrt(wall) * 2.4, 1.4), 0.55, s.soft(d - outer) * (1 - inside))
    s.tint(BRASS_LIGHT, 0.42 * wall * smooth(70, 15, s.y) * (1 - inside))
    s.tint(NIGHT, 0.8 * np.exp(-((d - BORE) / 0.9) ** 2))
    s.tint(mix(GLASS, GLASS_DARK, smooth(0, BORE, d)), inside)
    s.water(inside, surface(s), BASE + BORE, 1.7)
    bubbles(s, inside)
    round_in = np.sqrt(np.clip(1 - (d / BORE) ** 2, 0, 1))
    s.relief(blur(round_in * BORE, 2.0), 0.20, inside)
    s.tint(colour("04141c"), inside * 0.5 * smooth(0.62 * BORE, BORE, d))
    shine(s, d, inside)
    save(s.image(steps=128), "logo")


def shine(s, d, inside):
    """Light from above left runs along the tube's upper left side."""
    slope_y, slope_x = np.gradient(blur(np.minimum(d, BORE + 2), 1.2) * s.fine)
    toward = -(slope_x * 0.6 + slope_y * 0.8)
    line = np.exp(-((d - BORE * 0.52) / 1.1) ** 2) * smooth(0.35, 0.9, toward)
    s.tint(RIM, inside * line * 0.75)
    low = np.exp(-((d - BORE * 0.72) / 0.9) ** 2) * smooth(0.4, 0.95, -toward)
    s.tint(WATER_LIGHT, inside * low * 0.3)


if __name__ == "__main__":
    main()
