#!/usr/bin/env python3
"""Paints the particle sprites: 64 by 64, white, tinted by the settings. On the screen they are
4 to 16 pixels wide, so each has one shape and no detail."""
import pathlib

import numpy as np

import tga
from painting import grid, noise, smooth, to_image

TARGET = pathlib.Path(__file__).parent.parent / "data" / "img"
SIZE = 64
y, x = grid(SIZE)
u, v = (x - 32) / 32, (y - 32) / 32
distance = np.hypot(u, v)


def grey(value):
    return np.repeat(value[..., None], 3, 2)


def water():
    """A plump disc that nearly fills its square, so that neighbours which only just touch
    still melt into one body; its rim is soft enough to hide where one ends. A breath of light
    lies on its upper left."""
    plump = (np.abs(u) ** 2.3 + np.abs(v) ** 2.3) ** (1 / 2.3)
    alpha = 1 - smooth(0.78, 1.06, plump)
    sheen = np.exp(-((u + 0.30) ** 2 + (v + 0.34) ** 2) / 0.22)
    tone = 0.90 + 0.10 * sheen - 0.06 * smooth(0.0, 1.2, u * 0.5 + v * 0.8)
    return to_image(grey(tone), alpha)


def ice():
    """A splinter with six corners, cut into facets of different brightness, with hard edges."""
    corners = np.array([(-0.30, -0.96), (0.55, -0.80), (0.96, -0.08), (0.52, 0.86),
                        (-0.50, 0.90), (-0.95, 0.12)])
    heart = np.array([-0.08, -0.10])
    tones = (1.0, 0.86, 0.70, 0.60, 0.76, 0.93)
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
    return to_image(grey(tone), alpha)


def steam():
    """A puff of four lobes that thins out and frays towards its rim."""
    body = np.zeros((SIZE, SIZE))
    for px, py, radius in ((-0.28, 0.12, 0.60), (0.26, 0.22, 0.55), (0.04, -0.30, 0.58),
                           (0.34, -0.16, 0.42)):
        body = np.maximum(body, 1 - smooth(0.1, 1.0, np.hypot(u - px, v - py) / radius))
    fray = noise(SIZE, 7, 1.3, low=2)
    alpha = np.clip(body * (0.55 + 0.9 * fray) - 0.08, 0, 1) * (1 - smooth(0.75, 0.98, distance))
    return to_image(grey(0.92 + 0.08 * fray), alpha * 0.9)


def main():
    TARGET.mkdir(parents=True, exist_ok=True)
    for paint in (water, ice, steam):
        (TARGET / f"{paint.__name__}.tga").write_bytes(tga.run_length(paint()))


if __name__ == "__main__":
    main()
