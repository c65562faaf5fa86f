#!/usr/bin/env python3
"""Paints what only the shore has: water that runs down the weir, foam, the lighthouse's lantern,
the sun and its way over the water, and the night above the evening sky; into data/img."""
import pathlib

import numpy as np
from PIL import Image

from painting import colour, grid, mix, noise, smooth, to_image

TARGET = pathlib.Path(__file__).parent.parent / "data" / "img"
FALL_FRAMES = 6


def oval(x, y, cx, cy, rx, ry):
    """1 inside of an ellipse, with a soft rim of a pixel and a half."""
    return np.clip((1 - np.hypot((x - cx) / rx, (y - cy) / ry)) * min(rx, ry) / 1.5, 0, 1)


def block(x, y, left, top, right, bottom):
    return ((x >= left) & (x < right) & (y >= top) & (y < bottom)).astype(float)


def fall(frame):
    """Streaks that run down by 256 / FALL_FRAMES a frame: the last meets the first. Thin and grey,
    so that nobody takes it for the player's own water."""
    size = 256
    y, x = grid(size)
    streaks = noise(size, 501, 0.7, (1.0, 9.0), low=7)
    curls = noise(size, 502, 1.3, (1.0, 3.0), low=2)
    rolled = np.roll(streaks * 0.7 + curls * 0.3, frame * size // FALL_FRAMES, 0)[:, :40]
    x, y = x[:, :40], y[:, :40]
    side = smooth(0, 9, x) * smooth(0, 14, 40 - x)
    ends = smooth(0, 26, y) * smooth(0, 34, size - y)
    tone = mix(colour("4f6a6c"), colour("e3d3c0"), smooth(0.5, 0.7, rolled))
    return tone, (0.16 + 0.6 * smooth(0.46, 0.66, rolled)) * side * ends


def foam():
    """A crest that tiles along x: 256 wide, 32 high, its upper edge ragged."""
    size = 256
    y, x = grid(size)
    line = noise(size, 511, 1.5, low=1)[40] * 16
    depth = (y - line[None, :])[:32]
    froth = noise(size, 512, 0.8, (1.6, 0.8), low=3)[:32]
    crest = smooth(-0.5, 1.5, depth) * (1 - smooth(3, 14, depth - froth * 6))
    body = smooth(0, 3, depth) * 0.45 * (1 - smooth(20, 31, y[:32]))
    tone = mix(colour("3c5a5e"), colour("f0dcc2"), np.clip(crest, 0, 1))
    return tone, np.clip(np.maximum(crest * (0.55 + 0.45 * froth), body), 0, 1)


def lantern_room():
    """The head of the lighthouse: gallery, lit panes, dome. 128 wide, 176 high."""
    y, x = grid(176)
    x, y = x[:, :128], y[:, :128]
    tone, alpha = np.zeros((176, 128, 3)), np.zeros((176, 128))

    def lay(mask, paint):
        nonlocal tone, alpha
        tone = mix(tone, paint, mask)
        alpha = np.maximum(alpha, mask)

    across = (x - 64) / 46
    metal = mix(colour("222f34"), colour("7a5a44"), smooth(0.1, -0.9, across))
    lay(block(x, y, 62, 6, 66, 40), metal)
    lay(oval(x, y, 64, 64, 40, 34) * block(x, y, 0, 28, 128, 64), metal * 1.1)
    lay(block(x, y, 20, 60, 108, 68), metal * 1.3)
    heart = np.exp(-((x - 64) / 20) ** 2 - ((y - 96) / 22) ** 2)
    lay(block(x, y, 30, 68, 98, 128), mix(mix(colour("8a4f33"), colour("e2a566"), heart ** 0.4),
                                          colour("fff3d2"), heart))
    for at in (30, 46, 62, 78, 94):
        lay(block(x, y, at, 68, at + 4, 128), metal)
    lay(block(x, y, 30, 96, 98, 99), metal)
    lay(block(x, y, 8, 128, 120, 138), metal * 1.5)
    for at in range(10, 120, 14):
        lay(block(x, y, at, 108, at + 2, 128), metal * 1.2)
    lay(block(x, y, 8, 106, 120, 109), metal * 1.4)
    lay(block(x, y, 18, 138, 110, 150) * (np.abs(x - 64) < 46 - (y - 138) * 0.5), metal)
    lay(block(x, y, 26, 150, 102, 176), mix(colour("57513f"), colour("a59a84"),
                                          smooth(0.4, -0.9, across)))
    return tone, alpha


def sun():
    """The last of it, half below the horizon, with its light in the haze: 320 by 160."""
    y, x = grid(320)
    x, y = x[:160], y[:160]
    away = np.hypot(x - 160, (y - 160) * 1.25)
    disc = 1 - smooth(42, 45, away)
    haze = np.clip(1 - away / 158, 0, 1) ** 2
    return mix(mix(colour("e2a566"), colour("ffdf9f"), haze), colour("fff1cc"), disc), \
        np.maximum(disc, haze * 0.75)


def glitter():
    """The sun's way over the water: 192 wide, 384 high, broken into flecks."""
    size = 384
    y, x = grid(size)
    flecks = noise(size, 521, 0.9, (4.0, 0.7), low=2)[:, :192]
    x, y = x[:, :192], y[:, :192]
    width = 26 + y * 0.17
    way = np.exp(-((x - 96) / width) ** 2) * smooth(0, 6, y) * (1 - smooth(150, 380, y))
    fleck = smooth(0.5, 0.62, flecks + way * 0.14 - y * 0.00025)
    return np.ones((size, 192, 3)) * colour("ffd294"), fleck * way * 0.85


def night():
    """Goes on above the evening sky of places.py, where that is at its darkest: the same clouds
    without the light, and stars between them."""
    size = 512
    cloud = smooth(0.5, 0.72, noise(size, 411, 1.5, (3.0, 0.8), low=1))
    base = np.ones((size, size, 3)) * colour("141f33")
    base = mix(base, base * 0.55 + colour("6d4450") * 0.3, cloud * 0.7)
    base = np.repeat(base, 2, 0)
    clear = np.repeat(1 - cloud, 2, 0)
    rng = np.random.default_rng(531)
    for star_y, star_x, glow in zip(rng.integers(0, 2 * size, 130), rng.integers(0, size, 130),
                                    rng.random(130) ** 2):
        base[star_y, star_x] += (0.12 + 0.5 * glow) * clear[star_y, star_x]
    return base, None


def save(name, picture):
    to_image(*picture).save(TARGET / f"{name}.png", optimize=True)


def main():
    for i in range(FALL_FRAMES):
        save(f"weirFall_FRAME{i + 1:02d}", fall(i))
    for paint, name in ((foam, "foam"), (lantern_room, "lanternRoom"), (sun, "sun"),
                        (glitter, "glitter"), (night, "nightSky")):
        save(name, paint())


if __name__ == "__main__":
    main()
