#!/usr/bin/env python3
"""Sounds that are placed in levels: all loop, so that they can be heard for as long as the
camera is near. They are matched to one loudness; distance makes them quieter."""
import numpy as np

from synth import (at_loudness, band, bubble, clock, drift, fade_out, in_room, noise, partials,
                   peak_at, place, room, save, seeded, silence, whole)

LOUDNESS = -20


def hum(length, frequency, levels, random):
    """A steady tone with its overtones."""
    t = clock(length)
    base = whole(frequency, length)
    return sum(level * np.sin(2 * np.pi * (base * k * t + random.random()))
               for k, level in enumerate(levels, 1))


def clank(frequency, ring, random):
    """Iron on iron."""
    modes = [(frequency * r, 1 / (1 + i * 0.6), ring / (1 + 0.25 * i))
             for i, r in enumerate((1, 1.58, 2.24, 2.92, 3.47, 4.6, 5.9))]
    return partials(modes, ring * 1.1, random, 0.0008)


def puff(length, low, high, random, sharp=0.1):
    """A stroke of air."""
    t = np.linspace(0, 1, len(clock(length)))
    return noise(length, band(low, high, 2), random) * t ** sharp * (1 - t) ** 2


def machine(random, length=4.0):
    """An engine: a hum, eight strokes and the clank of a rod on every second."""
    sound = 0.20 * hum(length, 50, (1, 0.7, 0.5, 0.35, 0.2, 0.16, 0.1, 0.06), random)
    sound *= 0.75 + 0.25 * np.cos(2 * np.pi * 2 * clock(length))
    for beat in range(8):
        place(sound, partials([(72, 1, 0.2), (118, 0.6, 0.15), (190, 0.3, 0.1)], 0.25, None,
                              0.006), beat / 2)
        place(sound, 0.09 * puff(0.22, 400, 2200, random), beat / 2 + 0.2)
        if beat % 2:
            place(sound, 0.16 * clank(430 + 12 * (beat % 4), 0.25, random), beat / 2 + 0.03)
    return sound + 0.03 * noise(length, band(200, 1400, 2), random)


def pump(random, length=4.5):
    """A piston that draws, presses and lets its valve fall; water moves in the pipe."""
    sound = 0.04 * noise(length, band(100, 500, 2), random)
    for k in range(3):
        at = k * length / 3
        place(sound, 0.20 * puff(0.65, 180, 900, random, 1.0), at)
        place(sound, partials([(58, 1, 0.3), (96, 0.5, 0.2)], 0.35, None, 0.008), at + 0.68)
        place(sound, 0.26 * puff(0.5, 350, 1900, random, 0.15), at + 0.72)
        place(sound, 0.22 * clank(620, 0.12, random), at + 1.22)
        for _ in range(16):
            place(sound, 0.35 * bubble(random.uniform(4, 10) / 1000, 0.3, 0.2)
                  * random.uniform(0.2, 1),
                  at + random.uniform(0.75, 1.3))
    return sound


def drip(random, length=6.0):
    """Single drops in a cave."""
    sound = silence(length)
    times = [0.2, 1.05, 1.9, 2.2, 3.1, 3.95, 4.5, 5.35]
    for at in times:
        size = random.choice([1.6, 2.0, 2.4, 3.0]) / 1000 * random.uniform(0.95, 1.05)
        place(sound, bubble(size, 0.08), at)
        place(sound, 0.5 * bubble(size * 0.62, 0.2), at + 0.035)
        place(sound, 0.25 * bubble(size * 0.4, 0.3), at + random.uniform(0.06, 0.1))
    return in_room(sound, room(2.2, 2.4, 0.9, random), 0.55)


def wind(random, length=6.0):
    """Wind round a corner: bands that swell each in its own time, and a faint whistle."""
    sound = silence(length)
    for centre in (130, 230, 380, 600, 900, 1400):
        swell = drift(length, random, 1, 4) ** 1.6
        swell += 0.12
        sound += (centre / 130) ** -0.55 * swell * noise(length, peak_at(centre, 0.32), random)
    for centre in (520, 780):
        swell = drift(length, random, 1, 5) ** 3
        sound += 0.22 * swell * noise(length, peak_at(centre, 0.035), random)
    return sound


def rumble(random, length=6.0):
    """The deep: felt more than heard, with stones that settle."""
    sound = noise(length, band(28, 75, 3), random) * (0.5 + 0.5 * drift(length, random, 1, 5))
    heave = 0.3 + 0.7 * drift(length, random, 1, 6)
    sound += 0.45 * heave * noise(length, band(80, 190, 3), random)
    for _ in range(9):
        f = random.uniform(70, 160)
        stone = partials([(f, 1, 0.3), (f * 1.7, 0.6, 0.2), (f * 2.6, 0.35, 0.12)], 0.35, random,
                         0.01)
        place(sound, random.uniform(0.4, 1.4) * stone, random.uniform(0, length))
    return sound


def furnace(random, length=5.0):
    """A roar that flutters, and the crack of embers."""
    flutter = 0.6 + 0.4 * drift(length, random, 12, 45)
    sound = noise(length, band(45, 220, 2), random) * flutter
    for low, high, level, slow, fast in ((250, 900, 0.30, 8, 40), (1200, 4500, 0.05, 3, 30)):
        lick = 0.4 + 0.6 * drift(length, random, slow, fast)
        sound += level * lick * noise(length, band(low, high, 2), random)
    for _ in range(int(length * 9)):
        ember = noise(random.uniform(0.006, 0.02), band(1200, 5000, 2), random)
        ember *= np.exp(-np.linspace(0, 6, len(ember)))
        place(sound, random.uniform(0.1, 1.0) ** 2 * 1.3 * fade_out(ember, 0.002),
              random.uniform(0, length))
    return sound


def gears(random, length=4.0):
    """Wooden cogs with an iron tooth: 28 teeth a turn, one of them worn."""
    sound = 0.03 * noise(length, band(150, 700, 2), random)
    teeth = 28
    for k in range(teeth):
        at = (k + random.uniform(-0.04, 0.04)) * length / teeth
        pitch = 330 * (1.0 if k % 2 else 1.12) * random.uniform(0.98, 1.02)
        knock = partials([(pitch, 1, 0.09), (pitch * 2.6, 0.5, 0.06), (pitch * 4.1, 0.3, 0.04),
                          (pitch * 7.3, 0.12, 0.03)], 0.11, random, 0.001)
        place(sound, (1.3 if k % 7 == 0 else 0.7) * knock, at)
        if k % 7 == 0:
            place(sound, 0.22 * clank(880, 0.3, random), at + 0.01)
        place(sound, 0.10 * puff(0.07, 700, 2600, random), at + 0.05)
    creak = 0.05 * hum(length, 240, (1, 0.7, 0.5, 0.3), random) * drift(length, random, 2, 6) ** 4
    return sound + creak


def fan(random, length=4.0):
    """Blades that cut the air 18 times a second, over the motor's hum."""
    t = clock(length)
    blades = 0.5 + 0.5 * np.cos(2 * np.pi * whole(18, length) * t)
    sound = noise(length, band(110, 520, 2), random) * (0.35 + 0.65 * blades ** 2)
    wake = 0.5 + 0.5 * np.roll(blades, 700) ** 3
    sound += 0.35 * wake * noise(length, band(500, 2600, 2), random)
    turn = 0.85 + 0.15 * np.cos(2 * np.pi * whole(4.5, length) * t)
    return (sound + 0.30 * hum(length, 96, (1, 0.5, 0.35, 0.15), random)) * turn


def surf(random, length=8.0):
    """Two waves that roll in, break and draw back over pebbles."""
    sound = 0.10 * noise(length, band(120, 700, 2), random)
    t = clock(length)
    for start, size in ((0.0, 1.0), (4.3, 0.75)):
        u = (t - start) % length
        body = np.interp(u, [0, 1.1, 1.5, 2.2, 4.2, length], [0, 0.55, 1.0, 0.55, 0, 0]) ** 1.5
        bright = np.interp(u, [0, 1.2, 1.6, 3.0, 4.6, length], [0, 0.2, 1.0, 0.5, 0, 0]) ** 1.7
        sound += size * (body * noise(length, band(130, 900, 2), random)
                         + 0.42 * bright * noise(length, band(900, 5200, 2), random))
        for _ in range(150):
            late = random.uniform(1.4, 4.4)
            drop = bubble(random.uniform(1.0, 3.5) / 1000, 0.15)
            place(sound, size * 0.5 * random.uniform(0.05, 1) ** 2 * drop, start + late)
    return sound


def main():
    for voice in (machine, pump, drip, wind, rumble, furnace, gears, fan, surf):
        sound = voice(seeded("place " + voice.__name__))
        save("place_" + voice.__name__, at_loudness(sound, LOUDNESS, -3))


if __name__ == "__main__":
    main()
