#!/usr/bin/env python3
"""The music of play, two minutes in D: plucked figures flow over pads like water over steps,
in five parts of eight bars. Part 1 enters, 2 has the tune, 3 answers in B minor, 4 rests on
bells and lends a chord from D mixolydian, 5 brings the tune back with a second voice."""
from instruments import (Band, Choir, bass, bell, brush, drop, heart, kalimba, marimba, number, ogg,
                         pack, string)
from synth import at_loudness, band, filtered

BEAT = 0.75  # 80 a minute
BARS = 40

# name: (bass, pad, tones for the figures, low to high)
CHORDS = {
    "D": ("D2", "D3 A3 E4 F#4", "A3 D4 E4 F#4 A4 D5 E5"),
    "Bm": ("B1", "B2 F#3 A3 D4", "B3 D4 F#4 A4 B4 D5 F#5"),
    "G": ("G1", "G2 D3 B3 F#4", "B3 D4 F#4 G4 B4 D5 F#5"),
    "A4": ("A1", "A2 E3 B3 D4", "A3 D4 E4 A4 B4 D5 E5"),
    "A": ("A1", "A2 E3 C#4 B3", "A3 C#4 E4 A4 B4 C#5 E5"),
    "F#m": ("F#1", "F#2 C#3 A3 E4", "A3 C#4 E4 F#4 A4 C#5 E5"),
    "Em": ("E2", "E3 B3 D4 G4", "B3 D4 E4 G4 B4 D5 E5"),
    "D/F#": ("F#1", "F#2 D3 A3 E4", "A3 D4 E4 F#4 A4 D5 E5"),
    "C": ("C2", "C3 G3 B3 E4", "G3 B3 D4 E4 G4 B4 D5"),
    "G/B": ("B1", "B2 D3 G3 A3", "B3 D4 G4 A4 B4 D5 G5"),
}
TUNE_CHORDS = ["D", "Bm", "G", "A4", "D", "F#m", "G", "A4"]
PARTS = [TUNE_CHORDS, TUNE_CHORDS,
         ["Bm", "G", "D/F#", "A", "Bm", "G", "Em", "A4"],
         ["G", "D/F#", "Em", "Bm", "C", "G/B", "Em", "A4"],
         TUNE_CHORDS]

# Figures over eight quavers, as places in the chord's tones; None rests.
FLOW = ((0, 2, 4, 3, 5, 4, 2, 3), (0, 3, 5, 4, 6, 4, 3, 1))
SPARSE = ((0, None, 3, None, 5, None, 4, None), (None, 2, None, 4, None, 6, None, 3))
SKIP = ((0, None, None, 3, None, None, 4, None), (0, None, None, 2, None, 4, None, 5))
STEPS = ((6, 5, 4, 3, 4, 3, 2, 1), (5, 4, 3, 2, 4, 3, 1, 0))


def written(text):
    """Bars of "beat note beats" triples, parted by "|", four beats each."""
    notes = []
    for bar, part in enumerate(text.split("|")):
        words = part.split()
        for beat, name, beats in zip(words[::3], words[1::3], words[2::3]):
            notes.append((bar * 4 + float(beat), name, float(beats)))
    return notes


TUNE = written("""0 F#5 1.5  1.5 E5 .5  2 D5 1  3 A4 1 | .5 B4 .5  1 D5 1.5  2.5 E5 1.5
    | 0 D5 1.5  1.5 B4 .5  2 A4 2 | 1 G4 .5  1.5 A4 .5  2 B4 1  3 E5 1
    | 0 F#5 1.5  1.5 A5 .5  2 E5 2 | .5 C#5 .5  1 E5 1  2 F#5 .5  2.5 E5 1.5
    | 0 D5 1  1 E5 .5  1.5 F#5 .5  2 B4 2 | 0 A4 1  1.5 B4 .5  2 D5 2""")
ANSWER = written("""0 D5 2  2.5 C#5 .5  3 B4 1 | 0 B4 1.5  1.5 D5 .5  2 G5 1.5  3.5 F#5 .5
    | 0 F#5 2  2 D5 1  3 E5 1 | 0 E5 1.5  1.5 C#5 .5  2 A4 2
    | 0 D5 1  1 E5 .5  1.5 F#5 1  2.5 A5 1.5 | 0 G5 1  1 F#5 .5  1.5 D5 1  2.5 B4 1.5
    | 0 E5 2  2.5 G5 .5  3 F#5 .5  3.5 E5 .5 | 0 D5 2  2 E5 2""")
REST = written("""0 B5 2  2 A5 2 | 0 F#5 3  3 E5 1 | 0 G5 2  2 F#5 2 | 0 D5 4
    | 0 E5 1  1 G5 1  2 B5 2 | 0 A5 2  2 G5 1  3 D5 1
    | 0 F#5 1.5  1.5 E5 .5  2 B4 2 | 0 D5 2  2 E5 2""")
SECOND = written("""2 F#4 .5  2.5 A4 1.5 | 0 F#4 1  2 B3 1  3 D4 1 | 2 D4 .5  2.5 G4 .5  3 F#4 1
    | 0 E4 1.5  2 D4 2 | 2 D4 .5  2.5 F#4 1.5 | 0 A4 1  2 C#4 2
    | 2.5 G4 .5  3 F#4 1 | 0 E4 2  2 B4 1  3 A4 1""")


def figure(chord, pattern, length=0.5):
    tones = CHORDS[chord][2].split()
    return [(i * 0.5, tones[k], length) for i, k in enumerate(pattern) if k is not None]


def accompany(band_, choir):
    for part, chords in enumerate(PARTS):
        for bar, chord in enumerate(chords):
            first = (part * 8 + bar) * 4
            low, pad, _ = CHORDS[chord]
            names = [n for n in pad.split() if number(n) >= number("F#2")]
            band_.hold(choir, names, first, 4, (0.014, 0.014, 0.015, 0.017, 0.015)[part])
            if part in (1, 2, 4):
                band_.play(bass, [(0, low, 1.4), (2.5, low, 1.2)], 0.105, wet=0.05, first=first)
            elif part == 3 or bar >= 4:
                band_.play(bass, [(0, low, 3.4)], 0.085, wet=0.05, first=first)
            flow = SPARSE if part == 0 and bar < 2 else FLOW
            if part != 3:
                band_.play(string, figure(chord, flow[bar % 2]),
                           (0.10, 0.085, 0.06, 0, 0.085)[part],
                           -0.35, 0.35, first)
            else:
                band_.play(string, figure(chord, SPARSE[bar % 2], 1), 0.11, -0.3, 0.6, first, 0.6)
            if part in (2, 4) or (part == 1 and bar >= 4):
                pattern = SKIP[bar % 2] if part != 2 else STEPS[bar % 2]
                band_.play(marimba, figure(chord, pattern), 0.10 if part == 2 else 0.085, 0.4, 0.3,
                           first)


def pulse(band_):
    """A heartbeat, brushes on the off-beats, and drops in the pentatonic scale here and there."""
    for bar in range(BARS):
        part, first = bar // 8, bar * 4
        if part in (1, 2, 4):
            band_.play(heart, [(0, "G1", 1), (2.5, "G1", 1)], 0.16, wet=0.05, first=first,
                       loose=0.003)
            off = [(k + 0.5, "A4", 1) for k in range(4)]
            if bar % 4 == 3:
                off.append((3.75, "B4", 1))
            band_.play(brush, off, 0.055, 0.25, 0.3, first)
        for _ in range((2, 1, 1, 3, 1)[part]):
            name = band_.random.choice(["A5", "B5", "D6", "E6", "F#6", "D5"])
            beat = band_.random.integers(0, 16) / 4
            band_.play(drop, [(beat, str(name), 1)], 0.12, band_.random.uniform(-0.8, 0.8), 0.9,
                       first)


def tunes(band_):
    second_half = [n for n in TUNE if n[0] >= 16]
    band_.play(kalimba, second_half, 0.12, 0.1, 0.5, 0)
    band_.play(kalimba, TUNE, 0.15, 0.1, 0.4, 32)
    band_.play(bell, ANSWER, 0.11, 0.15, 0.6, 64)
    band_.play(string, ANSWER, 0.075, 0.0, 0.4, 64)
    band_.play(bell, REST, 0.14, 0.1, 0.9, 96)
    band_.play(kalimba, TUNE, 0.14, 0.1, 0.4, 128)
    band_.play(bell, [n for n in TUNE if n[2] >= 1.5], 0.045, 0.3, 0.9, 128)
    band_.play(string, SECOND, 0.10, -0.15, 0.4, 128)


def main():
    music = Band("play", BARS * 4 * BEAT, BEAT)
    accompany(music, Choir())
    tunes(music)
    pulse(music)
    sound = filtered(music.mix(2.6, 0.8, 0.8), band(32, 14000, 2))
    pack(ogg("snd/music_play"), at_loudness(sound, -18.0, -2.0))


if __name__ == "__main__":
    main()
