"""The opening film: closed in the real program, and as it ships.

    with_display.sh python3 test_intro.py PROGRAM
"""

import os
import subprocess
import sys
import tempfile
import unittest

from game_driver import ROOT, Driver, wait_for

PROGRAM = sys.argv.pop(1)


def shows_film(game):
    red, green, blue = game.picture().mean((0, 1))
    return red > 150 and green < 60 and blue < 60


class Intro(unittest.TestCase):
    def test_closing_the_window_in_it_ends_the_program(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        film = os.path.join(folder.name, "red.avi")
        subprocess.run(["ffmpeg", "-nostdin", "-loglevel", "error", "-f", "lavfi", "-i",
                        "color=red:s=64x48:r=1000/31:d=30", "-c:v", "mjpeg", "-pix_fmt", "yuvj420p",
                        film], check=True)
        game = Driver(PROGRAM, intro=film)
        self.addCleanup(game.close)
        wait_for(lambda: shows_film(game), "the film")
        subprocess.run(["wmctrl", "-i", "-c", game.window], check=True)
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
