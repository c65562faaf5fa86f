"""Surfaces of single places: the boiler house, the ice store, the filters, the sea; and what
marks things: worn edges, hazard stripes, lattices. Each a function from nothing to a picture
that tiles, with or without alpha."""
import numpy as np

from painting import (blur, colour, fill, grid, hollows, light, mix, noise, shaded, smooth,
                      wrapped)
from surfaces import bricks, drips, plate, ring_lines, stain


def with_alpha(rgb, alpha):
    return np.dstack([np.clip(rgb, 0, 1), alpha])


def copper():
    """Warm riveted plates: what moves."""
    base = plate(301, "8f5b36", "cf9462", 0.1)
    green = smooth(0.62, 0.8, noise(256, 305, 1.6)) * 0.5 + drips(256, 306) * 0.12
    return mix(base, base * 0.5 + colour("5f8f80") * 0.5, green)


def brass():
    """Brushed plates with a fine seam: the goal and openers."""
    base = plate(311, "94743a", "e0bf72", 0.0)
    return base * 0.94 + 0.04


def frost():
    """Masonry under ice: pale, with a glaze that fills the joints."""
    size = 256
    depth, tint = bricks(size, 64, (70, 110), 1.8, 321, 1.6)
    glaze = noise(size, 324, 1.5)
    height = smooth(0, 7, depth) * 4 + (glaze - 0.5) * 5
    base = mix(colour("98a8ab"), colour("c8d5d6"), 0.35 * tint + 0.65 * glaze)
    base = mix(base, colour("7f969e"), blur((depth <= 0.6).astype(float), 1.2) * 0.8)
    sparkle = smooth(0.74, 0.8, noise(size, 325, 0.4))
    crack = smooth(0.03, 0.0, np.abs(noise(size, 326, 1.4, low=2) - 0.5))
    base = mix(base, colour("f7fdff"), np.clip(sparkle * 0.9 + crack * 0.55, 0, 1))
    return shaded(base, light(blur(height, 0.6), 0.5), hollows(height, 5, 0.05))


def hazard():
    """Slanting stripes of rust and cream, worn down to the iron."""
    size = 64
    y, x = grid(size)
    band = (x + y) % 32
    stripe = smooth(0.5, 2.0, band) * (1 - smooth(16.0, 17.5, band))
    base = mix(colour("d8c48f"), colour("8f3a22"), stripe)
    worn = smooth(0.6, 0.72, noise(size, 331, 0.9, low=2))
    base = mix(base, colour("4a3a30"), worn * 0.8)
    height = noise(size, 332, 1.0, low=3) * 3 - worn * 1.2
    return shaded(base, light(blur(height, 0.5), 0.5))


def grate():
    """An iron lattice, open between its bars."""
    size = 64
    y, x = grid(size)
    one = np.abs(wrapped((x + y), 16)) / np.sqrt(2)
    two = np.abs(wrapped((x - y), 16)) / np.sqrt(2)
    near = np.minimum(one, two)
    alpha = 1 - smooth(1.9, 2.6, near)
    height = np.sqrt(np.clip(1 - (near / 2.6) ** 2, 0, 1)) * 3
    base = mix(colour("3a3a38"), colour("7a5a44"), noise(size, 341, 1.1, low=2))
    return with_alpha(shaded(base, light(height, 0.7)), alpha)


def brickwall():
    """Sooty bricks, far behind, in the light of fires."""
    size = 512
    depth, tint = bricks(size, 32, (52, 76), 1.4, 351, 1.6)
    height = smooth(0, 5, depth) * 4 + (noise(size, 354, 1.1, low=4) - 0.5) * 4
    base = mix(colour("2c211d"), colour("3b2a23"), tint)
    base = mix(base, colour("1d1716"), blur((depth <= 0.4).astype(float), 0.7) * 0.8)
    base = stain(base, colour("141213"), smooth(0.45, 0.8, noise(size, 355, 1.9)), 0.8)
    base = base * (0.84 + 0.3 * noise(size, 356, 1.9))[..., None]
    return shaded(base, light(blur(height, 0.8), 0.2), hollows(height, 5, 0.03))


def icewall():
    """Great dim blocks under frost, far behind."""
    size = 512
    depth, tint = bricks(size, 64, (90, 150), 1.6, 361, 1.6)
    height = smooth(0, 6, depth) * 4 + (noise(size, 364, 1.3, low=4) - 0.5) * 5
    base = mix(colour("26353f"), colour("34454f"), tint)
    base = mix(base, colour("1b2831"), blur((depth <= 0.5).astype(float), 0.9) * 0.8)
    rime = smooth(0.56, 0.8, noise(size, 365, 1.5)) * 0.5
    fern = smooth(0.035, 0.0, np.abs(noise(size, 366, 1.5, low=3) - 0.5)) * rime
    base = mix(base, colour("5c727c"), rime * 0.5 + fern * 0.5)
    return shaded(base, light(blur(height, 0.8), 0.22), hollows(height, 5, 0.03))


def planking():
    """Dark upright boards, far behind."""
    size = 256
    y, x = grid(size)
    board = (x // 64).astype(int)
    v = x % 64
    rng = np.random.default_rng(371)
    tone, grain = np.zeros((size, size)), np.zeros((size, size))
    for i in range(4):
        lines = ring_lines(size, 372 + 3 * i, np.transpose(v), rng).T
        grain = np.where(board == i, lines, grain)
        tone = np.where(board == i, rng.random(), tone)
    joint = np.minimum(v, 64 - v)
    base = mix(colour("262421"), colour("3b352c"), np.clip(tone * 0.5 + grain * 0.4, 0, 1))
    base = mix(base, colour("10171a"), (1 - smooth(0.8, 2.6, joint)) * 0.9)
    base = mix(base, colour("1d2c2d"), smooth(0.5, 0.8, noise(size, 390, 1.7)) * 0.5)
    height = smooth(0, 5, joint) * 4 + grain
    return shaded(base, light(blur(height, 0.6), 0.25), hollows(height, 5, 0.04))


def sandwall():
    """Dim sandstone in beds, far behind."""
    size = 512
    y, _ = grid(size)
    warp = (noise(size, 401, 2.4) - 0.5) * 60
    beds = 0.5 + 0.5 * np.sin(2 * np.pi * (y + warp) / 64)
    beds = 0.6 * beds + 0.4 * (0.5 + 0.5 * np.sin(2 * np.pi * (y + warp * 1.4) / (512 / 21)))
    grain = noise(size, 402, 0.9, (2.0, 1.0), low=2)
    base = mix(colour("2f2c26"), colour("474034"), 0.7 * beds + 0.3 * grain)
    base = stain(base, colour("1f2f2f"), smooth(0.5, 0.8, noise(size, 403, 1.8)), 0.6)
    height = beds * 5 + (noise(size, 404, 1.2, low=4) - 0.5) * 4
    return shaded(base, light(blur(height, 0.8), 0.24), hollows(height, 5, 0.03))


def sky():
    """Evening: the horizon lies at y = 512, 1536, ... where a sea should begin; night is
    halfway between. 512 wide, 1024 high."""
    size = 512
    y, _ = grid(size)
    low = 0.5 - 0.5 * np.cos(2 * np.pi * y / size)
    base = mix(colour("141f33"), colour("3a3f58"), smooth(0.0, 0.55, low))
    base = mix(base, colour("8c5f5c"), smooth(0.5, 0.88, low))
    base = mix(base, colour("e2a566"), smooth(0.84, 1.0, low))
    cloud = smooth(0.5, 0.72, noise(size, 411, 1.5, (3.0, 0.8), low=1))
    base = mix(base, base * 0.55 + colour("6d4450") * 0.3, cloud * 0.7)
    lit = np.clip(cloud - np.roll(cloud, -5, 0), 0, 1)
    base = mix(base, colour("f2c48a"), lit * low * 0.9)
    return np.repeat(base, 2, 0)


def sea():
    """Evening water far off: dull, so that it is not taken for the player's own."""
    size = 256
    swell = noise(size, 421, 1.2, (0.6, 4.0)[::-1], low=1)
    height = swell * 22
    base = mix(colour("1a2c33"), colour("31494c"), swell)
    glitter = smooth(0.66, 0.8, noise(size, 422, 0.9, (5.0, 0.8), low=2))
    base = mix(base, colour("c98f62"), glitter * 0.35)
    return shaded(base, light(height, 0.18))


def shade():
    """Darkness, half open."""
    size = 64
    soot = noise(size, 431, 1.6)
    return with_alpha(fill(size, "060b0e"), 0.66 + 0.12 * soot)


def tube(size, along, across):
    """Copper tubes gone green, shaded round, that repeat every 32 units across; a flange now
    and then. Lit as if from above left."""
    v = (across % 32 - 16) / 16
    patina = smooth(0.4, 0.62, noise(size, 441, 1.4))
    base = mix(mix(colour("573f2e"), colour("8a6647"), noise(size, 442, 0.8)),
               mix(colour("34544c"), colour("587a6c"), noise(size, 443, 1.0)), patina * 0.9)
    flange = np.abs(wrapped(along - 64, 128))
    half = np.where(flange < 7, 1.0, 0.82)
    round_ = np.sqrt(np.clip(1 - (v / half) ** 2, 0, 1))
    tone = 0.30 + 0.62 * round_ - 0.34 * v / half
    tone = tone + 0.35 * np.exp(-((v / half + 0.42) / 0.13) ** 2)
    tone = np.where(flange < 7, tone * 1.12 + 0.05, tone)
    tone = tone * (1 - 0.4 * ((flange > 6.5) & (flange < 9)))
    alpha = 1 - smooth(0.97, 1.0, np.abs(v) / half)
    return with_alpha(base * tone[..., None], alpha)


def pipe_up():
    y, x = grid(128)
    return tube(128, y, x)[:, :32]


def pipe_across():
    y, x = grid(128)
    return tube(128, x, y)[:32]


def edge(low, high, seed):
    """Bare, worn, bright material, for the upper edge of a solid."""
    size = 64
    wear = noise(size, seed, 1.0, low=3)
    base = mix(colour(low), colour(high), wear)
    return with_alpha(base, 0.72 + 0.28 * smooth(0.3, 0.5, noise(size, seed + 1, 0.9, low=3)))


FILES = {name: paint for name, paint in (
    ("copper", copper), ("brass", brass), ("frost", frost), ("hazard", hazard), ("grate", grate),
    ("brickwall", brickwall), ("icewall", icewall), ("planking", planking),
    ("sandwall", sandwall), ("sky", sky), ("sea", sea), ("shade", shade), ("pipeUp", pipe_up),
    ("pipeAcross", pipe_across), ("edge_stone", lambda: edge("cdbf9e", "f3e8cb", 451)),
    ("edge_metal", lambda: edge("9ba7a8", "d3dcdb", 453)),
    ("edge_wood", lambda: edge("c79f66", "eccb95", 455)),
    ("edge_cloth", lambda: edge("d9c69a", "f6ead0", 457)),
    ("edge_sand", lambda: edge("dcc493", "f7e6bf", 459)))}
