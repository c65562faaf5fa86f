#!/usr/bin/env python3
"""Paints the particle sprites: 64 by 64, tinted by the settings. On the
screen they are 10 to 30 pixels wide, so each has one shape and no detail."""
import pathlib

import numpy as np

import tga
from painting import colour, grid, mix, noise, smooth, to_image

TARGET = pathlib.Path(__file__).parent.parent / "data" / "img"
SIZE = 64
y, x = grid(SIZE)
u, v = (x - 32) / 32, (y - 32) / 32
distance = np.hypot(u, v)


def grey(value):
    return np.repeat(value[..., None], 3, 2)


def water():
    """A disc that is blue within and pale at its rim. Many of them lie over each other, half
    open: inside of the body the blue middles prevail, at its edge only the rims are left. A
    breath of light lies on the upper left."""
    alpha = 1 - smooth(0.82, 1.0, distance)
    rim = smooth(0.45, 0.97, distance)
    sheen = np.exp(-((u + 0.24) ** 2 + (v + 0.30) ** 2) / 0.10)
    body = mix(colour("0f74c4"), colour("2ba2e6"), smooth(0.5, -0.6, v))
    body = mix(body, colour("9be4fc"), 0.3 * sheen)
    return to_image(mix(body, colour("dcf7ff"), rim), alpha)


def ice():
    """A splinter with six corners, cut into facets of different brightness, with hard edges,
    from white to cold blue."""
    corners = np.array([(-0.30, -0.96), (0.55, -0.80), (0.96, -0.08), (0.52, 0.86),
                        (-0.50, 0.90), (-0.95, 0.12)])
    heart = np.array([-0.08, -0.10])
    tones = (1.0, 0.72, 0.34, 0.0, 0.42, 0.86)
    alpha = np.ones((SIZE, SIZE))
    tone = np.ones((SIZE, SIZE))
    turn = np.arctan2(v - heart[1], u - heart[0])
    for i, here in enumerate(corners):
        there = corners[(i + 1) % 6]
        side = there - here
        inside = ((side[0] * (v - here[1]) - side[1] * (u - here[0])) / np.hypot(*side)) * 32
        alpha = np.minimum(alpha, np.clip(inside + 0.5, 0, 1))
        start = np.arctan2(*(here - heart)[::-1])
        width = (np.arctan2(*(there - heart)[::-1]) - start) % (2 * np.pi)
        tone = np.where((turn - start) % (2 * np.pi) < width, tones[i], tone)
    return to_image(mix(colour("5f9fc8"), colour("f6fdff"), tone), alpha)


def steam():
    """A puff of four lobes that thins out and frays towards its rim. It fills its picture: what is
    empty costs as much to draw."""
    reach = 0.76
    body = np.zeros((SIZE, SIZE))
    for px, py, radius in ((-0.28, 0.12, 0.60), (0.26, 0.22, 0.55), (0.04, -0.30, 0.58),
                           (0.34, -0.16, 0.42)):
        away = np.hypot(u * reach - px, v * reach - py) / radius
        body = np.maximum(body, 1 - smooth(0.1, 1.0, away))
    fray = noise(SIZE, 7, 1.3, low=2)
    alpha = np.clip(body * (0.55 + 0.9 * fray) - 0.08, 0, 1) * (1 - smooth(0.85, 1.0, distance))
    return to_image(grey(0.92 + 0.08 * fray), alpha * 0.9)


def main():
    TARGET.mkdir(parents=True, exist_ok=True)
    for paint in (water, ice, steam):
        (TARGET / f"{paint.__name__}.tga").write_bytes(tga.run_length(paint()))


if __name__ == "__main__":
    main()
