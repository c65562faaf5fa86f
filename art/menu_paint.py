"""What the pictures of the menus share: their colours, brass and water, painted several times too
large and scaled down with their alpha."""
import pathlib

import numpy as np
from PIL import Image

from painting import blur, colour, light, mix, noise, smooth

TARGET = pathlib.Path(__file__).parent.parent / "data" / "img" / "menu"

BRASS, BRASS_DARK, BRASS_LIGHT = colour("b08d4c"), colour("5f4a28"), colour("f2dca0")
VERDIGRIS, RUST = colour("5f8f80"), colour("8a4f33")
NIGHT, GLASS_DARK, GLASS = colour("0b1519"), colour("0d1d23"), colour("1b3a43")
WATER_DEEP, WATER, WATER_LIGHT = colour("0c5f8c"), colour("22a6d6"), colour("5fd6f4")
RIM, CREAM = colour("e6fbff"), colour("efe4c4")


class Sheet:
    """A picture of width by height pixels, painted `fine` times as large. Coordinates are in
    pixels of the finished picture."""

    def __init__(self, width, height, fine=3):
        self.width, self.height, self.fine = width, height, fine
        y, x = np.mgrid[0:height * fine, 0:width * fine]
        self.x, self.y = (x + 0.5) / fine, (y + 0.5) / fine
        self.rgb = np.zeros((height * fine, width * fine, 3))
        self.alpha = np.zeros((height * fine, width * fine))

    def copy(self):
        other = Sheet.__new__(Sheet)
        other.__dict__.update(self.__dict__)
        other.rgb, other.alpha = self.rgb.copy(), self.alpha.copy()
        return other

    def soft(self, distance, edge=0.4):
        """1 where the distance is below 0, with a smooth rim."""
        return 1.0 - smooth(-edge, edge, distance)

    def over(self, paint, mask):
        """Lays paint over what is there, under the picture's own alpha."""
        mask = np.clip(mask, 0.0, 1.0)
        total = mask + self.alpha * (1.0 - mask)
        share = np.where(total > 1e-6, mask / np.maximum(total, 1e-6), 0.0)
        self.rgb = mix(self.rgb, paint, share)
        self.alpha = total

    def tint(self, paint, mask):
        """Changes the colour and leaves the alpha."""
        self.rgb = mix(self.rgb, paint, np.clip(mask, 0.0, 1.0))

    def box(self, left, top, right, bottom, radius):
        """Distance to a box with round corners, below 0 inside."""
        dx = np.abs(self.x - (left + right) / 2) - (right - left) / 2 + radius
        dy = np.abs(self.y - (top + bottom) / 2) - (bottom - top) / 2 + radius
        return np.hypot(np.maximum(dx, 0), np.maximum(dy, 0)) + np.minimum(np.maximum(dx, dy),
                                                                          0) - radius

    def disc(self, x, y, radius):
        return np.hypot(self.x - x, self.y - y) - radius

    def grain(self, seed, rough=1.0, stretch=(1.0, 1.0), low=1.0):
        """Noise over the sheet."""
        size = max(self.rgb.shape[:2])
        return noise(size, seed, rough, stretch, low)[:self.rgb.shape[0], :self.rgb.shape[1]]

    def relief(self, height, strength, mask):
        """Lights what the mask covers as a surface of this height, in pixels."""
        lit = light(height * self.fine, strength)
        self.rgb = np.clip(self.rgb * (1.0 + (lit - 1.0) * mask)[..., None], 0.0, 1.0)

    def brass(self, seed, wear=1.0):
        """A sheet full of old brass with verdigris."""
        brushed = self.grain(seed, 0.9, (6.0, 1.0), low=3)
        base = mix(BRASS_DARK, BRASS, 0.55 + 0.6 * (brushed - 0.5))
        base = mix(base, BRASS_LIGHT, 0.22 * smooth(0.55, 0.8, self.grain(seed + 1, 1.6)))
        green = smooth(0.56, 0.74, self.grain(seed + 2, 1.5, low=3))
        return mix(base, VERDIGRIS, green * 0.55 * wear)

    def rivet(self, x, y, radius):
        d = self.disc(x, y, 0.0)
        self.tint(NIGHT, 0.55 * (1 - smooth(radius, radius + 1.6, np.hypot(self.x - x - 0.7,
                                                                          self.y - y - 0.9))))
        mask = self.soft(d - radius)
        self.over(mix(BRASS, BRASS_LIGHT, 0.25), mask)
        dome = np.sqrt(np.clip(1 - (d / radius) ** 2, 0, 1)) * radius
        self.relief(dome, 0.5, mask)
        self.tint(BRASS_LIGHT, 0.8 * np.exp(-((self.x - x + radius * 0.35) ** 2 +
                                              (self.y - y + radius * 0.4) ** 2) /
                                            (radius * 0.3) ** 2))

    def water(self, mask, surface, floor, rim=1.3):
        """Fills what the mask covers below the line `surface` (a y for each x); `floor` is the
        y where it is deepest."""
        depth = self.y - surface
        down = np.clip(depth / max(float(floor - np.min(surface)), 1.0), 0, 1)
        body = mix(WATER_LIGHT, WATER, smooth(0.0, 0.3, down))
        body = mix(body, WATER_DEEP, smooth(0.15, 0.95, down))
        wet = self.soft(-depth) * mask
        self.over(body, wet)
        self.tint(RIM, 0.95 * wet * (1 - smooth(rim * 0.5, rim * 1.5, depth)))
        self.tint(WATER_LIGHT, 0.35 * wet * np.exp(-np.maximum(depth, 0) / (rim * 3)))

    def drop(self, x, y, radius, alpha=1.0):
        d = self.disc(x, y, radius)
        self.over(mix(WATER_LIGHT, WATER, smooth(-radius, 0, d)), alpha * self.soft(d))
        self.over(RIM, alpha * 0.9 * self.soft(self.disc(x - radius * 0.3, y - radius * 0.35,
                                                         radius * 0.38)))

    def image(self, alpha=1.0, steps=256):
        """The finished picture, with `steps` levels per channel (fewer make smaller files)."""
        f = self.fine
        shape = (self.height, f, self.width, f)
        a = self.alpha * alpha
        small_a = a.reshape(shape).mean((1, 3))
        small = [(self.rgb[..., i] * a).reshape(shape).mean((1, 3)) for i in range(3)]
        rgb = np.stack(small, 2) / np.maximum(small_a, 1e-4)[..., None]
        # The colour runs on under the transparent pixels, for filtering.
        spread = np.stack([bleed(rgb[..., i], small_a) for i in range(3)], 2)
        rgb = np.where((small_a > 0.02)[..., None], rgb, spread)
        levels = steps - 1
        data = np.round(np.round(np.clip(np.dstack([rgb, small_a]), 0, 1) * levels) / levels * 255)
        return Image.fromarray(data.astype(np.uint8), "RGBA")


def bleed(channel, alpha):
    weight = np.maximum(blur(np.pad(alpha, 8), 2.0)[8:-8, 8:-8], 0)
    value = blur(np.pad(channel * alpha, 8), 2.0)[8:-8, 8:-8]
    return np.where(weight > 2e-3, value / np.maximum(weight, 2e-3), channel.max() * 0.3)


def save(image, name):
    TARGET.mkdir(exist_ok=True)
    image.save(TARGET / f"{name}.png", optimize=True)
