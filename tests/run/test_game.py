"""The real program under a window manager: what a player and a developer do with it.

    with_display.sh python3 test_game.py PROGRAM
"""

import os
import subprocess
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


class ConsoleUse(unittest.TestCase):
    def setUp(self):
        self.game = Driver(PROGRAM)
        self.addCleanup(self.game.close)
        self.game.toggle_console()

    def test_commands_reach_the_modules(self):
        self.game.command("Gravity 100", "Gravity is now 100.000000")
        self.game.command("gravity", "Gravity is 100.000000")
        self.assertGreater(int(self.game.command("BspSize", "BspSize is ").split()[-1]), 100)
        self.game.command("ParticleCreate 300 200 10 64")
        self.game.command("ParticleCount", "ParticleCount is 192")
        self.game.command("Restart")
        self.game.command("ParticleCount", "ParticleCount is 128")
        self.game.command("Map", "Map is lev\\testLevel.swah")
        self.game.command("nonsense", "UNKNOWN COMMAND")

    def test_tab_completes_and_history_comes_back(self):
        self.game.type("bsps")
        x("key", "Tab")
        x("key", "Return")
        wait_for(lambda: "BspSize is " in self.game.log(), "the completed command")
        before = len(self.game.log())
        x("key", "Up")
        x("key", "Return")
        wait_for(lambda: "BspSize is " in self.game.log()[before:], "the command again")


class WindowLife(unittest.TestCase):
    def setUp(self):
        self.game = Driver(PROGRAM)
        self.addCleanup(self.game.close)

    def visible(self):
        state = subprocess.run(["xwininfo", "-id", self.game.window], capture_output=True,
                               text=True, check=True).stdout
        return "IsViewable" in state

    def test_minimises_and_pauses_when_it_loses_the_foreground(self):
        other = subprocess.Popen(["xmessage", "-geometry", "+0+0", "another window"])
        self.addCleanup(lambda: (other.kill(), other.wait()))
        found = wait_for(lambda: subprocess.run(
            ["xdotool", "search", "--name", "xmessage"], capture_output=True,
            text=True, check=False).stdout.split(), "the other window")
        x("windowactivate", found[-1])
        wait_for(lambda: not self.visible(), "the game to minimise")
        x("windowmap", self.game.window)
        x("windowactivate", self.game.window)
        wait_for(self.visible, "the game to come back")
        time.sleep(0.5)
        self.game.toggle_console()
        self.game.command("Pause", "Pause is true")

    def test_fullscreen_and_back(self):
        self.game.toggle_console()
        self.game.command("Fullscreen true", "Fullscreen is now true")
        wait_for(lambda: self.game.picture().shape[:2] == (1024, 1280), "the whole screen")
        self.game.command("Fullscreen false", "Fullscreen is now false")
        wait_for(lambda: self.game.picture().shape[:2] == (600, 800), "the window")

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
