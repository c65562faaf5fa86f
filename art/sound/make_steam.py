#!/usr/bin/env python3
"""The sounds of steam: water that boils away, and a cloud that hangs in the air."""
import numpy as np

from synth import at_loudness, band, bubble, drift, noise, place, save, seeded, silence


def evaporate(length=3.0):
    """A rolling boil: rising bubbles that burst, and jets of hiss."""
    random = seeded("evaporate")
    sound = silence(length)
    for _ in range(int(length * 70)):
        size = np.exp(random.uniform(np.log(2.0), np.log(11.0)))
        level = 0.12 * size ** 0.6 * random.uniform(0.1, 1) ** 1.5
        place(sound, level * bubble(size / 1000, random.uniform(0.2, 0.6), 0.2),
              random.uniform(0, length))
    for _ in range(int(length * 9)):
        jet = noise(random.uniform(0.12, 0.4), band(1800, 6500, 2), random)
        jet *= np.hanning(len(jet)) ** 1.5
        place(sound, jet * random.uniform(0.06, 0.22), random.uniform(0, length))
    for low, high, level in ((1200, 5000, 0.20), (120, 380, 0.10)):
        swell = 0.5 + 0.5 * drift(length, random, 3, 12)
        sound += level * swell * noise(length, band(low, high, 2), random)
    return at_loudness(sound, -20)


def steam(length=5.0):
    """A soft breath of many vents, each swelling in its own time."""
    random = seeded("steam")
    sound = silence(length)
    for low, high, level in ((400, 1100, 0.5), (900, 2400, 0.45), (2000, 4500, 0.28),
                             (3800, 7500, 0.12)):
        for _ in range(2):
            swell = 0.25 + 0.75 * drift(length, random, 1, 6)
            sound += level * swell * noise(length, band(low, high, 2), random)
    return at_loudness(sound, -23)


if __name__ == "__main__":
    save("evaporate", evaporate())
    save("steam", steam())
