#!/usr/bin/env python3
"""Paints the water that closes over the view when a level is finished: light from above, a web of
brighter lines and streams of bubbles, in frames that go round without a seam. The picture
covers the view of a 16:9 window; the game enlarges it for those that are wider or very tall."""
import numpy as np
from PIL import Image

from menu_paint import RIM, WATER_LIGHT, Sheet, save
from painting import colour, mix, smooth

SIZE, FRAMES = 1152, 5
COARSE = 4  # the soft parts are painted that much smaller


def web(x, y, turn):
    """Bright lines as of light through waves; the same again after a turn of 2 pi."""
    u = x + 34 * np.sin(y / 71.0 + turn) + 21 * np.sin(y / 37.0 - turn + 1.0)
    v = y + 34 * np.sin(x / 83.0 - turn + 2.0) + 21 * np.sin(x / 43.0 + turn)
    lines = [1 - np.abs(np.sin(u / 58.0 + 0.6 * np.sin(v / 97.0))),
             1 - np.abs(np.sin(v / 49.0 + 0.8 * np.sin(u / 111.0))),
             1 - np.abs(np.sin((u + v) / 91.0 + 0.5))]
    return sum(line ** 6 for line in lines)


def beams(x, y, turn):
    """Light that fans out from high above the picture."""
    angle = np.arctan2(x - 440, y + 500)
    fan = (np.sin(angle * 31 + 0.5 * np.sin(turn)) + np.sin(angle * 53 + 1.3 - 0.5 * np.sin(turn)) +
           0.7 * np.sin(angle * 17 + 0.4 * np.cos(turn)))
    return smooth(0.3, 2.6, fan)


def soft_part(turn):
    count = SIZE // COARSE
    y, x = (np.mgrid[0:count, 0:count] + 0.5) * COARSE
    down = smooth(180, 860, y)
    base = mix(colour("7fdcf5"), colour("2aa0d2"), smooth(0.0, 0.5, down))
    base = mix(base, colour("0b4770"), smooth(0.4, 1.0, down))
    base = mix(base, WATER_LIGHT, 0.75 * beams(x, y, turn) * smooth(900, 250, y))
    return mix(base, RIM, np.clip(0.40 * web(x, y, turn), 0, 0.75) * smooth(980, 300, y))


def stream_list():
    rng = np.random.default_rng(541)
    for _ in range(28):
        yield (rng.uniform(70, SIZE - 70), rng.uniform(70, 190), rng.uniform(0, 1), rng.uniform(3, 11),
               rng.uniform(0, 6.28))


def bubbles(s, moment):
    """Each bubble rises to where the next one was, so that the last frame leads to the first."""
    for x, spacing, start, radius, bend in stream_list():
        for i in range(int(SIZE / spacing) + 2):
            y = SIZE - (i + start + moment) * spacing
            bubble(s, x + 14 * np.sin(y / 60.0 + bend), y, radius * (1.2 - 0.6 * y / SIZE))


def bubble(s, x, y, r):
    box = np.s_[max(int(y - r - 3), 0):max(int(y + r + 4), 0),
                max(int(x - r - 3), 0):max(int(x + r + 4), 0)]
    if s.rgb[box].size == 0:
        return
    d = np.hypot(s.x[box] - x, s.y[box] - y)
    rim = 0.75 * smooth(r * 0.45, r, d) * (1 - smooth(r - 0.6, r + 0.6, d))
    spot = 0.95 * (1 - smooth(r * 0.12, r * 0.34, np.hypot(s.x[box] - x + r * 0.4,
                                                           s.y[box] - y + r * 0.42)))
    s.rgb[box] = mix(s.rgb[box], RIM, np.maximum(rim, spot))


def enlarged(channel):
    small = Image.fromarray(channel.astype(np.float32), "F")
    return np.asarray(small.resize((SIZE, SIZE), Image.BICUBIC))


def main():
    for i in range(FRAMES):
        s = Sheet(SIZE, SIZE, 1)
        base = soft_part(2 * np.pi * i / FRAMES)
        s.rgb = np.stack([enlarged(base[..., c]) for c in range(3)], 2)
        s.alpha = np.full((SIZE, SIZE), 0.96)
        bubbles(s, i / FRAMES)
        save(s.image(steps=88), f"finish_FRAME{i + 1:02}")


if __name__ == "__main__":
    main()
