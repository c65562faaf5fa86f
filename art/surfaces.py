"""The level's surfaces, each a function from nothing to a picture that tiles. All share one
place: a cistern in a mountain, with warm worn stone, rust, verdigris and shadows of deep teal."""
import numpy as np

from painting import (blur, cells, colour, fill, grid, hollows, light, mix, noise, shaded, smooth,
                      wrapped)

SHADOW = colour("12262c")


def bricks(size, height, widths, gap, seed, wobble=2.0):
    """Courses of blocks: how deep inside of its block each pixel lies (0 in the joints), and
    each block's own random number."""
    rng = np.random.default_rng(seed)
    y, x = grid(size)
    x = x + (noise(size, seed + 1, 1.3, low=4) - 0.5) * 2 * wobble
    y = y + (noise(size, seed + 2, 1.3, low=4) - 0.5) * 2 * wobble
    depth = np.zeros((size, size))
    tint = np.zeros((size, size))
    for course in range(size // height):
        edges = cut(size, widths, rng)
        shift = rng.integers(0, size)
        v = (y - course * height) % size
        inside = v < height
        u = (x - shift) % size
        for left, right in zip(edges[:-1], edges[1:]):
            here = inside & (u >= left) & (u < right)
            du = np.minimum(u - left, right - u)
            dv = np.minimum(v, height - v)
            corner = 7.0 - np.hypot(np.maximum(7.0 - du, 0), np.maximum(7.0 - dv, 0))
            depth = np.where(here, np.where((du < 7) & (dv < 7), corner, np.minimum(du, dv)), depth)
            tint = np.where(here, rng.random(), tint)
    return np.maximum(depth - gap, 0.0), tint


def cut(size, widths, rng):
    """Joints of one course, blocks about as wide as the two widths allow."""
    count = round(size / (sum(widths) / 2.0))
    steps = rng.uniform(*widths, count)
    return np.concatenate([[0.0], np.cumsum(steps) / steps.sum() * size])


def facets(size, count, seed, steep=1.0):
    """A surface of tilted planes, as rock breaks, and the width from each pixel to the cracks
    between them."""
    rng = np.random.default_rng(seed)
    points = rng.random((count, 2)) * size
    slope = rng.normal(0.0, 0.3 * steep, (count, 2))
    bend = size / np.sqrt(count)
    base = rng.normal(0.0, 0.13 * bend, count)
    y, x = grid(size)
    x = x + (noise(size, seed + 1, 2.0, low=2) - 0.5) * bend * 1.3
    y = y + (noise(size, seed + 2, 2.0, low=2) - 0.5) * bend * 1.3
    first = np.full((size, size), 1e9)
    second = np.full((size, size), 1e9)
    height = np.zeros((size, size))
    for (px, py), (sx, sy), b in zip(points, slope, base):
        dx, dy = wrapped(x - px, size), wrapped(y - py, size)
        d = np.hypot(dx * 0.85, dy * 1.15)
        height = np.where(d < first, b + sx * dx + sy * dy, height)
        second = np.where(d < first, first, np.minimum(second, d))
        first = np.minimum(first, d)
    return height, second - first


def stain(picture, tone, mask, amount):
    return mix(picture, picture * 0.45 + tone * 0.55, mask * amount)


def drips(size, seed, stretch=9.0):
    """Streaks that run down."""
    return smooth(0.55, 0.75, noise(size, seed, 1.1, (1.0, stretch), low=1))


def masonry():
    size = 512
    depth, tint = bricks(size, 64, (84, 150), 2.2, 11)
    rough = noise(size, 14, 1.25, low=6)
    height = smooth(0, 7, depth) * 7 + (rough - 0.5) * 3.6 + tint * 1.6
    base = mix(colour("857660"), colour("b3a384"), tint)
    base = mix(base, colour("8d8d7c"), smooth(0.55, 0.95, (tint * 7.3) % 1.0) * 0.6)
    base = base * (0.86 + 0.28 * noise(size, 15, 1.5))[..., None]
    joint = depth <= 0.6
    base = mix(base, colour("4a463a"), blur(joint.astype(float), 0.8))
    base = stain(base, colour("5b7a63"), smooth(0.6, 0.8, noise(size, 16, 1.6)), 0.5)
    base = stain(base, colour("3b3a30"), drips(size, 17), 0.28)
    return shaded(base, light(blur(height, 0.6), 0.42), hollows(height, 6, 0.055))


def rock():
    size = 512
    big, crack = facets(size, 44, 21, 1.2)
    small, chip = facets(size, 300, 24, 1.5)
    height = blur(big, 1.5) * 0.8 + blur(small, 1.0) * 0.8 + (noise(size, 27, 1.7, low=6) - 0.5) * 9
    height -= 5 * smooth(5, 0, crack) + 1.2 * smooth(2.5, 0, chip)
    base = mix(colour("665b4c"), colour("94866c"), smooth(0.25, 0.75, noise(size, 28, 1.7)))
    strata = noise(size, 29, 1.3, (2.6, 0.35), low=1)
    base = mix(base, colour("57564f"), smooth(0.5, 0.75, strata) * 0.6)
    base = stain(base, colour("4f6b5a"), smooth(0.6, 0.8, noise(size, 30, 1.6)), 0.4)
    base = mix(base, colour("2c2c28"), smooth(3.5, 0, crack) * 0.6)
    grain = 0.93 + 0.14 * noise(size, 31, 0.8)
    return shaded(base, light(height, 0.27), hollows(height, 10, 0.04), grain)


def dark():
    size = 512
    big, crack = facets(size, 40, 41, 1.2)
    small, _ = facets(size, 200, 44, 1.2)
    height = blur(big, 2) * 0.8 + blur(small, 1.5) * 0.4 - 4 * smooth(5, 0, crack)
    base = mix(colour("10191d"), colour("1d2a2e"), noise(size, 47, 1.7))
    return shaded(base, light(height, 0.3), hollows(height, 9, 0.03))


def wood():
    size = 256
    y, x = grid(size)
    board = (y // 64).astype(int)
    v = y % 64
    rng = np.random.default_rng(51)
    tone, grain = np.zeros((size, size)), np.zeros((size, size))
    joint = np.minimum(v, 64 - v)
    for i in range(4):
        shift = int(rng.integers(20, 236))
        end = np.abs(wrapped(x - shift, size))
        here = board == i
        joint = np.where(here, np.minimum(joint, end + 0.6), joint)
        tone = np.where(here, rng.random(), tone)
        grain = np.where(here, ring_lines(size, 52 + 3 * i, v, rng), grain)
    base = mix(colour("5f4932"), colour("a3835a"), np.clip(tone * 0.7 + grain * 0.5, 0, 1))
    base = mix(base, colour("8a8168"), 0.28 * noise(size, 70, 1.4, (3.0, 0.6)))
    base = mix(base, colour("24190f"), (1 - smooth(0.6, 2.2, joint)) * 0.9)
    height = smooth(0, 5, joint) * 5 + grain * 1.3
    return shaded(base, light(blur(height, 0.5), 0.5), hollows(height, 5, 0.06))


def ring_lines(size, seed, v, rng):
    """Grain along a board, drawn aside around a knot or two."""
    y, x = grid(size)
    flow = v + (noise(size, seed, 2.0, (3.0, 1.0)) - 0.5) * 34
    dent = np.zeros((size, size))
    for _ in range(int(rng.integers(1, 3))):
        kx, kv = rng.uniform(0, size), rng.uniform(18, 46)
        near = np.exp(-(wrapped(x - kx, size) / 20) ** 2 - ((v - kv) / 9) ** 2)
        flow = flow + near * 13 * np.sign(v - kv + 0.01)
        dent = np.maximum(dent, np.exp(-(wrapped(x - kx, size) / 6) ** 2 - ((v - kv) / 4) ** 2))
    fine = noise(size, seed + 1, 0.8, (14.0, 0.8), low=1)
    lines = 0.5 + 0.5 * np.sin(flow * 1.05)
    return np.clip(0.4 * lines + 0.95 * fine - 0.2 - dent * 0.9, 0, 1)


def beam():
    """Old dark timber, for what stands behind the water."""
    picture = np.transpose(wood(), (1, 0, 2))[:, ::-1]
    grey = picture.mean(2, keepdims=True)
    return mix(picture * 0.35 + grey * 0.2, SHADOW, 0.30)


def rivets(size, places, radius):
    """A height field of domes, and how far each pixel is from the nearest."""
    y, x = grid(size)
    near = np.full((size, size), 1e9)
    for px, py in places:
        near = np.minimum(near, np.hypot(wrapped(x - px, size), wrapped(y - py, size)))
    dome = np.sqrt(np.maximum(1 - (near / radius) ** 2, 0.0)) * radius
    return dome, near


def plate(seed, first, second, rust):
    size = 256
    y, x = grid(size)
    u, v = x % 128, (y + 64 * (x // 128)) % 128
    edge = np.minimum(np.minimum(u, 128 - u), np.minimum(v, 128 - v))
    places = []
    for column in range(2):
        for row in range(2):
            left, top = column * 128, row * 128 - 64 * column
            for step in range(5):
                at = 13 + step * 25.5
                places += [(left + at, top + 13), (left + at, top + 115)]
                if 0 < step < 4:
                    places += [(left + 13, top + at), (left + 115, top + at)]
    dome, near = rivets(size, places, 4.6)
    brushed = noise(size, seed, 0.6, (1.0, 6.0))
    height = smooth(0, 4, edge) * 4 + dome * 1.0 + (noise(size, seed + 1, 1.3) - 0.5) * 5
    base = mix(colour(first), colour(second), 0.25 + 0.5 * brushed)
    below, _ = rivets(size, [(px, py + 5) for px, py in places], 7.5)
    runs = blur(below / 7.5, 2.5) + 0.5 * drips(size, seed + 2)
    worn = smooth(0.35, 0.75, runs * 0.7 + noise(size, seed + 3, 1.5) * rust)
    base = mix(base, mix(colour("55382a"), colour("8d5f3e"), noise(size, seed + 4, 0.9)), worn * 0.8)
    base = mix(base, colour("1a2124"), (1 - smooth(0.8, 2.6, edge)) * 0.9)
    base = base * (1 - 0.35 * ((near > 4.2) & (near < 6.4)))[..., None]
    return shaded(base, light(blur(height, 0.6), 0.5), hollows(height, 5, 0.05))


def metal():
    return plate(81, "646d70", "99a19f", 0.5)


def rust():
    return plate(91, "5c4a3e", "8a6a4e", 1.0)


def pipe():
    """Copper gone green, in drawn lengths with a collar now and then."""
    size = 256
    y, x = grid(size)
    brushed = noise(size, 101, 0.7, (1.0, 8.0))
    patina = smooth(0.34, 0.6, noise(size, 102, 1.5) * 0.75 + drips(size, 103, 6) * 0.3)
    copper = mix(colour("68503c"), colour("9c7858"), brushed)
    green = mix(colour("456b60"), colour("7f9f8c"), noise(size, 104, 1.0))
    base = mix(copper, green, patina * 0.85)
    collar = np.minimum(np.abs(wrapped(y - 64, 128)), np.abs(wrapped(x - 64, 128)) + 1e3)
    height = smooth(9, 6, collar) * 4 + patina * 1.2 + (noise(size, 105, 1.2) - 0.5) * 3
    base = base * (1 - 0.3 * ((collar > 8) & (collar < 11)))[..., None]
    return shaded(base, light(blur(height, 0.7), 0.5), hollows(height, 4, 0.05))


def weave(size, period):
    """Threads over and under: height, and which way the upper thread runs."""
    y, x = grid(size)
    a = np.abs(np.sin(np.pi * x / period))
    b = np.abs(np.sin(np.pi * y / period))
    over = ((x // period).astype(int) + (y // period).astype(int)) % 2 == 0
    return np.where(over, a * 0.7 + 0.3 * (1 - b), b * 0.7 + 0.3 * (1 - a)), over


def cloth():
    size = 256
    y, x = grid(size)
    height, over = weave(size, 4)
    bend = (noise(size, 111, 2.6) - 0.5) * 14
    stripe = smooth(-0.12, 0.12, np.sin(2 * np.pi * (x + bend) / 64))
    base = mix(colour("c8b891"), colour("8a4f42"), stripe)
    thread = noise(size, 112, 0.4, (0.1, 1.5)) * over + noise(size, 113, 0.4, (1.5, 0.1)) * ~over
    base = base * (0.84 + 0.26 * thread)[..., None]
    folds = noise(size, 114, 2.3, (0.7, 2.2), low=1)
    base = stain(base, colour("5d5138"), smooth(0.58, 0.85, noise(size, 115, 1.6)), 0.55)
    return shaded(base, light(height, 0.55), light(folds * 30, 0.4), 0.8 + 0.4 * folds)


def sack():
    """Coarse undyed sackcloth."""
    size = 256
    height, over = weave(size, 8)
    thread = noise(size, 122, 0.5, (0.1, 1.4)) * over + noise(size, 123, 0.5, (1.4, 0.1)) * ~over
    base = mix(colour("7d6844"), colour("b89b68"), thread)
    base = stain(base, colour("4a3c25"), smooth(0.55, 0.85, noise(size, 124, 1.6)), 0.5)
    return shaded(base, light(blur(height, 0.6) * 3, 0.45), 0.72 + 0.34 * height)


def sand():
    size = 256
    y, x = grid(size)
    warp = (noise(size, 131, 2.6) - 0.5) * 70
    ripple = np.sin(2 * np.pi * (y + warp) / 32.0 + 0.9 * np.sin(2 * np.pi * x / 256.0))
    ripple = 0.5 + 0.5 * ripple
    grains = np.random.default_rng(132).normal(0, 1, (size, size))
    height = ripple ** 1.5 * 4.0 + noise(size, 133, 1.0) * 1.6
    base = mix(colour("a3855a"), colour("cbb085"), 0.35 * ripple + 0.65 * noise(size, 134, 1.3))
    base = base * (1 + 0.03 * grains + 0.04 * blur(grains, 0.7) / 0.4)[..., None]
    pebble, _, number = cells(size, 160, 135)
    spot = (pebble < 1.6 + (number % 5) * 0.35) & (number % 3 == 0)
    base = mix(base, colour("8a6c44"), blur(spot.astype(float), 0.5) * 0.7)
    return shaded(base, light(height, 0.34))


def wall():
    """Dim bricks far behind everything."""
    size = 512
    depth, tint = bricks(size, 32, (52, 76), 1.4, 141, 1.6)
    height = smooth(0, 5, depth) * 4 + (noise(size, 144, 1.1, low=4) - 0.5) * 4
    base = mix(colour("222f34"), colour("303d3f"), tint)
    base = mix(base, colour("3a3a34"), smooth(0.6, 1.0, (tint * 5.7) % 1.0) * 0.5)
    base = mix(base, colour("172327"), blur((depth <= 0.4).astype(float), 0.7) * 0.8)
    base = stain(base, colour("1f3a38"), smooth(0.5, 0.8, noise(size, 145, 1.8)), 0.6)
    base = base * (0.82 + 0.32 * noise(size, 146, 1.9))[..., None]
    return shaded(base, light(blur(height, 0.8), 0.2), hollows(height, 5, 0.03))


def plaster():
    """Old dim plaster with cracks, bricks showing where it fell."""
    size = 512
    first, second, _ = cells(size, 30, 151)
    bend = noise(size, 152, 1.2, low=3)
    crack = smooth(3.2, 0.6, (second - first) + (bend - 0.5) * 16 + 2.0)
    crack = crack * smooth(0.45, 0.6, noise(size, 153, 1.8))
    gone = smooth(0.655, 0.675, noise(size, 154, 1.5))
    depth, tint = bricks(size, 32, (52, 76), 1.4, 155, 1.6)
    brick = mix(colour("2c2f2e"), colour("3d3935"), tint)
    brick = mix(brick, colour("1c2629"), blur((depth <= 0.4).astype(float), 0.7))
    skin = mix(colour("303e41"), colour("424e4c"), noise(size, 156, 1.6))
    skin = skin * (0.95 + 0.1 * noise(size, 157, 0.6))[..., None]
    base = mix(mix(skin, colour("1c2a2e"), crack * 0.8), brick, gone)
    base = stain(base, colour("21403f"), drips(size, 158), 0.35)
    height = (1 - gone) * 5 - crack * 2 + gone * smooth(0, 5, depth) * 2
    return shaded(base, light(blur(height, 0.8), 0.3), hollows(height, 5, 0.03))


def iron():
    size = 256
    height = noise(size, 161, 1.2, low=8) * 12
    base = mix(colour("1a1b1c"), colour("33302c"), noise(size, 162, 1.4))
    base = mix(base, colour("4a2d1c"), smooth(0.55, 0.8, noise(size, 163, 1.2)) * 0.6)
    return shaded(base, light(blur(height, 1.0), 0.5))


def leaf_layer(size, count, seed, length):
    """Leaves strewn over the picture: height and tint, the later ones on top."""
    rng = np.random.default_rng(seed)
    y, x = grid(size)
    height, tint = np.zeros((size, size)), np.zeros((size, size))
    for i in range(count):
        px, py, turn = rng.uniform(0, size), rng.uniform(0, size), rng.uniform(0.2, 2.9)
        long_side = length * rng.uniform(0.7, 1.3)
        dx, dy = wrapped(x - px, size), wrapped(y - py, size)
        along = dx * np.cos(turn) + dy * np.sin(turn)
        across = -dx * np.sin(turn) + dy * np.cos(turn)
        half = long_side * 0.42 * np.clip(1 - (along / long_side) ** 2, 0, 1)
        inside = np.abs(across) < half
        bulge = 1 - np.abs(across) / np.maximum(half, 0.1)
        top = i / count * 9 + np.where(bulge > 0, bulge, 0) * 3 - 1.2 * (np.abs(across) < 0.8)
        height = np.where(inside, top, height)
        tint = np.where(inside, 0.25 * rng.random() + 0.75 * i / count, tint)
    return height, tint


def moss():
    size = 256
    height, tint = leaf_layer(size, 900, 171, 11)
    base = mix(colour("141f16"), colour("55683a"), tint)
    base = mix(base, colour("6d6a38"), smooth(0.6, 0.8, noise(size, 172, 1.5)) * 0.4 * tint)
    return shaded(base, light(blur(height, 0.5), 0.32), hollows(height, 6, 0.07))


def stone():
    """Worn flagstones, smoother and paler than the masonry."""
    size = 256
    depth, tint = bricks(size, 64, (70, 110), 1.6, 181, 1.2)
    rough = noise(size, 184, 1.4, low=3)
    height = smooth(0, 4, depth) * 4 + (rough - 0.5) * 3.5
    base = mix(colour("a59a84"), colour("c6b899"), tint)
    base = base * (0.88 + 0.24 * noise(size, 185, 1.2))[..., None]
    pits = smooth(0.68, 0.74, noise(size, 186, 0.5))
    base = mix(base, colour("6a6352"), pits * 0.5)
    base = mix(base, colour("57513f"), blur((depth <= 0.5).astype(float), 0.7) * 0.9)
    base = stain(base, colour("6f8672"), smooth(0.6, 0.85, noise(size, 187, 1.6)), 0.4)
    return shaded(base, light(blur(height, 0.6), 0.4), hollows(height, 5, 0.05))


def brick():
    size = 256
    depth, tint = bricks(size, 32, (52, 72), 1.8, 191, 1.4)
    height = smooth(0, 5, depth) * 5 + (noise(size, 194, 0.9, low=4) - 0.5) * 5
    base = mix(colour("644a3f"), colour("94705a"), tint)
    base = mix(base, colour("54423c"), smooth(0.6, 1.0, (tint * 5.3) % 1.0) * 0.6)
    base = base * (0.86 + 0.26 * noise(size, 195, 1.1))[..., None]
    base = mix(base, colour("8b8069"), blur((depth <= 0.5).astype(float), 0.7) * 0.75)
    base = stain(base, colour("3c4a40"), drips(size, 196), 0.4)
    return shaded(base, light(blur(height, 0.6), 0.42), hollows(height, 5, 0.05))


def tile():
    """Small glazed tiles, green and cream, some chipped."""
    size = 256
    y, x = grid(size)
    u, v = x % 32, y % 32
    number = (y // 32 * 8 + x // 32).astype(int)
    tint = np.random.default_rng(201).random(64)[number]
    edge = np.minimum(np.minimum(u, 32 - u), np.minimum(v, 32 - v))
    edge = edge + (noise(size, 202, 1.0, low=8) - 0.5) * 2.2
    odd = (number // 8 + number) % 2 == 1
    base = np.where(odd[..., None], mix(colour("4f675f"), colour("6a8376"), tint),
                    mix(colour("a99f83"), colour("c4b997"), tint))
    chipped = smooth(0.72, 0.75, noise(size, 203, 1.2, low=4))
    base = mix(base, colour("8d7a5c"), chipped)
    base = mix(base, colour("4b4536"), 1 - smooth(1.2, 2.4, edge))
    height = smooth(1, 6, edge) * 4 * (1 - chipped * 0.6)
    gloss = np.exp(-((u - 9) ** 2 + (v - 8) ** 2) / 22) * 0.16 * (1 - chipped)
    picture = shaded(base, light(blur(height, 0.7), 0.45), 0.9 + 0.2 * noise(size, 204, 1.6))
    return picture + gloss[..., None]


ALL = (masonry, rock, dark, wood, beam, metal, rust, pipe, cloth, sack, sand, wall, plaster, iron,
       moss, stone, brick, tile)
