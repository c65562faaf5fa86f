#!/usr/bin/env python3
"""Paints the sprites of sprite effects, white to grey and tinted by the settings, and the sheet
of digits that the times of check points are written with."""
import pathlib

import numpy as np

import tga
from painting import grid, noise, smooth, to_image

TARGET = pathlib.Path(__file__).parent.parent / "data" / "img"


def white(alpha, tone=None):
    tone = np.ones_like(alpha) if tone is None else tone
    return to_image(np.repeat(tone[..., None], 3, 2), alpha)


def plane(size, reach=1.0):
    y, x = grid(size)
    return (x / size * 2 - 1) * reach, (y / size * 2 - 1) * reach


def drop():
    """A falling drop with its point up and a light on its left."""
    x, y = plane(32)
    width = 0.5 * np.sqrt(np.clip(1 - ((y - 0.38) / 0.55) ** 2, 0, 1))
    width = np.where(y < 0.38, 0.5 * np.clip((y + 0.95) / 1.33, 0, 1) ** 1.25, width)
    alpha = 1 - smooth(-0.08, 0.06, np.abs(x) - width)
    alpha = np.where((y > 0.95) | (y < -0.95), 0, alpha)
    sheen = np.exp(-(((x + 0.17) / 0.16) ** 2 + ((y - 0.3) / 0.3) ** 2))
    return white(alpha * 0.9, 0.72 + 0.28 * sheen)


# How far the pictures of mist and steam reach: a faint rim would cost as much to draw as the rest.
REACH = 0.82


def mist():
    """A veil without a rim."""
    x, y = plane(64, REACH)
    r = np.hypot(x, y)
    veil = np.clip(1 - r, 0, 1) ** 1.4 * smooth(REACH, 0.66, r)
    return white(np.clip(veil * (0.25 + 1.0 * noise(64, 21, 1.8, low=1)), 0, 1) * 0.8)


def spark():
    """A hot point with two thin rays and a halo, for adding light."""
    x, y = plane(32)
    r = np.hypot(x, y)
    rays = np.exp(-np.abs(x) * 14 - np.abs(y) * 3.2) + np.exp(-np.abs(y) * 14 - np.abs(x) * 3.2)
    glow = np.exp(-(r / 0.16) ** 2) * 1.4 + np.exp(-(r / 0.42) ** 2) * 0.35 + rays * 0.5
    return white(np.clip(glow, 0, 1) * smooth(1.0, 0.7, r))


def splash():
    """A blob that has torn, with a few droplets round it."""
    x, y = plane(32)
    turn = np.arctan2(y, x)
    rim = 0.46 + 0.09 * np.sin(3 * turn + 0.6) + 0.05 * np.sin(7 * turn)
    alpha = 1 - smooth(-0.1, 0.08, np.hypot(x, y) - rim)
    for px, py, size in ((0.7, -0.35, 0.14), (-0.62, -0.58, 0.11), (-0.7, 0.42, 0.15),
                         (0.42, 0.72, 0.1)):
        alpha = np.maximum(alpha, 1 - smooth(-0.06, 0.06, np.hypot(x - px, y - py) - size))
    sheen = np.exp(-(((x + 0.16) / 0.22) ** 2 + ((y + 0.18) / 0.2) ** 2))
    return white(alpha * 0.85, 0.78 + 0.22 * sheen)


def puff():
    """A ball of steam: lobes round a core, thinner to the rim."""
    x, y = plane(64, REACH)
    body = np.zeros_like(x)
    for i in range(7):
        a = i * 2.4
        px, py = 0.36 * np.cos(a), 0.34 * np.sin(a)
        body = np.maximum(body, 1 - smooth(0.0, 0.52 + 0.06 * (i % 3), np.hypot(x - px, y - py)))
    body = np.maximum(body, 1 - smooth(0.1, 0.7, np.hypot(x, y)))
    fray = noise(64, 33, 1.5, low=2)
    alpha = np.clip(body * (0.5 + 0.8 * fray), 0, 1) * smooth(REACH, 0.66, np.hypot(x, y))
    return white(alpha * 0.85, 0.86 + 0.14 * fray)


# Strokes of the digits on a field 4 wide and 6 high: lines, and arcs as (centre, radii, from,
# to) in turns, clockwise from the right.
def line(*points):
    return [np.linspace(a, b, 24) for a, b in zip(points[:-1], points[1:])]


def arc(cx, cy, rx, ry, start, end):
    t = np.linspace(start, end, 64) * 2 * np.pi
    return [np.stack([cx + rx * np.cos(t), cy + ry * np.sin(t)], 1)]


DIGITS = {
    "0": arc(2, 3, 1.8, 3, 0, 1),
    "1": line((0.8, 1.1), (2.2, 0), (2.2, 6)) + line((0.9, 6), (3.5, 6)),
    "2": arc(2, 1.7, 1.75, 1.7, -0.48, 0.1) + line((3.4, 2.7), (0.3, 6), (3.8, 6)),
    "3": arc(2, 1.5, 1.6, 1.5, -0.46, 0.25) + arc(2, 4.5, 1.8, 1.5, -0.25, 0.46),
    "4": line((3.0, 6), (3.0, 0), (0.2, 4.2), (3.9, 4.2)),
    "5": line((3.5, 0), (0.7, 0), (0.5, 2.7)) + arc(1.9, 4.1, 1.85, 1.9, -0.37, 0.42),
    "6": line((3.0, 0.0), (0.75, 2.9)) + arc(2, 4.2, 1.75, 1.8, 0, 1),
    "7": line((0.3, 0), (3.7, 0), (1.5, 6)),
    "8": arc(2, 1.5, 1.5, 1.5, 0, 1) + arc(2, 4.5, 1.8, 1.5, 0, 1),
    "9": arc(2, 1.8, 1.75, 1.8, 0, 1) + line((3.25, 3.1), (1.0, 6)),
    ":": line((2, 1.7), (2, 1.75)) + line((2, 4.7), (2, 4.75)),
    "+": line((0.5, 3.2), (3.5, 3.2)) + line((2, 1.7), (2, 4.7)),
    "-": line((0.5, 3.2), (3.5, 3.2)),
}


def times():
    """16 by 16 cells of 32 pixels: brushed digits with a dark rim that keeps them readable."""
    cell = 32
    sheet_alpha, sheet_tone = np.zeros((16 * cell,) * 2), np.ones((16 * cell,) * 2)
    y, x = grid(cell)
    for char, strokes in DIGITS.items():
        distance = np.full((cell, cell), 1e9)
        for stroke in strokes:
            points = stroke * 3.6 + np.array([8.8, 5.2])
            for px, py in points:
                distance = np.minimum(distance, np.hypot(x - px, y - py))
        ink = 1 - smooth(1.6, 2.5, distance)
        rim = (1 - smooth(2.4, 4.6, distance)) * 0.75
        row, column = divmod(ord(char), 16)
        at = np.s_[row * cell:(row + 1) * cell, column * cell:(column + 1) * cell]
        sheet_alpha[at] = np.maximum(ink, rim)
        sheet_tone[at] = ink * (1.0 - 0.22 * smooth(6, 28, y))
    return white(sheet_alpha, sheet_tone)


def main():
    for paint in (drop, mist, spark, splash, puff):
        paint().save(TARGET / f"{paint.__name__}.png", optimize=True)
    (TARGET / "times.tga").write_bytes(tga.run_length(times()))


if __name__ == "__main__":
    main()
