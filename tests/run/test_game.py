"""The real program under a window manager: what a player does with it, and how it looks.

    with_display.sh python3 test_game.py PROGRAM
"""

import os
import sys
import time
import unittest

import numpy
from PIL import Image

from game_driver import Driver, blueness, difference, wait_for, x

PROGRAM = sys.argv.pop(1)
KEPT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "pictures")


class Play(unittest.TestCase):
    def setUp(self):
        self.game = Driver(PROGRAM)
        self.addCleanup(self.game.close)

    def test_water_is_seen_and_keys_tilt_the_level(self):
        wait_for(lambda: blueness(self.game.picture()) > 0.0004, "water on the screen")
        level = self.game.picture()
        self.game.hold("Right", 0.8)
        right = self.game.picture()
        self.assertGreater(difference(level, right), 10, "the right key turned nothing")
        self.game.hold("Left", 1.6)
        self.assertGreater(difference(right, self.game.picture()), 10)

    def test_mouse_tilts_the_level(self):
        wait_for(lambda: blueness(self.game.picture()) > 0.0004, "water on the screen")
        before = self.game.picture()
        x("mousemove", "--window", self.game.window, 400, 300)
        for _ in range(30):
            x("mousemove_relative", 12, 0)
            time.sleep(0.01)
        self.assertGreater(difference(before, self.game.picture()), 10)

    def test_the_empty_console_looks_as_kept(self):
        self.game.toggle_console()
        for line in ("ParticleDraw false", "Pause true", "FreeCamera true"):
            self.game.command(line)
        self.game.command("Clear")
        self.compare("console", self.game.picture())

    def compare(self, name, picture):
        path = os.path.join(KEPT, name + ".png")
        if os.environ.get("VANTREL_KEEP_PICTURES"):
            os.makedirs(KEPT, exist_ok=True)
            Image.fromarray(picture.astype(numpy.uint8)).save(path)
        with Image.open(path) as kept:
            expected = numpy.asarray(kept.convert("RGB")).astype(int)
        self.assertLess(difference(picture, expected), 2.0, name)


if __name__ == "__main__":
    unittest.main(verbosity=2)
