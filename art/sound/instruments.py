"""The instruments of the music, and the band that plays written notes on them.

A note is (beat, name, beats): "F#5" with middle C as C4. Music is written on a ring like all
loops here: notes and echoes that pass the end go on at the start."""
import subprocess

import numpy as np

from synth import (RATE, TARGET, bubble, clock, fade_out, filtered, in_room, partials, place, rise,
                   room, seeded, silence)

STEPS = {"C": 0, "D": 2, "E": 4, "F": 5, "G": 7, "A": 9, "B": 11}


def number(name):
    """The key number of a note, C4 is 60."""
    return STEPS[name[0]] + name.count("#") - name.count("b") + 12 * (int(name[-1]) + 1)


def hertz(name):
    return 440.0 * 2.0 ** ((number(name) - 69) / 12.0)


def string(frequency, seconds, soft):
    """A plucked string; its partials are those of a string pulled at a fifth of its length."""
    t60 = 4.5 * (220.0 / frequency) ** 0.55
    modes = []
    for k in range(1, 26):
        level = abs(np.sin(np.pi * k * 0.2)) / k ** (1.25 + 0.5 * soft)
        stiff = frequency * k * np.sqrt(1 + 0.00012 * k * k)
        modes.append((stiff, level, t60 / (1 + 0.10 * k + 0.012 * k * k)))
    return partials(modes, min(seconds + 1.2, t60), seeded(f"string {frequency:.2f}"), 0.003)


def marimba(frequency, seconds, soft):
    """A bar of rosewood over its tube."""
    ring = 1.3 * (220.0 / frequency) ** 0.5
    modes = [(frequency, 1, ring), (frequency * 3.98, 0.22 * (1.3 - soft), ring * 0.3),
             (frequency * 9.4, 0.07 * (1.2 - soft), ring * 0.12)]
    return partials(modes, min(ring, 2.2), None, 0.0025)


def kalimba(frequency, seconds, soft):
    """A steel tongue on a box."""
    ring = 2.2 * (330.0 / frequency) ** 0.5
    modes = [(frequency, 1, ring), (frequency * 2.0, 0.10, ring * 0.5),
             (frequency * 5.95, 0.12 * (1.3 - soft), ring * 0.16), (frequency * 0.5, 0.06, 0.2)]
    return partials(modes, min(ring, 3.0), None, 0.002)


def bell(frequency, seconds, soft):
    """A bowl of glass; two near partials beat slowly."""
    ring = 4.2 * (440.0 / frequency) ** 0.4
    modes = [(frequency * 0.9993, 0.6, ring), (frequency * 1.0009, 0.5, ring * 0.9),
             (frequency * 2.003, 0.22, ring * 0.6), (frequency * 2.76, 0.13 * (1.3 - soft), ring
                                                     * 0.35),
             (frequency * 5.4, 0.05 * (1.2 - soft), ring * 0.15)]
    return partials(modes, ring, seeded(f"bell {frequency:.2f}"), 0.004)


def bass(frequency, seconds, soft):
    """A round low tone."""
    t = clock(seconds + 0.5)
    tone = sum(np.sin(2 * np.pi * frequency * k * t) * level * np.exp(-t * 0.25 * k)
               for k, level in ((1, 1.0), (2, 0.38), (3, 0.12), (4, 0.04)))
    return fade_out(tone * rise(seconds + 0.5, 0.035), 0.6)


def drop(frequency, seconds, soft):
    """A drop that falls into still water."""
    return bubble(3.0 / frequency, 0.10)


def heart(frequency, seconds, soft):
    """A soft low beat."""
    t = clock(0.35)
    phase = 2 * np.pi * (frequency * t + 0.5 * frequency * 0.03 * (1 - np.exp(-t / 0.03)))
    return fade_out(np.sin(phase) * np.exp(-t / 0.09) * rise(0.35, 0.004), 0.1)


def brush(frequency, seconds, soft):
    """A breath on a drum skin."""
    random = seeded(f"brush {frequency:.1f}")
    t = clock(0.14)
    grain = filtered(random.standard_normal(len(t)),
                     lambda f: np.exp(-(np.log2(np.maximum(f, 1) / 4200) / 0.7) ** 2))
    return 0.9 * grain * (t / 0.02) * np.exp(1 - t / 0.02)


class Choir:
    """Warm pads. Each pitch is a ring of noise-like harmonics, each spread a little around its
    frequency as with many players (the spread-harmonics method of Nasca Octavian Paul); left
    and right have phases of their own."""

    def __init__(self, brightness=1.0, spread=14.0, seconds=6.0):
        self.brightness, self.spread, self.seconds = brightness, spread, seconds
        self.rings = {}

    def ring(self, frequency):
        if frequency in self.rings:
            return self.rings[frequency]
        random = seeded(f"choir {frequency:.2f}")
        count = len(clock(self.seconds))
        f = np.fft.rfftfreq(count, 1.0 / RATE)
        level = np.zeros(len(f))
        for k in range(1, 40):
            centre = frequency * k
            if centre > 9000:
                break
            width = centre * (2.0 ** (self.spread / 1200.0) - 1.0)
            shape = np.exp(-((f - centre) / width) ** 2) / width
            tone = 1.0 / k ** 1.15 / (1 + (centre / (900 * self.brightness)) ** 2)
            level += shape * tone
        ring = np.stack([np.fft.irfft(level * np.exp(2j * np.pi * random.random(len(f))), count)
                         for _ in range(2)], 1)
        self.rings[frequency] = ring / np.sqrt(np.mean(ring ** 2))
        return self.rings[frequency]

    def __call__(self, frequency, seconds, attack=1.2, release=1.8):
        ring = self.ring(frequency)
        count = len(clock(seconds + release))
        start = seeded(f"start {frequency:.2f} {seconds:.2f}").integers(len(ring))
        tone = ring[(start + np.arange(count)) % len(ring)]
        return fade_out(tone * rise(seconds + release, attack)[:, None], release)


class Band:
    """Plays notes into two rings, a dry one and one that goes to the hall."""

    def __init__(self, name, seconds, beat):
        self.random = seeded(name)
        self.seconds, self.beat = seconds, beat
        self.dry, self.wet = silence(seconds, 2), silence(seconds, 2)
        self.kept = {}

    def play(self, voice, notes, level, pan=0.0, wet=0.3, first=0.0, soft=0.5, loose=0.006):
        """The notes, counted from beat `first`; each a little early or late, loud or soft."""
        for beat, name, beats in notes:
            strength = level * self.random.uniform(0.82, 1.0)
            key = (voice, name, round(beats, 3), soft)
            if key not in self.kept:
                self.kept[key] = voice(hertz(name), beats * self.beat, soft)
            at = (first + beat) * self.beat + self.random.uniform(-loose, loose)
            event = self.kept[key] * strength
            place(self.dry, event, at, pan)
            place(self.wet, event * wet, at, pan * 0.7)

    def hold(self, choir, names, first, beats, level, wet=0.35, attack=1.2, release=1.8):
        """A chord on the choir."""
        for name in names:
            tone = choir(hertz(name), beats * self.beat, attack, release)
            tone = tone * level * (hertz(name) / 220.0) ** -0.35
            place(self.dry, tone, first * self.beat)
            place(self.wet, tone * wet, first * self.beat)

    def mix(self, t60=2.8, high=0.9, level=1.0):
        """The piece with its hall."""
        hall = room(t60 * 1.1, t60, high, self.random, delay=0.024, channels=2)
        return self.dry + level * in_room(self.wet, hall, 1.0) - level * self.wet


def pack(path, sound):
    """Writes Ogg Vorbis, the same bytes for the same sound."""
    data = np.clip(sound, -1, 1).astype("<f4").tobytes()
    command = ["ffmpeg", "-v", "error", "-y", "-f", "f32le", "-ar", str(RATE), "-ac", "2", "-i",
               "-",
               "-c:a", "libvorbis", "-q:a", "4", "-map_metadata", "-1", "-fflags", "+bitexact",
               "-flags:a", "+bitexact", str(path)]
    subprocess.run(command, input=data, check=True)


def ogg(name):
    """The path of a piece in the data folder."""
    return TARGET.parent / (name + ".ogg")
