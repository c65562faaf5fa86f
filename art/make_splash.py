#!/usr/bin/env python3
"""Paints what stands in the window while a level loads: a round window in a pipe on the cistern's
wall, 800 by 600 in the middle of a square, and the water that rises and falls behind its glass."""
import numpy as np
from PIL import Image

from lettering import line_distance
from make_menu_background import pipe, shadow, tube_light, wall
from menu_paint import (BRASS_LIGHT, CREAM, GLASS, GLASS_DARK, NIGHT, RIM, TARGET, VERDIGRIS, WATER,
                        WATER_DEEP, WATER_LIGHT, Sheet)
from painting import blur, colour, mix, smooth

FOLDER = TARGET.parent
PORT = (400.0, 270.0)
CLEAR, OUTER = 92.0, 132.0  # radii of the glass and of its frame
FRAMES = 12
BASIN = 512.0  # where the water in the cistern stands


def level_pipe(s, left, right, seed):
    """A lying pipe at the height of the window."""
    across = (s.y - PORT[1]) / 30.0
    mask = s.soft(np.abs(s.y - PORT[1]) - 30.0) * s.soft(np.maximum(left - s.x, s.x - right))
    shadow(s, s.box(left - 9, PORT[1] - 22, right + 9, PORT[1] + 39, 2), 8)
    green = smooth(0.40, 0.62, s.grain(seed, 1.5, (0.5, 1.0), low=3))
    base = mix(s.brass(seed + 1) * [0.95, 0.75, 0.68], VERDIGRIS, green * 0.8)
    s.tint(base * tube_light(across)[..., None], mask)
    for x in (left + 70, right - 70):
        joint = s.box(x - 15, PORT[1] - 39, x + 15, PORT[1] + 39, 5)
        shadow(s, s.box(x - 10, PORT[1] - 32, x + 20, PORT[1] + 47, 5), 6)
        inside = s.soft(joint)
        s.tint(s.brass(seed + 3) * (0.25 + tube_light((s.y - PORT[1]) / 39.0))[..., None], inside)
        s.relief(blur(np.clip(-joint, 0, 3), 1.6), 0.5, inside)
        s.tint(NIGHT, 0.7 * inside * smooth(-1.4, 0, joint))
        for y in np.linspace(PORT[1] - 28, PORT[1] + 28, 4):
            s.rivet(x, y, 3.4)


def frame(s):
    """The brass ring round the glass, with its bolts."""
    d = np.hypot(s.x - PORT[0], s.y - PORT[1])
    shadow(s, np.hypot(s.x - PORT[0] - 7, s.y - PORT[1] - 9) - OUTER, 12, 0.85)
    ring = s.soft(d - OUTER)
    s.tint(s.brass(721), ring)
    middle, half = (CLEAR + OUTER) / 2, (OUTER - CLEAR) / 2
    bulge = np.sqrt(np.clip(1 - ((d - middle) / half) ** 2, 0, 1)) * 9
    s.relief(blur(bulge, 2.4), 0.42, ring)
    s.tint(NIGHT, 0.8 * ring * smooth(OUTER - 2.2, OUTER, d))
    s.tint(BRASS_LIGHT, 0.3 * np.exp(-((d - OUTER + 4) / 1.5) ** 2) * smooth(60, -90, s.y - PORT[1]))
    for i in range(12):
        angle = (i + 0.5) / 12 * 2 * np.pi
        s.rivet(PORT[0] + middle * np.cos(angle), PORT[1] + middle * np.sin(angle), 5.2)
    hole = s.soft(d - CLEAR - 1.5)
    s.tint(colour("04090b"), hole)


def basin(s):
    """Still water at the wall's foot, and the light that it throws up."""
    surface = BASIN + 1.5 * np.sin(s.x / 41) + 0.9 * np.sin(s.x / 17 + 1)
    glow = np.exp(-np.maximum(BASIN - s.y, 0) / 80)
    s.tint(mix(WATER, WATER_DEEP, 0.3), 0.16 * glow)
    wet = s.soft(surface - s.y)
    deep = np.clip((s.y - BASIN) / 100, 0, 1)
    s.tint(mix(colour("10719f"), colour("072c3d"), smooth(0, 0.9, deep)), wet * 0.86)
    s.tint(RIM, 0.9 * np.exp(-((s.y - surface - 1.3) / 1.1) ** 2))
    waves = smooth(0.58, 0.75, s.grain(731, 1.3, (9.0, 1.0), low=3))
    s.tint(WATER_LIGHT, 0.3 * wet * waves * (1 - deep))


def sign(s):
    """The word, on a plate below the window."""
    box = (300, 424, 500, 474)
    d = s.box(*box, 10)
    shadow(s, s.box(box[0] + 5, box[1] + 7, box[2] + 5, box[3] + 7, 10))
    mask = s.soft(d)
    s.tint(s.brass(741) * 0.9, mask)
    s.relief(blur(np.clip(-d, 0, 3), 1.6), 0.55, mask)
    s.tint(NIGHT, 0.7 * mask * smooth(-1.4, 0, d))
    inner = s.soft(s.box(box[0] + 6, box[1] + 6, box[2] - 6, box[3] - 6, 6))
    s.tint(colour("12262c"), 0.94 * inner)
    for x in (box[0] + 17, box[2] - 17):
        s.rivet(x, (box[1] + box[3]) / 2, 3.8)
    word = line_distance(800 * s.fine, 600 * s.fine, "Loading", 17 * s.fine,
                         (400 * s.fine, 447 * s.fine), 6.0) / s.fine - 1.5
    s.tint(mix(colour("c9a865"), CREAM, smooth(456, 438, s.y)), s.soft(word))


def background():
    s = Sheet(800, 600, 2)
    wall(s)
    s.rgb = s.rgb * (0.42 + 0.58 * np.exp(-np.hypot((s.x - 400) / 400, (s.y - 270) / 300) ** 2)
                     )[..., None]
    pipe(s, 96, 146, -10, 620, 701)
    pipe(s, 660, 700, -10, 620, 704)
    level_pipe(s, -80, 330, 711)
    level_pipe(s, 470, 880, 714)
    frame(s)
    sign(s)
    basin(s)
    picture = np.asarray(s.image(steps=72).convert("RGB"))
    # The square's rest is never seen but by the filter at the picture's edge.
    square = np.pad(picture, ((212, 212), (112, 112), (0, 0)), "edge")
    Image.fromarray(square, "RGB").save(FOLDER / "splash_background.png",
                                        optimize=True)


def water_share(i):
    """How full the window is in a frame: it fills slowly and empties fast."""
    return 0.10 + 0.80 * (i / 8 if i <= 8 else (FRAMES - i) / 4)


def water_frame(i):
    size = 2 * int(CLEAR) + 8
    s = Sheet(size, size, 3)
    mid = size / 2
    x, y = s.x - mid, s.y - mid
    d = np.hypot(x, y)
    glass = s.soft(d - CLEAR)
    s.over(mix(colour("0f2a33"), GLASS_DARK, smooth(-80, 70, y)), glass)
    top = mid + CLEAR - 2 * CLEAR * water_share(i)
    phase = i / FRAMES * 2 * np.pi
    swing = 5.0 * np.sin(x / 30 + 2 * phase) + 2.4 * np.sin(x / 13 - 3 * phase)
    if i <= 8:  # a jet falls from above while it fills
        width = 7.5 + 1.2 * np.sin(s.y / 9 - 2.5 * i)
        jet = s.soft(np.abs(x - 2 * np.sin(s.y / 21 + i)) - width) * glass * s.soft(s.y - top - 14)
        s.over(mix(WATER_LIGHT, WATER, smooth(-7, 7, x)), jet * 0.95)
        s.over(RIM, jet * np.exp(-((np.abs(x) - width + 1.2) / 1.1) ** 2) * 0.9)
        swing = swing - 6.0 * np.exp(-((np.abs(x) - 22) / 9) ** 2) + 7 * np.exp(-(x / 10) ** 2)
    s.water(glass, top + swing, mid + CLEAR, 2.0)
    bubbles(s, i, top, glass, mid)
    # The glass: dark at its rim, a light on its upper left.
    s.tint(colour("03090c"), 0.75 * glass * smooth(CLEAR - 20, CLEAR, d))
    shine = np.exp(-((d - CLEAR + 15) / 3.2) ** 2) * smooth(0.75, 0.97, (-x * 0.62 - y * 0.78) /
                                                            np.maximum(d, 1))
    s.tint(RIM, 0.75 * shine * glass)
    s.tint(GLASS, 0.25 * glass * np.exp(-((x * 0.62 + y * 0.78 + 40) / 14) ** 2))
    return s.image(steps=96)


def bubbles(s, i, top, glass, mid):
    rng = np.random.default_rng(751)
    for _ in range(34):
        bx, start, speed, r = rng.uniform(-70, 70), rng.uniform(0, 1), rng.integers(1, 3), \
            rng.uniform(1.2, 3.4)
        rise = (start + speed * i / FRAMES) % 1.0
        by = mid + CLEAR - rise * 2 * CLEAR
        if by < top + 9:
            continue
        ring = np.abs(s.disc(mid + bx + 2 * np.sin(rise * 20), by, r))
        s.tint(RIM, 0.55 * glass * np.exp(-(ring / 0.6) ** 2))


def main():
    background()
    for i in range(FRAMES):
        water_frame(i).save(FOLDER / f"splash_water_FRAME{i + 1:02d}.png", optimize=True)


if __name__ == "__main__":
    main()
