#!/usr/bin/env python3
"""The sounds of menus, counters and of a level's end. All are tuned to D, like the music."""
import numpy as np

from synth import (at_loudness, at_peak, band, bent, bubble, clock, decibels, fade_out, in_room,
                   noise,
                   one_shot, partials, place, rise, room, save, seeded, silence)

FIVE = (0, 2, 4, 7, 9)  # the steps of the five-tone scale that every tune here is made of


def step(k, base=293.66):
    """The frequency of step k of the five-tone scale on D."""
    return base * 2.0 ** (k // 5 + FIVE[k % 5] / 12.0)


def glass(frequency, ring, random=None):
    """A glass bowl struck with a felt hammer."""
    return partials([(frequency, 1, ring), (frequency * 2.0, 0.28, ring * 0.6),
                     (frequency * 2.76, 0.22, ring * 0.4), (frequency * 5.4, 0.09, ring * 0.2)],
                    ring, random, 0.003)


def wood(frequency, ring=0.16):
    """A bar of wood."""
    return partials([(frequency, 1, ring), (frequency * 3.93, 0.30, ring * 0.45),
                     (frequency * 9.2, 0.10, ring * 0.2)], ring, None, 0.0012)


def drop(frequency):
    """A drop that falls into still water and rings near the frequency."""
    return bubble(3.0 / frequency, 0.12)


def over():
    sound = silence(0.3)
    place(sound, 0.8 * drop(step(8)), 0.0)
    place(sound, 0.25 * glass(step(13), 0.2), 0.005)
    return at_peak(one_shot(sound, 80), -12)


def click():
    """A large drop, then a ring at its octave: what is chosen falls in."""
    random = seeded("menu click")
    sound = silence(0.6)
    place(sound, 0.5 * noise(0.03, band(900, 4500, 2), random) * np.exp(-clock(0.03) / 0.005)
          * 0.3, 0.0)
    place(sound, 1.0 * drop(step(2)), 0.002)
    place(sound, 0.6 * drop(step(7)), 0.055)
    place(sound, 0.35 * glass(step(10), 0.4), 0.055)
    return at_peak(one_shot(sound, 80), -7)


def default():
    """What stands in for a sound that wasn't named: a plain tick."""
    return at_peak(one_shot(wood(1174.66, 0.05), 80), -16)


def counter_water(length=3.0):
    """Drops that fill a glass: their pitch rises with the level."""
    random = seeded("counter water")
    sound = silence(length + 0.3)
    ticks = int(length * 11)
    for k in range(ticks):
        share = k / (ticks - 1)
        pitch = step(int(share * 15)) * 2.0 ** (share * 0.15)
        place(sound, (0.6 + 0.2 * (k % 2 == 0) + 0.9 * share) * drop(pitch), k * length / ticks)
        if k % 2 == 0:
            place(sound, 0.14 * glass(step(5 + int(share * 15)), 0.18), k * length / ticks)
        if k % 3 == 0:
            place(sound, 0.3 * drop(pitch * random.uniform(1.4, 2.4)), (k + 0.45) * length / ticks)
    return at_loudness(one_shot(sound, 60), -21, -3)


def counter_time(length=2.5):
    """A clockwork that runs down a long time in a short one: two blocks of wood in turn."""
    sound = silence(length + 0.3)
    ticks = int(length * 12)
    for k in range(ticks):
        share = k / (ticks - 1)
        pitch = step(6 if k % 2 == 0 else 5) * 2.0 ** (share * 7 / 12)
        place(sound, (1.0 if k % 4 == 0 else 0.6) * wood(pitch, 0.12), k * length / ticks)
        if k % 4 == 0:
            place(sound, 0.16 * glass(step(10 + int(share * 5)), 0.2), k * length / ticks)
    return at_loudness(one_shot(sound, 60), -22, -3)


def counter_score(length=1.6):
    """Small bells that climb in runs of four, each run a step higher."""
    sound = silence(length + 0.6)
    ticks = int(length * 13.34)
    for k in range(ticks):
        which = 2 * (k // 4) + (k % 4)
        accent = 1.0 if k % 4 == 3 else 0.55
        place(sound, accent * glass(step(5 + which), 0.28), k * length / ticks)
        place(sound, 0.3 * wood(step(5 + which), 0.07), k * length / ticks)
    return at_loudness(one_shot(sound, 60), -22, -3)


def tune(name, notes, length, voices, wet, target):
    """Notes (seconds, step, level, pan) on the voices, in a hall; stereo, ends in silence."""
    random = seeded(name)
    sound = silence(length + 2.5, 2)
    for at, k, level, pan in notes:
        for voice in voices:
            place(sound, level * voice(step(k)), at, pan)
    sound = in_room(sound, room(2.0, 2.0, 0.7, random, channels=2), wet)[:len(clock(length))]
    sound = fade_out(one_shot(sound, 40), 0.6)
    return bent(sound * decibels(target - at_level(sound)), -2.0)


def at_level(sound):
    """Root mean square of the loudest half second, in decibels."""
    power = np.convolve(np.mean(sound ** 2, axis=1), np.ones(22050) / 22050, "valid")
    return 10 * np.log10(power.max())


def swell(frequency):
    """A warm tone under the bells."""
    t = clock(2.2)
    tone = sum(np.sin(2 * np.pi * frequency / 2 * k * d * t) / k ** 2.0
               for k in (1, 2, 3) for d in (0.9985, 1.0015))
    return fade_out(0.22 * tone * rise(2.2, 0.12), 1.8)


def finish():
    run = [(0.085 * i, k, 0.5 + 0.03 * i, -0.5 + i / 9) for i,
           k in enumerate((0, 2, 3, 5, 7, 8, 10, 12))]
    chord = [(0.72, k, 0.75, p) for k, p in ((5, -0.4), (7, 0.4), (8, -0.2), (10, 0.2), (15, 0.0))]
    return tune("finish", run + chord, 3.2,
                (lambda f: glass(f, 1.6), lambda f: 0.4 * drop(f), swell), 0.30, -17)


def high_score():
    first = [(0.0, 5, 0.8, -0.3), (0.16, 5, 0.5, 0.0), (0.32, 7, 0.7, 0.2), (0.48, 8, 0.9, 0.3),
             (0.80, 7, 0.6, -0.2), (0.96, 8, 0.8, 0.1)]
    last = [(1.28, k, 0.75, p) for k, p in ((0, 0.0), (5, -0.4), (8, 0.4), (10, -0.2), (12, 0.3))]
    shine = [(1.45 + 0.07 * i, 10 + k, 0.22, (-1) ** i * 0.6) for i,
             k in enumerate((0, 2, 3, 5, 7, 8, 10))]
    return tune("high score", first + last + shine, 4.4,
                (lambda f: glass(f, 1.8), lambda f: 0.5 * wood(f, 0.3), swell), 0.33, -17)


def loss():
    """The last of the water runs off: gulps that sink, and three tones down."""
    random = seeded("loss")
    gulps = silence(2.2)
    for k in range(7):
        size = 3.6 + 1.5 * k
        place(gulps, (0.9 - 0.08 * k) * bubble(size / 1000, 0.35, 0.3), 0.12 * k + 0.012 * k * k)
        place(gulps, 0.25 * bubble(size * 0.5 / 1000 * random.uniform(0.8, 1.2), 0.3), 0.12 * k
              + 0.05)
    tones = [(0.05, 4, 0.6, -0.3), (0.42, 2, 0.55, 0.2), (0.84, -1, 0.6, 0.0), (0.84, -5, 0.5, 0.0)]
    sound = tune("loss", tones, 2.8, (lambda f: glass(f, 1.2), swell), 0.3, -20)
    place(sound, one_shot(gulps, 50) * decibels(-11) / np.abs(gulps).max(), 0.0, 0.0)
    return bent(fade_out(sound, 0.3), -2.0)


def main():
    for name, sound in (("menu_over", over()), ("menu_click", click()), ("default", default()),
                        ("counter_water", counter_water()), ("counter_time", counter_time()),
                        ("counter_score", counter_score()), ("finish", finish()),
                        ("highscore", high_score()), ("loss", loss())):
        save(name, sound)


if __name__ == "__main__":
    main()
