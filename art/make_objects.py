#!/usr/bin/env python3
"""Paints the level objects: sprites for levels, one texel to a world unit, animated ones as
NAME_FRAME01.png and so on. Painted four times as large on squares and scaled down."""
import pathlib

import numpy as np
from PIL import Image

from painting import blur, colour, fill, light, mix, noise, shaded, smooth, to_image

TARGET = pathlib.Path(__file__).parent.parent / "data" / "img"
SCALE = 4

RUST, RUST_DARK, IRON = colour("8a4f33"), colour("4a2a1f"), colour("59625f")
BRASS, BRASS_DARK = colour("b08d4c"), colour("5f4a28")
TEAL, CREAM, INK = colour("3f7770"), colour("d9cfb4"), colour("2a2622")


class Canvas:
    """A square of `size` world units, with distances in these units from its middle."""

    def __init__(self, size):
        self.size, self.pixels = size, size * SCALE
        y, x = np.mgrid[0:self.pixels, 0:self.pixels]
        self.x = (x + 0.5) / SCALE - size / 2
        self.y = (y + 0.5) / SCALE - size / 2
        self.radius = np.hypot(self.x, self.y)
        self.rgb = fill(self.pixels, "000000")
        self.alpha = np.zeros((self.pixels, self.pixels))
        self.height = np.zeros((self.pixels, self.pixels))

    def cover(self, mask, paint, height=None):
        """Lays paint over the picture; `height` is the form's own relief there."""
        self.rgb = mix(self.rgb, paint, mask)
        self.alpha = np.maximum(self.alpha, mask)
        if height is not None:
            self.height = np.where(mask > 0.5, height, self.height)

    def soft(self, distance, edge=0.5):
        """1 where the distance is below 0, with a smooth rim."""
        return 1.0 - smooth(-edge, edge, distance)

    def segment(self, ax, ay, bx, by):
        """Distance to a line from a to b."""
        dx, dy = bx - ax, by - ay
        t = ((self.x - ax) * dx + (self.y - ay) * dy) / (dx * dx + dy * dy)
        t = np.clip(t, 0.0, 1.0)
        return np.hypot(self.x - ax - t * dx, self.y - ay - t * dy)

    def worn(self, base, dark, seed, amount=0.6):
        spots = smooth(0.5, 0.72, noise(self.pixels, seed, 1.5, low=3)) * amount
        grain = noise(self.pixels, seed + 1, 0.7, low=8)
        return shaded(mix(fill(self.pixels, "000000") + base, dark, spots), 0.86 + 0.28 * grain)

    def save(self, name, strength=1.6, crop=None):
        lit = light(blur(self.height * SCALE, 1.5), strength / SCALE)
        picture = to_image(self.rgb * lit[..., None], self.alpha)
        rgba = np.asarray(picture).astype(float)
        rgba[..., :3] *= rgba[..., 3:] / 255.0  # scaled with the alpha, or rims turn dark
        small = np.stack([np.asarray(Image.fromarray(rgba[..., i].astype(np.float32), "F").resize(
            (self.size, self.size), Image.BOX)) for i in range(4)], 2)
        small[..., :3] /= np.maximum(small[..., 3:] / 255.0, 1e-3)
        image = to_image(np.clip(small[..., :3] / 255.0, 0, 1), small[..., 3] / 255.0)
        if crop:
            image = image.crop(crop)
        image.save(TARGET / f"{name}.png", optimize=True)


def wheel(turn):
    """The hand wheel of a sluice valve: a rim, five bent spokes, a hub of brass."""
    c = Canvas(96)
    rust = c.worn(RUST, RUST_DARK, 31)
    angle = np.arctan2(c.y, c.x) - turn - 0.25 * np.sin(c.radius / 44 * np.pi)
    fifth = 2 * np.pi / 5
    away = np.abs((angle + fifth / 2) % fifth - fifth / 2) * c.radius
    width = 5.2 - 1.8 * smooth(6, 40, c.radius)
    spokes = np.maximum(away - width, c.radius - 38)
    c.cover(c.soft(spokes), rust, np.sqrt(np.clip(1 - (away / width) ** 2, 0, 1)) * 3)
    rim = np.abs(c.radius - 39) - 5.5
    c.cover(c.soft(rim), rust,
            3 + np.sqrt(np.clip(1 - ((c.radius - 39) / 5.5) ** 2, 0, 1)) * 4)
    brass = c.worn(BRASS, BRASS_DARK, 47)
    c.cover(c.soft(c.radius - 11), brass, 6 + np.sqrt(np.clip(1 - (c.radius / 11) ** 2, 0, 1)) * 5)
    nut = np.max([c.x * np.cos(turn + k * np.pi / 3) + c.y * np.sin(turn + k * np.pi / 3)
                  for k in range(6)], axis=0)
    c.cover(c.soft(nut - 5), shaded(brass, np.full_like(nut, 0.62)), 12 - nut * 0.3)
    return c


def gauge(share):
    """A pressure gauge; the needle goes from 0 to 1 over three quarters of the dial."""
    c = Canvas(80)
    brass = c.worn(BRASS, BRASS_DARK, 5)
    c.cover(c.soft(np.maximum(np.abs(c.x) - 6, np.abs(c.y - 34) - 6)), brass, 2.0)
    c.cover(c.soft(c.radius - 35), brass,
            np.sqrt(np.clip(1 - ((c.radius - 31.5) / 4.5) ** 2, 0, 1)) * 5)
    dial = shaded(fill(c.pixels, "000000") + CREAM, 0.88 + 0.2 * noise(c.pixels, 6, 1.6, low=2))
    stain = smooth(0.62, 0.8, noise(c.pixels, 8, 1.8, low=2)) * 0.5
    c.cover(c.soft(c.radius - 28), mix(dial, colour("9a7748"), stain),
            np.zeros_like(c.radius))
    angle = np.arctan2(c.y, c.x)
    along = ((angle - 0.75 * np.pi) % (2 * np.pi)) / (1.5 * np.pi)
    band = c.soft(np.abs(c.radius - 23) - 2.2) * (along <= 1)
    c.cover(band * 0.9, np.where((along < 0.7)[..., None], TEAL, colour("9c3f2a")))
    for i in range(11):
        a = (0.75 + 0.15 * i) * np.pi
        inner = 16 if i % 5 == 0 else 18
        d = c.segment(np.cos(a) * inner, np.sin(a) * inner, np.cos(a) * 20, np.sin(a) * 20)
        c.cover(c.soft(d - (0.9 if i % 5 == 0 else 0.5), 0.3), INK)
    a = (0.75 + 1.5 * share) * np.pi
    shadow = c.segment(1, 1.6, np.cos(a) * 21 + 1, np.sin(a) * 21 + 1.6)
    c.cover(c.soft(shadow - 1.2, 0.9) * 0.35, INK)
    needle = c.segment(-np.cos(a) * 6, -np.sin(a) * 6, np.cos(a) * 22, np.sin(a) * 22)
    reach = np.clip(c.x * np.cos(a) + c.y * np.sin(a), -6, 22)
    c.cover(c.soft(needle - (1.8 - 1.1 * (reach + 6) / 28), 0.3), colour("7d2d1f"))
    c.cover(c.soft(c.radius - 3.4, 0.3), brass, 3 - c.radius * 0.5)
    glare = smooth(-12, -24, c.x * 0.55 + c.y * 0.83) * c.soft(c.radius - 27)
    c.rgb = mix(c.rgb, (1, 1, 1), glare * 0.16)
    return c


def lamp(glow):
    """A caged bulkhead lamp; `glow` from 0, out, to 1."""
    c = Canvas(72)
    iron = c.worn(IRON, RUST, 14, 0.8)
    halo = np.exp(-((c.x / 22) ** 2 + ((c.y - 2) / 24) ** 2)) * glow
    fade = smooth(36, 24, c.radius)
    c.rgb = mix(c.rgb, colour("ffcf7a"), np.ones_like(halo))
    c.alpha = halo * 0.55 * fade
    glass = np.maximum(np.hypot(c.x, np.maximum(c.y - 6, 0)) - 11, -c.y - 14)
    core = np.exp(-(c.x ** 2 + (c.y - 1) ** 2) / 46)
    dark, warm = colour("4d5a55"), colour("f6b653")
    bulb = mix(mix(fill(c.pixels, "000000") + dark, warm, np.full_like(core, glow)),
               colour("fff6d8"), core * (0.15 + 0.85 * glow))
    c.cover(c.soft(glass), bulb, np.sqrt(np.clip(1 - (c.x / 11) ** 2, 0, 1)) * (4 - 3 * glow))
    for offset in (-7.5, 0, 7.5):
        bar = np.abs(c.x - offset * np.sqrt(np.clip(1 - ((c.y - 2) / 22) ** 2, 0, 1)))
        mask = np.maximum(bar - 0.9, np.maximum(-c.y - 14, c.y - 17.5))
        c.cover(c.soft(mask, 0.3), iron, 6.0)
    ring = np.maximum(np.abs(c.y - 4) - 1.0, np.abs(c.x) - 11.5)
    c.cover(c.soft(ring, 0.3), iron, 7.0)
    base = np.maximum(np.abs(c.x) - 13 - 0.35 * np.clip(c.y + 24, -6, 0), np.abs(c.y + 19) - 6)
    c.cover(c.soft(base), iron, 5 - np.abs(c.y + 19) * 0.35)
    c.cover(c.soft(np.maximum(np.abs(c.x) - 4, np.abs(c.y + 29) - 6)), iron, 3 - np.abs(c.x) * 0.4)
    return c


def save_set(name, canvases):
    for i, canvas in enumerate(canvases, 1):
        canvas.save(f"{name}_FRAME{i:02d}")


def main():
    save_set("wheel", [wheel(i / 6 * 2 * np.pi / 5) for i in range(6)])
    save_set("gauge", [gauge(share) for share in (0.04, 0.1, 0.24, 0.46, 0.68, 0.84, 0.78, 0.8)])
    save_set("lamp", [lamp(glow) for glow in (0.95, 0.8, 1.0, 0.55)])


if __name__ == "__main__":
    main()
