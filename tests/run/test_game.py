"""The real program under a window manager: what a player does with it.

    with_display.sh python3 test_game.py PROGRAM
"""

import sys
import time
import unittest

from game_driver import Driver, blueness, difference, wait_for, x

PROGRAM = sys.argv.pop(1)


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


if __name__ == "__main__":
    unittest.main(verbosity=2)
