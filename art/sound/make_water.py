#!/usr/bin/env python3
"""The water's own sounds: splashes in three strengths and the murmur of a body of water."""
import numpy as np

from synth import (at_loudness, at_peak, band, bubble, clock, drift, fade_out, noise, one_shot,
                   partials,
                   place, rise, save, seeded, silence)

# strength: bubbles, radii in mm, spread in s, share of spray, its top in hertz, thump, peak in dBFS
STRENGTHS = {
    "soft": dict(bubbles=6, radii=(0.9, 3.2), spread=0.13, spray=0.10, top=3500, thump=0.0,
                 peak=-13),
    "mid": dict(bubbles=22, radii=(0.9, 6.0), spread=0.30, spray=0.34, top=5200, thump=0.25,
                peak=-7),
    "hard": dict(bubbles=64, radii=(0.8, 9.5), spread=0.62, spray=0.75, top=7500, thump=0.8,
                 peak=-2),
}


def spray(length, top, random):
    """Torn water: a burst whose bright part dies sooner than its dark part."""
    t = clock(length)
    sound = np.zeros(len(t))
    for share, low, high in ((1.0, 250, 1100), (0.8, 900, top * 0.6), (0.55, 2200, top)):
        decay = length * (0.26 - 0.05 * (high / 3500))
        body = np.exp(-t / max(decay, 0.02)) * rise(length, 0.004 + 0.012 * share)
        grain = 0.55 + 0.45 * np.abs(noise(length, band(20, 160, 1), random))
        sound += share * noise(length, band(low, high, 2), random) * body * grain
    return fade_out(sound, 0.6 * length)


def thump(random):
    """The hollow that a heavy body of water tears into the surface, closing."""
    low = bubble(0.017 * random.uniform(0.85, 1.2), 0.25)
    deep = partials([(random.uniform(62, 80), 1.0, 0.28)], 0.35, attack=0.006)
    deep[:len(low)] += 0.8 * low[:len(deep)]
    return deep


def splash(strength, random):
    s = STRENGTHS[strength]
    sound = silence(s["spread"] * 2.2 + 0.5)
    place(sound, s["spray"] * 0.35 * spray(s["spread"] * 1.6 + 0.06, s["top"], random), 0.0)
    if s["thump"]:
        place(sound, s["thump"] * thump(random), 0.004)
    low, high = np.log(s["radii"][0]), np.log(s["radii"][1])
    for k in range(s["bubbles"]):
        # Large bubbles close first; the small ones are droplets that fall back.
        late = random.beta(1.1, 2.6)
        size = np.exp(low + (high - low) * np.clip(random.beta(1.6, 2.0) * (1.25 - 0.7 * late), 0,
                                                   1))
        level = (size / s["radii"][1]) ** 0.7 * random.uniform(0.3, 1.0) * (1.0 - 0.6 * late)
        when = 0.0 if k == 0 else late * s["spread"] * 1.9
        place(sound, level * 0.7 * bubble(size / 1000, random.uniform(0.05, 0.22)), when)
    return one_shot(at_peak(sound, s["peak"]), 40)


def ambience(length=6.0):
    """A quiet stream: many small bubbles over a soft rush that wanders."""
    random = seeded("water ambience")
    sound = silence(length)
    for _ in range(int(length * 62)):
        size = np.exp(random.uniform(np.log(1.2), np.log(5.5)))
        level = 0.25 * size ** 0.5 * random.uniform(0.1, 1.0) ** 3
        place(sound, level * bubble(size / 1000, random.uniform(0.0, 0.25)),
              random.uniform(0, length))
    for low, high, level in ((140, 420, 0.045), (350, 1000, 0.04), (900, 2600, 0.016)):
        sound += level * noise(length, band(low, high, 2), random) * (0.5 + drift(length, random))
    return at_loudness(sound, -18)


def main():
    for strength in STRENGTHS:
        for variation in range(1, 5):
            name = f"water_splash_{strength}{variation}"
            random = seeded(name)
            sound = splash(strength, random)
            save(name, at_peak(sound, STRENGTHS[strength]["peak"]))
    save("water_ambience", ambience())


if __name__ == "__main__":
    main()
