#!/usr/bin/env python3
"""Paints the bell of the clock tower, still: 130 by 150, hung from the middle of its upper side."""
import numpy as np

from make_machines import block, bulge, middle
from make_objects import BRASS, BRASS_DARK, INK, IRON, RUST, Canvas
from painting import colour, shaded, smooth


def bell():
    c = Canvas(160)
    iron = c.worn(IRON, RUST, 301, 0.8)
    c.cover(c.soft(block(c, -26, -75, 26, -61, 4)), iron, bulge(c.y + 68, 9, 4))
    c.cover(c.soft(np.abs(np.hypot(c.x, c.y + 55) - 9) - 3.5), iron, 4.0)
    # Half its width, from the crown down to the lip that turns out.
    t = np.clip((c.y + 48) / 104, 0, 1)
    half = 25 + 15 * t + 24 * smooth(0.55, 1.0, t) * t
    crown = np.where(c.y < -36, half - 0.09 * (c.y + 36) ** 2, half)
    shape = np.maximum(np.abs(c.x) - crown, np.abs(c.y - 4) - 52)
    brass = c.worn(BRASS, BRASS_DARK, 303)
    verdigris = c.worn(colour("5f8f80"), BRASS_DARK, 305)
    c.cover(c.soft(shape), brass, np.sqrt(np.clip(1 - (c.x / (half + 2)) ** 2, 0, 1)) * 34)
    for y, width in ((-26, 2.0), (-19, 1.2), (30, 2.2), (47, 1.6)):
        ring = np.maximum(np.abs(c.y - y) - width, shape)
        c.cover(c.soft(ring) * 0.75, shaded(verdigris, np.full_like(c.x, 0.8)))
    c.cover(c.soft(np.maximum(np.hypot(c.x, c.y - 58) - 11, 54 - c.y)), iron, 5.0)
    lip = np.maximum(np.abs(c.x) - 63, np.abs(c.y - 55) - 2)
    c.cover(c.soft(lip) * 0.55, INK)
    return c, middle(c, 130, 150)


if __name__ == "__main__":
    canvas, crop = bell()
    canvas.save("bell", crop=crop)
