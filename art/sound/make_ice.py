#!/usr/bin/env python3
"""The sounds of ice: knocks in three strengths, grinding along a wall, and water freezing."""
import numpy as np

from synth import (at_loudness, at_peak, band, clock, drift, noise, one_shot, partials, peak_at,
                   place, rise, save, seeded, silence)

# strength: lowest partial in hertz, number of partials, seconds of ring, click, body, peak in dBFS
STRENGTHS = {
    "soft": dict(base=1150, count=7, ring=0.13, click=0.10, body=0.0, peak=-13),
    "mid": dict(base=900, count=10, ring=0.22, click=0.22, body=0.35, peak=-7),
    "hard": dict(base=720, count=13, ring=0.38, click=0.40, body=0.9, peak=-2),
}


def plate(base, count, ring, random):
    """The partials of a lump: unevenly spread, the higher the weaker and shorter."""
    modes, frequency = [], base * random.uniform(0.9, 1.15)
    for k in range(count):
        level = random.uniform(0.45, 1.0) / (1 + 0.34 * k)
        modes.append((frequency, level, ring * random.uniform(0.6, 1.2) / (1 + 0.10 * k)))
        frequency *= random.uniform(1.11, 1.38)
        if frequency > 6500:
            frequency = base * random.uniform(1.3, 4.0)
    return modes


def click(length, random):
    t = clock(length)
    snap = noise(length, band(1500, 6500, 2), random) * np.exp(-t / (length / 6))
    return snap * rise(length, 0.0006)


def knock(strength, random):
    s = STRENGTHS[strength]
    sound = silence(s["ring"] * 1.5 + 0.25)
    blows = {"soft": 1, "mid": 1, "hard": 2}[strength]
    for blow in range(blows):
        at, level = (0.0, 1.0) if blow == 0 else (random.uniform(0.035, 0.075), 0.4)
        modes = plate(s["base"], s["count"], s["ring"], random)
        place(sound, level * partials(modes, s["ring"] * 1.2, random, 0.0006), at)
        place(sound, level * s["click"] * click(0.03, random), at)
    if s["body"]:
        low = [(random.uniform(150, 210), 1.0, 0.09), (random.uniform(300, 390), 0.6, 0.07)]
        place(sound, s["body"] * partials(low, 0.14, None, 0.001), 0.0)
    for _ in range({"soft": 1, "mid": 4, "hard": 9}[strength]):  # splinters
        chip = partials([(random.uniform(3000, 6000), 1, 0.03),
                         (random.uniform(2200, 5200), 0.7, 0.04)], 0.05)
        place(sound, chip * random.uniform(0.04, 0.16),
              random.uniform(0.02, 0.08 + s["ring"] * 0.6))
    return one_shot(sound, 60)


def grind(length=4.0):
    """Ice that slides on stone: a rough scrape with a few resonances and small catches."""
    random = seeded("ice grind")
    rough = noise(length, band(25, 130, 1), random)
    rough = np.clip(0.45 + 0.4 * rough, 0, None) * (0.6 + 0.4 * drift(length, random, 2, 9))
    sound = np.zeros(len(rough))
    for centre, width, level in ((380, 0.5, 0.9), (820, 0.35, 0.7), (1450, 0.3, 0.5),
                                 (2500, 0.4, 0.3), (4200, 0.5, 0.10)):
        wander = 0.35 + 0.65 * drift(length, random, 2, 7)
        sound += level * wander * noise(length, peak_at(centre, width), random)
    sound *= rough
    shove = 0.5 + 0.5 * drift(length, random, 3, 11)
    sound += 0.35 * noise(length, band(70, 200, 2), random) * shove
    for _ in range(int(length * 11)):
        catch = partials(plate(900, 6, 0.06, random), 0.08, random)
        place(sound, catch * random.uniform(0.05, 0.35), random.uniform(0, length))
    return at_loudness(sound, -19)


def freeze(length=3.0):
    """Crystals that shoot through water: crackle and glassy glints over a cold breath."""
    random = seeded("freeze")
    breath = 0.4 + 0.6 * drift(length, random, 2, 8)
    sound = 0.05 * noise(length, band(2500, 7000, 2), random) * breath
    for _ in range(int(length * 75)):  # crackle, in bursts
        at = random.uniform(0, length)
        at += 0.06 * np.sin(2 * np.pi * at / length * 9)
        snap = click(random.uniform(0.004, 0.014), random)
        place(sound, snap * 0.4 * random.uniform(0.05, 1) ** 2, at)
    scale = 587.33 * 2.0 ** (np.array([0, 2, 4, 7, 9, 12, 14, 16, 19, 21]) / 12)  # D, five tones
    for _ in range(int(length * 17)):
        f = random.choice(scale) * 2 * random.uniform(0.995, 1.005)
        glint = partials([(f, 1, 0.5), (f * 2.76, 0.35, 0.25), (f * 5.4, 0.12, 0.1)], 0.5, random,
                         0.002)
        place(sound, glint * 0.13 * random.uniform(0.15, 1), random.uniform(0, length))
    for _ in range(int(length * 6)):  # the lump tightens
        creak = partials(plate(420, 7, 0.16, random), 0.2, random, 0.004)
        place(sound, creak * 0.16 * random.uniform(0.3, 1), random.uniform(0, length))
    return at_loudness(sound, -20, -4)


def main():
    for strength in STRENGTHS:
        for variation in range(1, 5):
            name = f"ice_knock_{strength}{variation}"
            save(name, at_peak(knock(strength, seeded(name)), STRENGTHS[strength]["peak"]))
    save("ice_grind", grind())
    save("freeze", freeze())


if __name__ == "__main__":
    main()
