#!/usr/bin/env python3
"""Paints the machines, marks and lights of the levels, as make_objects.py does; names on the
command line make only these."""
import sys

import numpy as np

from make_objects import (BRASS, BRASS_DARK, CREAM, INK, IRON, RUST, RUST_DARK, TARGET, Canvas)
from painting import colour, mix, noise, smooth, to_image

COPPER, COPPER_DARK = colour("c08455"), colour("6b4329")
WATER, WATER_LIGHT, WATER_DEEP = colour("22a6d6"), colour("aeeefc"), colour("0c5f8c")
WOOD, WOOD_DARK = colour("8d6b45"), colour("4a3722")
TURN = 2 * np.pi


def bulge(distance, width, height):
    """A rounded ridge where the distance from its middle is below `width`."""
    return np.sqrt(np.clip(1 - (distance / width) ** 2, 0, 1)) * height


def block(c, left, top, right, bottom, corner=0.0):
    """Distance to a rectangle, negative inside."""
    dx = np.abs(c.x - (left + right) / 2) - (right - left) / 2 + corner
    dy = np.abs(c.y - (top + bottom) / 2) - (bottom - top) / 2 + corner
    return np.hypot(np.maximum(dx, 0), np.maximum(dy, 0)) + np.minimum(np.maximum(dx, dy), 0) - corner


def middle(c, width, height):
    """The crop that keeps the middle part."""
    return ((c.size - width) // 2, (c.size - height) // 2, (c.size + width) // 2,
            (c.size + height) // 2)


def ray(c, angle, width, inner, outer):
    """Distance to a bar from the middle outwards."""
    along = c.x * np.cos(angle) + c.y * np.sin(angle)
    across = -c.x * np.sin(angle) + c.y * np.cos(angle)
    return np.maximum(np.abs(across) - width, np.maximum(inner - along, along - outer))


# -- what turns -----------------------------------------------------------------------------------

def toothed(size, teeth, spokes, turn, seed):
    """A gear of dim copper with an iron hub: it stands behind the water."""
    c = Canvas(size)
    r = size / 2 - 3
    depth, band = r * 0.13, r * 0.2
    angle = np.arctan2(c.y, c.x) - turn
    wave = np.abs((angle * teeth / TURN) % 1 - 0.5) * 2
    outline = r - depth * smooth(0.36, 0.62, wave)
    metal = mix(c.worn(COPPER, COPPER_DARK, seed), colour("1b3a43"), 0.18) * 0.74
    near = np.abs((angle + TURN / spokes / 2) % (TURN / spokes) - TURN / spokes / 2) * c.radius
    width = r * 0.09
    c.cover(c.soft(np.maximum(near - width, c.radius - r * 0.75)), metal, bulge(near, width, 3))
    ring = np.maximum(c.radius - outline, r - depth - band - c.radius)
    c.cover(c.soft(ring), metal, 4 + np.clip(-ring, 0, 3))
    for i in range(spokes):
        a = turn + TURN * (i + 0.5) / spokes
        d = np.hypot(c.x - np.cos(a) * (r - depth - band / 2), c.y - np.sin(a) * (r - depth - band / 2))
        c.cover(c.soft(d - r * 0.04), c.worn(BRASS, BRASS_DARK, seed + 3), 7 + bulge(d, r * 0.05, 3))
    c.cover(c.soft(c.radius - r * 0.24), c.worn(IRON, RUST, seed + 5, 0.7), 6 + bulge(c.radius, r * 0.25, 5))
    c.cover(c.soft(c.radius - r * 0.1), c.worn(BRASS, BRASS_DARK, seed + 7), 11 + bulge(c.radius, r * 0.11, 4))
    return c


def fan(turn):
    """Four bent blades in a riveted ring."""
    c = Canvas(128)
    c.cover(c.soft(c.radius - 56), colour("0d1518"), np.zeros_like(c.radius))
    c.alpha *= 0.85
    angle = np.arctan2(c.y, c.x) - turn - c.radius / 90
    fourth = TURN / 4
    off = (angle % fourth) / fourth
    blade = np.maximum(np.abs(off - 0.36) - 0.30, 0) * c.radius
    mask = c.soft(np.maximum(blade - 0.5, c.radius - 51)) * (c.radius > 8)
    c.cover(mask, c.worn(COPPER, COPPER_DARK, 21), 3 + 9 * off)
    for i in range(3):
        c.cover(c.soft(np.abs(c.radius - 18 - 16 * i) - 0.8, 0.4), c.worn(IRON, RUST, 23), 16)
    for i in range(6):
        c.cover(c.soft(ray(c, TURN * i / 6 + 0.26, 0.9, 4, 56), 0.4), c.worn(IRON, RUST, 24), 16)
    ring = np.abs(c.radius - 57.5) - 5.5
    c.cover(c.soft(ring), c.worn(IRON, RUST, 25), 6 + bulge(c.radius - 57.5, 6, 5))
    for i in range(12):
        a = TURN * (i + 0.5) / 12
        d = np.hypot(c.x - np.cos(a) * 57.5, c.y - np.sin(a) * 57.5)
        c.cover(c.soft(d - 2), c.worn(BRASS, BRASS_DARK, 26), 12 + bulge(d, 2.2, 3))
    c.cover(c.soft(c.radius - 9), c.worn(BRASS, BRASS_DARK, 27), 14 + bulge(c.radius, 9.5, 5))
    return c


def valve(turn):
    """A small brass cross handle on a stem."""
    c = Canvas(64)
    brass = c.worn(BRASS, BRASS_DARK, 41)
    for i in range(4):
        a = turn + TURN * i / 4
        arm = ray(c, a, 3.2, 0, 22)
        c.cover(c.soft(arm), brass, 3 + bulge(np.minimum(np.abs(arm + 3.2), 3.2), 3.4, 2))
        d = np.hypot(c.x - np.cos(a) * 23, c.y - np.sin(a) * 23)
        c.cover(c.soft(d - 5.5), brass, 4 + bulge(d, 5.8, 5))
    c.cover(c.soft(c.radius - 8), c.worn(IRON, RUST, 43), 8 + bulge(c.radius, 8.5, 4))
    return c


def clock_face(hour):
    """A tower clock: lit from behind, twelve strokes, two hands."""
    c = Canvas(192)
    c.cover(c.soft(c.radius - 92), c.worn(IRON, RUST, 51), bulge(c.radius - 86, 7, 6))
    paper = mix(colour("8f8360"), colour("d9c58d"), np.exp(-(c.radius / 70) ** 2))
    c.cover(c.soft(c.radius - 81), paper * (0.9 + 0.2 * noise(c.pixels, 52, 1.5, low=2))[..., None],
            np.zeros_like(c.radius))
    for i in range(12):
        thick = 4 if i % 3 == 0 else 2.4
        c.cover(c.soft(ray(c, TURN * i / 12, thick, 60, 76)), INK, 3)
    c.cover(c.soft(np.abs(c.radius - 79) - 1.2), INK, 2)
    for angle, width, length in ((TURN * (0.1 + hour / 12 / 12), 4.5, 42), (TURN * hour / 12 - TURN / 4, 3, 66)):
        c.cover(c.soft(ray(c, angle, width, -14, length)), c.worn(IRON, RUST_DARK, 53), 5)
    c.cover(c.soft(c.radius - 8), c.worn(BRASS, BRASS_DARK, 55), 6 + bulge(c.radius, 8, 5))
    return c


# -- what hurts, saves and ends ---------------------------------------------------------------------

def furnace(step):
    """An iron fire door with bars; flames lick behind them."""
    c = Canvas(128)
    iron = c.worn(colour("4a4643"), RUST, 61, 0.7)
    c.cover(c.soft(block(c, -62, -46, 62, 46, 8)), iron, 4 + np.clip(-block(c, -62, -46, 62, 46, 8), 0, 4))
    mouth = block(c, -46, -30, 46, 36, 14)
    phase = TURN * step / 8
    lick = sum(np.sin(c.x * f + phase * n + s) * a for f, n, s, a in
               ((0.16, 1, 0, 7), (0.31, -2, 2, 5), (0.52, 1, 4, 3)))
    heat = np.clip((c.y + 26 + lick) / 58, 0, 1)
    fire = mix(mix(colour("2a0f0a"), colour("b8391a"), smooth(0.05, 0.45, heat)),
               mix(colour("f08a2c"), colour("ffe9a0"), smooth(0.6, 1.0, heat)), smooth(0.35, 0.7, heat))
    c.cover(c.soft(mouth), fire, np.zeros_like(c.x))
    for x in (-30, -10, 10, 30):
        c.cover(c.soft(block(c, x - 2.5, -32, x + 2.5, 38, 1)), colour("241a18"), bulge(c.x - x, 2.6, 3))
    c.cover(c.soft(np.abs(mouth - 2) - 3), c.worn(IRON, RUST, 63), 8 + bulge(mouth - 2, 3, 3))
    for x in (-55, 55):
        for y in (-38, -13, 13, 38):
            d = np.hypot(c.x - x, c.y - y)
            c.cover(c.soft(d - 2.6), c.worn(BRASS, BRASS_DARK, 65), 8 + bulge(d, 2.8, 3))
    return c, middle(c, 128, 96)


def drain(step):
    """Red-brown fumes that turn in the dark of a drain."""
    c = Canvas(64)
    phase = TURN * step / 6
    swirl = 0.5 + 0.5 * np.sin(c.x * 0.3 + np.sin(c.y * 0.4 + phase) * 1.4 + phase)
    body = np.exp(-(c.x / 22) ** 2 - (c.y / 10) ** 2)
    c.rgb = mix(np.zeros_like(c.rgb) + colour("3a120b"), colour("b5532c"), swirl * body)
    c.alpha = np.clip(body * (0.45 + 0.5 * swirl), 0, 1) * smooth(32, 24, np.abs(c.x)) * smooth(16, 12, np.abs(c.y))
    return c, middle(c, 64, 32)


def check_point(share):
    """A glass on a brass foot that fills with light."""
    c = Canvas(64)
    brass = c.worn(BRASS, BRASS_DARK, 71)
    c.rgb = np.zeros_like(c.rgb) + colour("9fe6fb")
    c.alpha = 0.75 * share * np.exp(-(c.x / 15) ** 2 - ((c.y + 9) / 17) ** 2) * smooth(24, 18, np.abs(c.x)) * smooth(32, 24, np.abs(c.y))
    c.cover(c.soft(block(c, -16, 25, 16, 32, 2)), brass, 4)
    c.cover(c.soft(block(c, -5, 10, 5, 26, 1)), brass, bulge(c.x, 5.2, 5))
    glass = np.hypot(c.x, (c.y + 8) * 0.86) - 16
    level = -8 + 17 * (1 - 2 * share) + 1.2 * np.sin(c.x * 0.4 + share * 9)
    filled = c.soft(level - c.y, 0.8)
    depth = smooth(-24, 8, c.y)
    water = mix(mix(WATER_LIGHT, WATER, depth), colour("ffffff"), 0.35 * np.exp(-(c.x / 6) ** 2))
    inside = mix(np.zeros_like(c.rgb) + colour("1b3a43"), water, filled)
    c.cover(c.soft(glass) , inside, np.zeros_like(c.x))
    c.cover(c.soft(np.abs(c.y - level) - 0.9, 0.4) * c.soft(glass + 1) * (0.05 < share), colour("ffffff"))
    c.cover(c.soft(np.abs(glass + 0.5) - 1.4), brass, 4 + bulge(glass + 0.5, 1.6, 2))
    c.cover(c.soft(block(c, -9, 7, 9, 12, 2)), brass, 6)
    c.cover(c.soft(np.hypot(c.x, c.y + 28) - 3), brass, 6)
    glint = np.exp(-((c.x + 7) / 2.2) ** 2 - ((c.y + 14) / 5) ** 2)
    c.rgb = mix(c.rgb, (1, 1, 1), glint * 0.7)
    return c, middle(c, 48, 64)


def finish_sign(step):
    """A brass plate with a window: a drop over two waves that roll."""
    c = Canvas(112)
    phase = TURN * step / 8
    c.rgb = np.zeros_like(c.rgb) + colour("9fe6fb")
    c.alpha = 0.5 * np.exp(-(c.radius / 34) ** 2) * smooth(56, 44, c.radius)
    brass = c.worn(BRASS, BRASS_DARK, 81, 0.4)
    c.cover(c.soft(c.radius - 44), brass, 3 + bulge(c.radius - 38, 7, 5))
    c.cover(c.soft(c.radius - 33), mix(colour("12343f"), colour("0e4a63"), smooth(-30, 30, c.y)), np.zeros_like(c.x))
    window = c.soft(c.radius - 33)
    for base, tone, sign in ((10, WATER_DEEP, -1), (18, WATER, 1)):
        top = base + 3.2 * np.sin(c.x * 0.22 + sign * phase)
        c.rgb = mix(c.rgb, tone, c.soft(top - c.y, 0.6) * window)
        c.rgb = mix(c.rgb, colour("e6fbff"), c.soft(np.abs(c.y - top) - 1.0, 0.5) * window)
    lift = 1.5 * np.sin(phase)
    y = c.y + 9 - lift
    half = np.where(y < 2, 9.5 * np.clip((y + 18) / 20, 0, 1) ** 1.5, np.sqrt(np.clip(90 - (y - 2) ** 2, 0, None)))
    drop = np.maximum(np.abs(c.x) - half, np.maximum(-y - 18, y - 11.5))
    c.rgb = mix(c.rgb, colour("e6fbff"), c.soft(drop - 1.6, 0.6) * window)
    c.rgb = mix(c.rgb, mix(WATER_LIGHT, WATER, smooth(-12, 10, y)), c.soft(drop, 0.6))
    for i in range(8):
        a = TURN * (i + 0.5) / 8
        d = np.hypot(c.x - np.cos(a) * 38.5, c.y - np.sin(a) * 38.5)
        c.cover(c.soft(d - 2.3), brass, 9 + bulge(d, 2.5, 3))
    return c


# -- still things -------------------------------------------------------------------------------------

def crate():
    c = Canvas(64)
    wood = c.worn(WOOD, WOOD_DARK, 91)
    c.cover(c.soft(block(c, -30, -30, 30, 30, 2)), wood * 0.7, np.zeros_like(c.x))
    for y in (-20, 0, 20):
        d = np.abs(c.y - y) - 9
        c.cover(c.soft(np.maximum(d, np.abs(c.x) - 28)), wood * 0.85, 2 + np.clip(-d, 0, 2))
    across = np.maximum(np.abs(c.x - c.y) / 1.414 - 5, np.maximum(np.abs(c.x), np.abs(c.y)) - 28)
    c.cover(c.soft(across), wood, 5)
    frame = np.maximum(np.abs(c.x), np.abs(c.y))
    c.cover(c.soft(np.abs(frame - 26) - 4.5), wood, 6 + bulge(frame - 26, 5, 2))
    return c


def barrel():
    c = Canvas(80)
    half = 27 - 6 * (c.y / 36) ** 2
    u = c.x / half
    wood = c.worn(WOOD, WOOD_DARK, 95)
    body = np.maximum(np.abs(c.x) - half, np.abs(c.y) - 36)
    c.cover(c.soft(body), wood, bulge(u, 1.02, 22))
    stave = np.abs((np.arcsin(np.clip(u, -1, 1)) * 3.2) % 1 - 0.5)
    c.rgb = mix(c.rgb, WOOD_DARK * 0.6, smooth(0.44, 0.5, stave) * c.soft(body))
    for y in (-28, -12, 12, 28):
        c.cover(c.soft(np.maximum(np.abs(c.y - y) - 2.6, np.abs(c.x) - half - 0.6)), c.worn(IRON, RUST, 97), bulge(u, 1.04, 24))
    return c, middle(c, 58, 74)


def chain():
    c = Canvas(128)
    iron = c.worn(colour("4b4d4b"), RUST, 101)
    for i in range(-4, 5):
        y = i * 16
        if i % 2:
            d = np.abs(np.hypot(c.x, np.maximum(np.abs(c.y - y) - 5, 0)) - 4) - 1.7
        else:
            d = np.hypot(c.x, np.maximum(np.abs(c.y - y) - 7, 0)) - 1.9
        c.cover(c.soft(d), iron, 3 + np.clip(-d, 0, 2))
    return c, middle(c, 16, 128)


def ladder():
    c = Canvas(128)
    iron = c.worn(colour("5a4c40"), RUST_DARK, 105)
    for i in range(8):
        d = np.abs(c.y - (i - 3.5) * 16) - 2
        c.cover(c.soft(np.maximum(d, np.abs(c.x) - 17)), iron, bulge(d + 2, 2.1, 2))
    for x in (-16, 16):
        c.cover(c.soft(np.abs(c.x - x) - 2.6), iron, 3 + bulge(c.x - x, 2.7, 3))
    return c, middle(c, 40, 128)


def icicles():
    c = Canvas(96)
    for i, (x, length, width) in enumerate(((-38, 26, 5), (-27, 44, 6.5), (-14, 18, 4.5), (-2, 52, 7), (12, 30, 5), (24, 46, 6), (37, 22, 5))):
        y = c.y + 28
        half = width * np.clip(1 - y / length, 0, 1) ** 0.8
        d = np.maximum(np.abs(c.x - x) - half, np.maximum(-y, y - length))
        tone = mix(colour("8fb2c0"), colour("eef9fc"), np.clip(0.6 - (c.x - x) / np.maximum(half, 0.1) * 0.5, 0, 1))
        c.cover(c.soft(d) * 0.85, tone, 2 + bulge(c.x - x, width, 4))
    return c, middle(c, 88, 56)


def weeds():
    c = Canvas(64)
    rng = np.random.default_rng(7)
    for i in range(22):
        x0, lean, tall, bend = rng.uniform(-26, 26), rng.uniform(-12, 12), rng.uniform(18, 44), rng.uniform(-6, 6)
        t = np.clip((24 - c.y) / tall, 0, 1)
        centre = x0 + lean * t + bend * t * t
        d = np.maximum(np.abs(c.x - centre) - 2.4 * (1 - t) ** 0.7 - 0.2, np.maximum(24 - tall - c.y, c.y - 24))
        tone = mix(colour("26351f"), colour("6c8248"), np.clip(0.25 + 0.5 * t + rng.uniform(-0.2, 0.3), 0, 1))
        c.cover(c.soft(d), tone, bulge(c.x - centre, 2.6, 3) + i * 0.1)
    return c, (0, 8, 64, 56)


def lantern():
    c = Canvas(64)
    iron = c.worn(IRON, RUST_DARK, 111, 0.8)
    c.rgb = np.zeros_like(c.rgb) + colour("ffcf7a")
    c.alpha = 0.6 * np.exp(-(c.x / 14) ** 2 - ((c.y - 4) / 18) ** 2) * smooth(20, 15, np.abs(c.x)) * smooth(32, 26, np.abs(c.y))
    glass = mix(colour("e79a3c"), colour("fff2c4"), np.exp(-(c.x / 6) ** 2 - ((c.y - 5) / 8) ** 2))
    c.cover(c.soft(block(c, -10, -9, 10, 17, 3)), glass, np.zeros_like(c.x))
    for x in (-9.5, 0, 9.5):
        c.cover(c.soft(block(c, x - 1, -10, x + 1, 18)), iron, 3)
    c.cover(c.soft(block(c, -13, 16, 13, 22, 2)), iron, 4)
    roof = np.maximum(np.abs(c.x) - 14 * np.clip((c.y + 21) / 12, 0.25, 1), np.maximum(-21 - c.y, c.y + 8))
    c.cover(c.soft(roof), iron, 4 - np.abs(c.x) * 0.2)
    ring = np.abs(np.hypot(c.x, c.y + 25) - 4.5) - 1.2
    c.cover(c.soft(ring), iron, 3)
    return c, middle(c, 40, 64)


def window():
    """A tall arched window in the far wall: dusk outside, iron bars."""
    c = Canvas(160)
    def arch(grow):
        top = np.hypot(c.x, np.minimum(c.y + 26, 0)) - 42 - grow
        return np.maximum(top, c.y - 68 - grow)
    stone = c.worn(colour("4a4d48"), colour("26302f"), 121)
    c.cover(c.soft(arch(9)), stone, 3 + np.clip(-arch(9), 0, 5))
    dusk = mix(colour("24324a"), colour("b0785a"), smooth(-70, 70, c.y))
    c.cover(c.soft(arch(0)), dusk, np.zeros_like(c.x))
    c.rgb = mix(c.rgb, c.rgb * 0.45, smooth(-9, 0, arch(0)) * c.soft(arch(0)) * 0.6)
    for x in (-21, 0, 21):
        c.cover(c.soft(np.maximum(np.abs(c.x - x) - 1.8, arch(0))), colour("161b1c"), 3)
    for y in (-26, 8, 42):
        c.cover(c.soft(np.maximum(np.abs(c.y - y) - 1.6, arch(0))), colour("161b1c"), 3)
    return c, middle(c, 104, 154)


def arrow(turn):
    """A cream arrow on a worn iron plate."""
    c = Canvas(56)
    plate = c.worn(colour("36454a"), colour("26302f"), 131)
    d = block(c, -25, -25, 25, 25, 6)
    c.cover(c.soft(d), plate, 2 + np.clip(-d, 0, 3))
    u = c.x * np.cos(turn) + c.y * np.sin(turn)
    v = -c.x * np.sin(turn) + c.y * np.cos(turn)
    head = np.maximum(np.abs(v) - (17 - u) * 0.85, -(u - 0))
    shaft = np.maximum(np.abs(v) - 5, np.abs(u + 8) - 9)
    c.cover(c.soft(np.minimum(head, shaft)), c.worn(CREAM, colour("a5885a"), 133), 5)
    for x in (-20, 20):
        for y in (-20, 20):
            dot = np.hypot(c.x - x, c.y - y)
            c.cover(c.soft(dot - 2), c.worn(BRASS, BRASS_DARK, 135), 6 + bulge(dot, 2.1, 2))
    return c


def pipe_joint():
    """A flange seen from the front, over a pipe's corner."""
    c = Canvas(48)
    metal = c.worn(colour("7d5f46"), colour("44685e"), 141, 0.9)
    c.cover(c.soft(c.radius - 21), metal, 3 + bulge(c.radius - 16, 6, 3))
    for i in range(6):
        a = TURN * (i + 0.5) / 6
        d = np.hypot(c.x - np.cos(a) * 15.5, c.y - np.sin(a) * 15.5)
        c.cover(c.soft(d - 2.4), c.worn(IRON, RUST, 143), 6 + bulge(d, 2.6, 3))
    c.cover(c.soft(c.radius - 8), metal, 6 + bulge(c.radius, 9, 4))
    return c


# -- light ----------------------------------------------------------------------------------------------

def glow(width, height, inner, outer, strength):
    """A soft pool of light, round or oval, no larger than it lights: its faint rim would cost as
    much to draw as all the rest."""
    y, x = np.mgrid[0:height, 0:width] + 0.5
    r = np.hypot((x - width / 2) / (width / 2), (y - height / 2) / (height / 2))
    fall = np.clip(1 - r, 0, 1) ** 1.4
    dither = np.random.default_rng(3).uniform(-0.5, 0.5, r.shape) / 255
    rgb = mix(np.zeros((height, width, 3)) + colour(outer), colour(inner), fall)
    return to_image(rgb, np.clip(fall * strength + dither * (fall > 0), 0, 1))


# Sizes are below one and a half powers of two, so that drawing needn't enlarge the textures.
LIGHTS = {"glow": (136, 136, "ffd98c", "f0a850", 0.5), "fireGlow": (190, 160, "ff9a3c", "c03a16", 0.6),
          "dangerGlow": (94, 64, "e0602c", "8a2412", 0.6), "coldGlow": (150, 134, "d8f2fa", "86b4c8", 0.42),
          "goalGlow": (190, 150, "a8ecfc", "3f9cc0", 0.5)}

SETS = {"gear": lambda i: toothed(96, 12, 4, TURN / 12 * i / 8, 201),
        "bigGear": lambda i: toothed(192, 20, 6, TURN / 20 * i / 8, 211), "fan": lambda i: fan(TURN / 4 * i / 6),
        "valve": lambda i: valve(TURN / 4 * i / 6), "clockface": clock_face, "furnace": furnace,
        "drain": drain, "checkpoint": lambda i: check_point(i / 7), "finishSign": finish_sign}
FRAMES = {"gear": 8, "bigGear": 8, "fan": 6, "valve": 6, "clockface": 12, "furnace": 8, "drain": 6,
          "checkpoint": 8, "finishSign": 8}
STILL = {"crate": crate, "barrel": barrel, "chain": chain, "ladder": ladder, "icicles": icicles,
         "weeds": weeds, "lantern": lantern, "window": window, "pipeJoint": pipe_joint,
         "arrow_right": lambda: arrow(0), "arrow_down": lambda: arrow(TURN / 4),
         "arrow_left": lambda: arrow(TURN / 2), "arrow_up": lambda: arrow(-TURN / 4)}


def save(name, painted):
    canvas, crop = painted if isinstance(painted, tuple) else (painted, None)
    canvas.save(name, crop=crop)


def main(names):
    def wanted(name):
        return not names or name in names
    for name in filter(wanted, SETS):
        for i in range(FRAMES[name]):
            save(f"{name}_FRAME{i + 1:02d}", SETS[name](i))
    for name in filter(wanted, STILL):
        save(name, STILL[name]())
    for name in filter(wanted, LIGHTS):
        glow(*LIGHTS[name]).save(TARGET / f"{name}.png", optimize=True)


if __name__ == "__main__":
    main(sys.argv[1:])
