"""The opening film in the real program: seen to its end, and closed.

    with_display.sh python3 test_intro.py PROGRAM
"""

import os
import subprocess
import sys
import tempfile
import time
import unittest

from game_driver import ROOT, Driver, wait_for

PROGRAM = sys.argv.pop(1)
# Longer than any test waits for, unless it waits for the end.
SECONDS = 30


def make_film(folder, seconds):
    """A red film, as quick as the shipped one."""
    path = os.path.join(folder, f"red{seconds}.avi")
    if not os.path.exists(path):
        subprocess.run(["ffmpeg", "-nostdin", "-loglevel", "error", "-f", "lavfi", "-i",
                        f"color=red:s=64x48:r=1000/31:d={seconds}", "-c:v", "mjpeg",
                        "-pix_fmt", "yuvj420p", path], check=True)
    return path


def shows_film(game):
    red, green, blue = game.picture().mean((0, 1))
    return red > 150 and green < 60 and blue < 60


class Intro(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def start(self, seconds=SECONDS):
        game = Driver(PROGRAM, intro=make_film(self.folder.name, seconds))
        self.addCleanup(game.close)
        wait_for(lambda: shows_film(game), "the film")
        self.assertNotIn("Game initialisation", game.log())
        return game

    def test_goes_on_to_the_game_at_its_end(self):
        begin = time.time()
        game = self.start(seconds=3)
        game.await_level()
        self.assertGreater(time.time() - begin, 3.0)
        self.assertNotIn("AVI", game.log())
        wait_for(lambda: not shows_film(game), "the game's picture")

    def test_closing_the_window_in_it_ends_the_program(self):
        game = self.start()
        self.assertEqual(subprocess.run(["wmctrl", "-i", "-c", game.window],
                                        check=False).returncode, 0)
        self.assertEqual(game.process.wait(timeout=20), 0)
        self.assertNotIn("Game initialisation", game.log())


class ShippedFilm(unittest.TestCase):
    def entries(self, name, *entries):
        path = os.path.join(ROOT, "data", "vid", name)
        return subprocess.run(["ffprobe", "-v", "error", "-show_entries", *entries, "-of",
                               "csv=p=0", path], capture_output=True, text=True,
                              check=True).stdout.strip()

    def test_is_as_long_as_its_sound(self):
        """Frames are on the screen for a thirtieth of a second, whatever the header says."""
        frames = int(self.entries("intro.avi", "stream=nb_frames"))
        self.assertEqual(self.entries("intro.avi", "stream=time_base"), "29/1000")
        self.assertAlmostEqual(frames / 30.0, float(self.entries("intro.ogg", "format=duration")),
                               delta=0.2)
        self.assertLess(os.path.getsize(os.path.join(ROOT, "data/vid/intro.avi")), 12 << 20)


if __name__ == "__main__":
    unittest.main(verbosity=2)
