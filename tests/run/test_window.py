"""The window of the real program at awkward moments: closed while it loads, or while it is
minimised.

    with_display.sh python3 test_window.py PROGRAM
"""

import os
import re
import subprocess
import sys
import tempfile
import unittest

from PIL import Image

from game_driver import Driver, wait_for, x

PROGRAM = sys.argv.pop(1)
SPLASH = (255, 0, 255)


def shown(game):
    told = subprocess.run(["xwininfo", "-id", game.window], capture_output=True, text=True,
                          check=True).stdout
    return re.search("Map State: (.*)", told).group(1)


class WhileLoading(unittest.TestCase):
    def start(self):
        """The game with a plain splash that stands for seconds: images of the level are huge."""
        home = tempfile.TemporaryDirectory()
        self.addCleanup(home.cleanup)
        os.mkdir(home.name + "/img")
        Image.new("RGB", (64, 64), SPLASH).save(home.name + "/splash.png")
        Image.new("RGB", (2048, 2048)).save(home.name + "/img/edge_stone.png")
        for name in ("masonry", "wood", "plaster", "rock", "beam", "iron"):
            os.link(home.name + "/img/edge_stone.png", f"{home.name}/img/{name}.png")
        splash = "splashBackground splash.png splashBackgroundW 32 splashBackgroundH 32\n"
        game = Driver(PROGRAM, home=home.name, settings={"cfg/splashScreen.cfg": splash},
                      waits=False)
        self.addCleanup(game.close)
        wait_for(lambda: (game.picture()[100, 100] == SPLASH).all(), "the splash")
        self.assertNotIn("Game initialisation", game.log())
        return game

    def test_a_close_waits_for_the_level_and_ends_the_program_in_order(self):
        for _ in range(3):
            game = self.start()
            subprocess.run(["wmctrl", "-i", "-c", game.window], check=True)
            self.assertEqual(game.process.wait(timeout=30), 0)
            self.assertRegex(game.log(), "(?s)Game initialisation.*Game shutdown")


class Closing(unittest.TestCase):
    def test_a_minimised_fullscreen_game_closes_on_a_busy_desktop(self):
        """Desktops set properties of windows at any time: events that the game ignores."""
        game = Driver(PROGRAM)
        self.addCleanup(game.close)
        game.toggle_console()
        game.command("Fullscreen true", "Fullscreen is now true")
        x("windowminimize", game.window)
        wait_for(lambda: shown(game) == "IsUnMapped", "the game to minimise")
        busy = subprocess.Popen(
            ["sh", "-c", f"while xprop -id {game.window} -f _BUSY 32c -set _BUSY 1; do :; done"],
            stderr=subprocess.DEVNULL)
        self.addCleanup(lambda: (busy.kill(), busy.wait()))
        self.assertEqual(game.close(), 0)


if __name__ == "__main__":
    unittest.main(verbosity=2)
