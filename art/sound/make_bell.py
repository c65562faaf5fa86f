#!/usr/bin/env python3
"""The great bell of the clock tower: three strokes, played once."""
from synth import at_loudness, fade_out, in_room, one_shot, partials, place, room, save, seeded, silence

STRIKE = 196.0  # hertz of the note that is heard; the hum lies an octave below


def stroke(random):
    """The partials of a tuned church bell: hum, prime, minor third, fifth, nominal and above.
    Each sounds twice, a little apart, since no bell is quite round."""
    modes = []
    for ratio, level, ring in ((0.5, 0.8, 6.0), (1.0, 0.7, 4.2), (1.2, 0.9, 3.4), (1.5, 0.3, 2.2),
                               (2.0, 1.0, 2.6), (2.5, 0.35, 1.5), (3.0, 0.35, 1.2),
                               (4.05, 0.3, 0.8), (5.3, 0.2, 0.5), (6.7, 0.12, 0.35)):
        modes += [(STRIKE * ratio, level, ring), (STRIKE * ratio * 1.0017, level * 0.7, ring)]
    return partials(modes, 5.0, random, 0.002)


def main():
    random = seeded("bell")
    sound = silence(8.0)
    for at, force in ((0.0, 1.0), (1.5, 0.9), (3.0, 1.0)):
        place(sound, force * stroke(random)[:int(len(sound) * 0.6)], at)
    sound = in_room(sound, room(1.6, 2.6, 1.0, random), 0.25)
    save("bell", one_shot(fade_out(at_loudness(sound, -18, -3), 1.5)))


if __name__ == "__main__":
    main()
