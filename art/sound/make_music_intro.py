#!/usr/bin/env python3
"""The track of the opening, twenty seconds: water falls (0 to 5), freezes (5 to 9.5), melts and
comes to the boil (9.5 to 15), and breaks into the title's chord (15), which rings out."""
import numpy as np

from instruments import Band, Choir, bass, bell, drop, hertz, kalimba, ogg, pack, string
from make_ice import click, plate
from make_menus import glass
from synth import (at_loudness, band, bubble, clock, fade_out, filtered, noise, partials, place,
                   rise, seeded)

LENGTH = 20.0
TITLE = 15.0


def curve(*points):
    """A level over the whole track through (second, level) points."""
    times, levels = zip(*points)
    return np.interp(clock(LENGTH), times, levels)


def falling(music, random):
    """Single drops, then a thread of water; the motif of the play music, slowly."""
    stream = noise(LENGTH, band(350, 2400, 2), random)
    stream *= curve((0, 0), (1.5, 0.010), (4.6, 0.035), (5.4, 0))
    place(music.dry, stream, 0.0, -0.1)
    for _ in range(150):
        at = 5.1 * random.beta(2.2, 1.0)
        size = random.uniform(1.2, 4.5) / 1000
        ring = bubble(size, random.uniform(0.05, 0.25)) * 0.11 * random.uniform(0.1, 1) ** 2
        place(music.dry, ring, at, random.uniform(-0.6, 0.6))
        place(music.wet, ring * 0.5, at, 0.0)
    for at, name in ((0.4, "D5"), (1.5, "A5"), (2.3, "E5"), (3.0, "F#5"), (3.6, "D6"), (4.2, "A5")):
        music.play(drop, [(at, name, 1)], 0.30, random.uniform(-0.4, 0.4), 0.9)
    music.play(kalimba, [(1.2, "F#5", 1), (2.1, "E5", 1), (2.7, "D5", 1), (3.3, "A4", 2)], 0.14,
               0.1, 0.8)


def freezing(music, random):
    """The stream stops in a crackle; glass high above an empty fifth."""
    breath = noise(LENGTH, band(3000, 7000, 2), random)
    breath *= curve((4.8, 0), (5.6, 0.006), (9, 0.004), (10, 0))
    place(music.dry, breath, 0.0, 0.2)
    for _ in range(110):
        at = 4.8 + 3.6 * random.beta(1.0, 2.4)
        snap = click(random.uniform(0.004, 0.015), random) * 0.13 * random.uniform(0.1, 1) ** 2
        place(music.dry, snap, at, random.uniform(-0.8, 0.8))
        place(music.wet, snap * 0.6, at, 0.0)
    for _ in range(9):
        creak = partials(plate(380, 7, 0.2, random), 0.25, random, 0.004) * 0.04
        place(music.wet, creak, random.uniform(5.0, 8.6), random.uniform(-0.6, 0.6))
    for _ in range(46):
        at = 5.0 + 4.4 * random.random()
        name = str(random.choice(["B5", "D6", "E6", "F#6", "A6", "C#7"]))
        tone = glass(hertz(name), 0.9, random) * 0.020 * random.uniform(0.3, 1)
        place(music.dry, tone, at, random.uniform(-0.9, 0.9))
        place(music.wet, tone * 1.3, at, random.uniform(-0.5, 0.5))
    music.play(bell, [(5.2, "B5", 2), (6.4, "F#5", 2), (7.6, "E5", 2), (8.6, "C#6", 2)], 0.075,
               0.0, 1.1)


def boiling(music, random):
    """Bubbles come faster, a hiss opens upwards, strings run up by steps."""
    for _ in range(420):
        at = 9.6 + 5.2 * random.beta(2.4, 1.0)
        size = random.uniform(1.8, 9.0) / 1000
        ring = bubble(size, random.uniform(0.25, 0.6), 0.2) * 0.10 * random.uniform(0.1, 1) ** 1.5
        place(music.dry, ring, at, random.uniform(-0.8, 0.8))
        place(music.wet, ring * 0.3, at, 0.0)
    for low, high, start, level in ((200, 700, 10.0, 0.035), (600, 1800, 11.5, 0.03),
                                    (1500, 5500, 12.8, 0.022)):
        for pan in (-0.7, 0.7):
            hiss = noise(LENGTH, band(low, high, 2), random)
            hiss *= curve((start, 0), (14.7, level), (TITLE, level * 1.2), (TITLE + 0.12, 0))
            place(music.dry, hiss, 0.0, pan)
            place(music.wet, hiss * 0.3, 0.0, -pan)
    steps = ["D3", "A3", "D4", "E4", "F#4", "A4", "B4", "D5", "E5", "F#5", "A5", "B5"]
    at, gap, k = 10.0, 0.46, 0
    while at < TITLE - 0.05:
        share = (at - 10.0) / 5.0
        name = steps[(k % 5) + int(share * 7)]
        music.play(string, [(at, name, 0.6)], 0.06 + 0.10 * share, 0.5 * (-1) ** k, 0.5, loose=0.0)
        gap = max(0.115, gap * 0.955)
        at, k = at + gap, k + 1


def title(music, random):
    """The chord: D with its ninth over a deep stroke, all voices at once, and drops after it."""
    t = clock(2.6)
    stroke = np.sin(2 * np.pi * (46 * t + 1.6 * (1 - np.exp(-t / 0.05))))
    stroke *= np.exp(-t / 0.55) * rise(2.6, 0.004)
    place(music.dry, fade_out(stroke, 1.0) * 0.34, TITLE, 0.0)
    burst = noise(1.2, band(500, 6000, 2), random) * rise(1.2, 0.003)
    burst *= 0.035 * np.exp(-clock(1.2) / 0.16)
    for pan in (-0.6, 0.6):
        place(music.dry, fade_out(np.roll(burst, 900 if pan > 0 else 0), 0.4), TITLE, pan)
        place(music.wet, fade_out(burst, 0.4), TITLE, pan)
    chord = [("D4", -0.5), ("A4", 0.4), ("E5", -0.2), ("F#5", 0.2), ("A5", -0.4), ("D6", 0.5),
             ("F#6", 0.0)]
    for k, (name, pan) in enumerate(chord):
        music.play(bell, [(TITLE + 0.012 * k, name, 4)], 0.12, pan, 1.0, loose=0.0)
        music.play(string, [(TITLE + 0.012 * k, name, 4)], 0.09, -pan, 0.6, loose=0.0)
    music.play(bass, [(TITLE, "D2", 3.2)], 0.20, wet=0.1, loose=0.0)
    for at, name in ((16.1, "A5"), (16.6, "F#5"), (17.1, "D6"), (17.9, "E6")):
        music.play(kalimba, [(at, name, 1)], 0.07, 0.2, 1.0)
    for at, name in ((17.5, "D6"), (18.3, "A5")):
        music.play(drop, [(at, name, 1)], 0.16, -0.3, 1.0)


def pads(music):
    choir = Choir(0.9, 16.0)
    chords = [(0.0, 4.9, "D3 A3 E4", 0.010, 2.5, 1.2),
              (4.9, 4.6, "B2 F#3 C#4 F#4", 0.013, 0.8, 1.5),
              (9.5, 2.9, "G2 D3 B3 E4", 0.020, 1.6, 0.8),
              (12.3, 2.7, "A2 E3 B3 D4 A4", 0.030, 1.4, 0.25),
              (TITLE, 1.4, "D2 D3 A3 D4 F#4 A4 E5", 0.034, 0.03, 3.4)]
    for at, seconds, names, level, attack, release in chords:
        music.hold(choir, names.split(), at, seconds, level, 0.5, attack, release)


def main():
    random = seeded("intro")
    music = Band("intro", LENGTH + 4.0, 1.0)  # echoes run out before the ring closes
    pads(music)
    for part in (falling, freezing, boiling, title):
        part(music, random)
    sound = filtered(music.mix(2.8, 0.9, 0.9), band(30, 15000, 2))[:len(clock(LENGTH))]
    sound = fade_out(sound * rise(LENGTH, 0.05)[:, None], 1.6)
    path = ogg("vid/intro")
    path.parent.mkdir(exist_ok=True)
    pack(path, at_loudness(sound, -17.5, -2.0))


if __name__ == "__main__":
    main()
