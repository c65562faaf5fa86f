"""Holds the shipped sounds and music to what a listener expects: everything that the settings
name is there, nothing clips, nothing clicks at its ends, and levels match."""
import pathlib
import subprocess
import sys
import unittest
import wave

import numpy as np

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "art" / "sound"))
from synth import RATE, decibels, loudness  # noqa: E402

SOUNDS = ROOT / "data" / "snd"
LOOP_KEYS = {"watersound_ambient", "icesound_freeze", "icesound_friction", "steamevaporate",
             "steamambient", "menubgsound"}


def named():
    """(settings file, key, path) for every value in the settings that names a sound."""
    for settings in sorted((ROOT / "data" / "cfg").glob("*.cfg")):
        words = settings.read_text().replace("=", " ").split()
        for key, value in zip(words[::2], words[1::2]):
            if value.lower().endswith((".wav", ".ogg")):
                yield settings.name, key.lower(), ROOT / "data" / value.replace("\\", "/")


def sample(path):
    with wave.open(str(path)) as file:
        data = np.frombuffer(file.readframes(file.getnframes()), "<i2") / 32768.0
        return data.reshape(-1, file.getnchannels()), file


def music(path):
    command = ["ffmpeg", "-v", "error", "-i", str(path), "-ac", "2", "-ar", str(RATE), "-f",
               "f32le", "-"]
    data = subprocess.run(command, check=True, capture_output=True).stdout
    return np.frombuffer(data, "<f4").reshape(-1, 2)


def loops():
    paths = {path for _, key, path in named() if key in LOOP_KEYS}
    return sorted(paths | set(SOUNDS.glob("place_*.wav")))


class Sounds(unittest.TestCase):
    def check_levels(self, sound):
        self.assertLess(np.abs(sound).max(), decibels(-1))
        self.assertLess(np.abs(sound.mean(axis=0)).max(), 0.002)

    def check_seam(self, sound):
        """The step from the end to the start is no larger than steps in the sound are."""
        step = np.abs(np.diff(sound, axis=0))
        self.assertLess(np.abs(sound[0] - sound[-1]).max(), 1.5 * np.quantile(step, 0.995) + 1e-4)

    def test_everything_the_settings_name_is_there(self):
        found = list(named())
        self.assertGreater(len(found), 30)
        for settings, key, path in found:
            with self.subTest(settings=settings, key=key):
                self.assertTrue(path.is_file(), path)

    def test_samples_are_plain_and_within_bounds(self):
        self.assertGreaterEqual(len(list(SOUNDS.glob("place_*.wav"))), 8)
        for path in sorted(SOUNDS.glob("*.wav")):
            with self.subTest(path=path.name):
                sound, file = sample(path)
                self.assertEqual(file.getsampwidth(), 2)
                placed = path.name.startswith(("place", "water", "ice", "freeze", "steam",
                                               "evaporate"))
                self.assertEqual(file.getnchannels(), 1 if placed else file.getnchannels())
                self.assertIn(file.getframerate(), (RATE, 16000))
                self.check_levels(sound)

    def test_sounds_that_play_once_begin_and_end_in_silence(self):
        for path in sorted(set(SOUNDS.glob("*.wav")) - set(loops())):
            with self.subTest(path=path.name):
                sound, _ = sample(path)
                self.assertLess(np.abs(sound[:4]).max(), 0.02)
                self.assertLess(np.abs(sound[-4:]).max(), 0.001)

    def test_loops_have_no_seam_and_match_in_loudness(self):
        for path in loops():
            with self.subTest(path=path.name):
                sound, file = sample(path)
                self.check_seam(sound)
                if file.getframerate() == RATE:
                    self.assertAlmostEqual(loudness(sound), -20, delta=3.1)

    def test_music_loops_without_a_click(self):
        for name in ("music_play.ogg", "menu_loop.wav"):
            with self.subTest(name=name):
                sound = music(SOUNDS / name)
                self.assertGreaterEqual(len(sound), 90 * RATE)
                self.check_levels(sound)
                self.check_seam(sound)
                self.assertAlmostEqual(loudness(sound), -19.5, delta=2.5)


if __name__ == "__main__":
    unittest.main()
