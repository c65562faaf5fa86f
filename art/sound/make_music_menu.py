#!/usr/bin/env python3
"""The menus' background, a minute and a half in D: long chords, a few bells and far drops. It
keeps to the five tones that fit over any bar of the play music, since both can sound at once.
It is a sample to the game, hence kept unpacked; nothing of it lies above 8 kHz."""
from instruments import Band, Choir, bass, bell, drop, kalimba, string
from synth import at_loudness, band, filtered, save

BEAT = 0.71875  # 16 chords of 8 beats: 92 seconds
CHORDS = [
    ("D2", "D3 A3 E4 F#4"), ("B1", "B2 F#3 D4 E4"), ("G1", "D3 A3 B3 F#4"), ("D2", "A2 F#3 D4 E4"),
    ("E2", "E3 B3 D4 A4"), ("G1", "D3 B3 F#4 A4"), ("B1", "B2 F#3 A3 D4"), ("A1", "A2 E3 B3 D4"),
    ("D2", "D3 A3 E4 F#4"), ("F#1", "F#2 D3 A3 E4"), ("G1", "D3 A3 B3 E4"), ("E2", "E3 B3 F#4 A4"),
    ("B1", "B2 F#3 D4 E4"), ("G1", "D3 B3 F#4 A4"), ("E2", "E3 B3 D4 F#4"),
    ("A1", "A2 E3 A3 D4 B4"),
]
# One call in two strains, over the chords with these numbers; the rest is left to the room.
STRAINS = {
    0: [(2, "A4", 2), (3, "D5", 2), (4, "E5", 1), (5, "F#5", 3)],
    1: [(1, "E5", 1), (2, "D5", 2), (4, "B4", 4)],
    2: [(3, "A4", 1), (4, "B4", 1), (5, "D5", 3)],
    4: [(2, "B4", 2), (3, "D5", 2), (4, "E5", 1), (5, "A5", 3)],
    5: [(1, "F#5", 2), (3, "E5", 1), (4, "D5", 4)],
    7: [(2, "E5", 2), (4, "D5", 2), (6, "B4", 2)],
    8: [(2, "A4", 2), (3, "D5", 2), (4, "E5", 1), (5, "F#5", 3)],
    9: [(1, "A5", 2), (3, "F#5", 2), (5, "E5", 3)],
    11: [(2, "B5", 2), (4, "A5", 2), (6, "F#5", 2)],
    12: [(1, "E5", 1), (2, "D5", 2), (4, "B4", 4)],
    14: [(2, "D5", 2), (3, "E5", 2), (4, "F#5", 1), (5, "B4", 3)],
}


def main():
    music = Band("menus", len(CHORDS) * 8 * BEAT, BEAT)
    choir = Choir(0.8, 18.0)
    for k, (low, pad) in enumerate(CHORDS):
        first, tones = k * 8, pad.split()
        music.hold(choir, tones, first, 8, 0.026, 0.5, 2.4, 3.2)
        music.play(bass, [(0, low, 7)], 0.07, wet=0.1, first=first)
        rising = [(i + 0.5 * (k % 2), name, 3) for i, name in enumerate(tones)]
        music.play(string, rising, 0.055, -0.3 if k % 2 else 0.3, 0.8, first, 0.9, 0.02)
        for _ in range(2):
            name = str(music.random.choice(["D6", "E6", "A5", "B5", "F#6"]))
            beat = music.random.uniform(0, 8)
            music.play(drop, [(beat, name, 1)], 0.11, music.random.uniform(-0.9, 0.9), 1.2, first)
    for k, notes in STRAINS.items():
        music.play(bell, notes, 0.085, 0.15, 1.1, k * 8, 0.8, 0.015)
        music.play(kalimba, notes[-1:], 0.04, -0.2, 0.9, k * 8, 0.9)
    sound = filtered(music.mix(4.2, 1.1, 0.9), band(34, 6500, 4))
    sound = at_loudness(sound, -21.0, -2.0)
    save("menu_loop", sound, 16000)


if __name__ == "__main__":
    main()
