#!/usr/bin/env python3
"""Draws spectra of sounds over time, to judge them by eye: draw_spectra.py OUT.png FILE...
One picture per file, side by side: 60 Hz at the bottom to 20 kHz at the top, in octaves, over
the whole length; black is 90 dB under the loudest point. The white line is the level."""
import subprocess
import sys

import numpy as np
from PIL import Image, ImageDraw

WIDTH, HEIGHT, RATE = 380, 240, 44100


def read(path):
    command = ["ffmpeg", "-v", "error", "-i", path, "-ac", "1", "-ar", str(RATE), "-f", "f32le",
               "-"]
    return np.frombuffer(subprocess.run(command, check=True, capture_output=True).stdout, "<f4")


def picture(path):
    sound = read(path)
    size = 2048 if len(sound) > 2 * RATE else 1024
    padded = np.concatenate([np.zeros(size // 2), sound, np.zeros(size)])
    columns, levels = [], []
    wanted = 60 * 2.0 ** (np.linspace(np.log2(20000 / 60), 0, HEIGHT)) * size / RATE
    for x in range(WIDTH):
        start = int(x * len(sound) / WIDTH)
        piece = padded[start:start + size]
        spectrum = np.abs(np.fft.rfft(piece * np.hanning(size)))
        columns.append(np.interp(wanted, np.arange(len(spectrum)), spectrum))
        levels.append(np.sqrt(np.mean(piece ** 2)))
    image = 20 * np.log10(np.array(columns).T + 1e-9)
    image = np.clip((image - image.max() + 90) / 90, 0, 1)
    colours = np.stack([np.clip(1.6 * image - 0.2, 0, 1), image ** 2, np.sin(np.pi * image) * 0.6],
                       2)
    result = Image.fromarray((colours * 255).astype(np.uint8))
    pen = ImageDraw.Draw(result)
    level = 20 * np.log10(np.array(levels) + 1e-9)
    pen.line([(x, -float(level[x]) * HEIGHT / 90) for x in range(WIDTH)], fill=(255, 255, 255))
    for hertz in (100, 1000, 8000):
        y = HEIGHT * (1 - np.log2(hertz / 60) / np.log2(20000 / 60))
        pen.line([(0, y), (8, y)], fill=(0, 255, 255))
    pen.text((12, 2), f"{path.split('/')[-1]} {len(sound) / RATE:.2f} s", fill=(255, 255, 255))
    return result


def main():
    pictures = [picture(path) for path in sys.argv[2:]]
    across = min(4, len(pictures))
    rows = -(-len(pictures) // across)
    sheet = Image.new("RGB", (across * (WIDTH + 4), rows * (HEIGHT + 4)))
    for i, p in enumerate(pictures):
        sheet.paste(p, (i % across * (WIDTH + 4), i // across * (HEIGHT + 4)))
    sheet.save(sys.argv[1])


if __name__ == "__main__":
    main()
