#!/usr/bin/env python3
"""Lays what isn't rendered over the film's pictures: fades, and the game's name, which forms out
of steam on the track's chord at second 15. Raw 800 by 600 RGB from standard input to standard
output."""
import pathlib
import sys

import numpy as np
from PIL import Image, ImageFilter

ART = pathlib.Path(__file__).resolve().parents[1]
sys.path.append(str(ART))
from painting import noise, smooth  # noqa: E402

WIDTH, HEIGHT, RATE = 800, 600, 30.0
TITLE, END = 15.0, 20.0
PLACE = (400, 200)


def logo():
    """The name, 640 wide, on the whole picture: colours and alpha."""
    image = Image.open(ART.parent / "data" / "img" / "menu" / "logo.png").convert("RGBA")
    data = np.asarray(image).astype(float)
    data[..., :3] *= data[..., 3:] / 255.0
    scaled = [Image.fromarray(data[..., i].astype(np.float32), "F").resize((640, 160), Image.LANCZOS)
              for i in range(4)]
    whole = np.zeros((HEIGHT, WIDTH, 4))
    left, top = PLACE[0] - 320, PLACE[1] - 80
    whole[top:top + 160, left:left + 640] = np.clip(np.stack(scaled, 2), 0, 255)
    return whole[..., :3], whole[..., 3] / 255.0


def glow_of(alpha, radius):
    image = Image.fromarray((alpha * 255).astype(np.uint8)).filter(ImageFilter.GaussianBlur(radius))
    return np.asarray(image).astype(float) / 255.0


def fade(t):
    return float(smooth(0.0, 0.7, t) * (1.0 - smooth(END - 1.1, END - 0.1, t)))


def main():
    rgb, alpha = logo()
    near, far = glow_of(alpha, 9), glow_of(alpha, 34)
    drift = noise(1024, 77, 1.5, low=3)
    size = WIDTH * HEIGHT * 3
    number = 0
    while len(block := sys.stdin.buffer.read(size)) == size:
        t = number / RATE
        picture = np.frombuffer(block, np.uint8).reshape(HEIGHT, WIDTH, 3).astype(float)
        if t > TITLE - 1.2:
            there = float(smooth(TITLE - 0.35, TITLE + 0.45, t))
            steam = float(smooth(TITLE - 1.2, TITLE, t) * (1 - smooth(TITLE, TITLE + 1.6, t)))
            moved = np.roll(drift, int(-40 * t), 0)[:HEIGHT, :WIDTH]
            picture *= 1.0 - 0.5 * float(smooth(TITLE - 0.2, TITLE + 1.2, t))
            mist = np.clip(far * 1.5 + near * 0.4, 0, 1) * smooth(0.25, 0.7, moved) * steam
            picture += (np.array([226, 240, 246]) - picture) * (0.9 * mist)[..., None]
            flash = np.exp(-max(t - TITLE, 0) / 0.7) * there
            picture += (far * 90 * there * (0.55 + 0.45 * flash))[..., None] * [0.35, 0.8, 1.0]
            # The letters come out where the steam is thickest first.
            shown = alpha * smooth(0.0, 0.25, there * 1.3 - moved * 0.8)
            picture = picture * (1 - shown[..., None]) + rgb * (shown / np.maximum(alpha, 1e-3)
                                                               )[..., None]
            picture += (alpha * shown * 120 * flash)[..., None]
        picture = np.clip(picture * fade(t), 0, 255)
        sys.stdout.buffer.write(picture.astype(np.uint8).tobytes())
        number += 1


if __name__ == "__main__":
    main()
