#!/usr/bin/env python3
"""Makes the built-in images that stand in for missing ones: a drop for sprites, a tile for
textures, and a tile that says that none was named. Their files have fixed sizes: a number in
each picture is turned until it codes a little shorter, and packets are cut to fill up."""
import pathlib

import numpy as np
from PIL import Image

import tga
from painting import blur, colour, fill, grid, mix, noise, shaded, smooth, to_image

HERE = pathlib.Path(__file__).parent


def drop(softness):
    """A round white drop; the softer its edge, the longer it codes."""
    y, x = grid(64)
    d = np.hypot(x - 32, y - 32)
    alpha = 1.0 - smooth(30.0 - softness, 30.0, d)
    return to_image(np.ones((64, 64, 3)), alpha)


def grain(size, seed, share):
    """Speckles on that share of the picture, 0 elsewhere; flat parts code short."""
    where = noise(size, seed, 1.1) < np.quantile(noise(size, seed, 1.1), share)
    return np.where(where, np.random.default_rng(seed + 1).normal(0.0, 0.022, (size, size)), 0.0)


def quantised(picture):
    """Few levels, so that flat parts are exactly flat."""
    return np.round(picture * 48.0) / 48.0


def tile(share):
    """Two by two slabs of pale stone with a drop cut into every second one."""
    y, x = grid(128)
    u, v = x % 64, y % 64
    rim = np.minimum(np.minimum(u, 64 - u), np.minimum(v, 64 - v))
    odd = ((x // 64).astype(int) + (y // 64).astype(int)) % 2 == 1
    picture = np.where(odd[..., None], fill(128, "8e8a7d"), fill(128, "a39d8c"))
    bright = np.where((rim < 4) & (np.minimum(u, v) < 4), 1.16, 1.0)
    bright = np.where((rim < 4) & (np.maximum(u, v) > 60), 0.78, bright)
    picture = shaded(picture, np.where(rim < 1.5, 0.5, bright))
    shape = drop_shape(u, v, 32, 35, 13)
    cut = odd & shape
    lip = np.roll(np.roll(cut, 2, 0), 2, 1)
    picture = np.where(cut[..., None], colour("4d7f8b"), picture)
    picture = np.where((cut & ~lip)[..., None], colour("35545c"), picture)
    return to_image(np.where(cut[..., None], picture, quantised(picture) +
                             grain(128, 3, share)[..., None]))


def drop_shape(x, y, cx, cy, radius):
    """A drop with its tip up, `radius` wide on each side."""
    body = np.hypot(x - cx, y - cy) < radius
    up = (cy - y) / (2.1 * radius)
    neck = (up > 0) & (np.abs(x - cx) < radius * (1.0 - np.clip(up, 0, 1)) ** 0.9)
    return body | neck


def question(share):
    """Dark slabs, crossed by stripes, with a question mark in each."""
    y, x = grid(128)
    stripe = ((x + y) % 32) < 16
    picture = np.where(stripe[..., None], fill(128, "3a4a50"), fill(128, "2c383d"))
    u, v = x % 64, y % 64
    ring = np.hypot(u - 32, v - 23)
    hook = (np.abs(ring - 10) < 3.5) & ~((u < 32) & (v > 23))
    stem = (np.abs(u - 32) < 3.5) & (v > 31) & (v < 43)
    dot = np.hypot(u - 32, v - 50) < 4.2
    mark = hook | stem | dot
    shadow = np.roll(np.roll(mark, 2, 0), 2, 1)
    picture = np.where(shadow[..., None], colour("1c2529"), picture)
    picture = np.where(mark[..., None], colour("d8a34a"), picture)
    speckle = np.where(mark, 0.0, grain(128, 8, share))
    return to_image(picture + speckle[..., None])


def fit(paint, low, high, size):
    """The picture with the greatest number for which its file isn't too long."""
    for _ in range(30):
        middle = (low + high) / 2.0
        if len(tga.run_length(paint(middle))) <= size:
            low = middle
        else:
            high = middle
    return tga.run_length(paint(low), size)


def main():
    for name, paint, low, high, size in (("DEFAULT_SPRITE", drop, 1.0, 30.0, 6930),
                                         ("DEFAULT_TEXTURE", tile, 0.0, 1.0, 27887),
                                         ("NO_TEXTURE", question, 0.0, 1.0, 28008)):
        data = fit(paint, low, high, size)
        assert len(data) == size
        (HERE / "embedded" / f"{name}.tga").write_bytes(data)


if __name__ == "__main__":
    main()
