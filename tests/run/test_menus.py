"""From the first click to a name in the table: the end of a level in the real program, by mouse.

    with_display.sh python3 test_menus.py VANTREL VANTREL-LEVEL
"""

import os
import shutil
import struct
import subprocess
import sys
import tempfile
import time
import unittest

import numpy

from game_driver import BUTTON_DELAY, ROOT, Driver, wait_for, x

sys.path.insert(0, os.path.join(ROOT, "levels"))
from tiled import Map  # noqa: E402 (found by the line above)

LEVEL_TOOL = sys.argv.pop(2)
PROGRAM = sys.argv.pop(1)

# In menu units; no menu has a widget there. Going from one to the other, the pointer tells that
# the game has taken what came before, and painted.
NOWHERE = ((30, 330), (30, 380))
FILES = {1: "main", 4: "highScores", 6: "quitGame", 9: "levelFinished"}


def settings(name):
    """A cfg file of the game, as a dictionary."""
    with open(os.path.join(ROOT, "data", "cfg", name), encoding="ascii") as file:
        words = file.read().split()
    return dict(zip(words[::2], words[1::2]))


def changed(name, **values):
    """A cfg file of the player's own, with other values."""
    return "\n".join(f"{key} {value}" for key, value in dict(settings(name), **values).items())


def row(name, score):
    return name.encode("ascii").ljust(24, b"\0") + struct.pack("<I", score)


class MenuDriver(Driver):
    def point_at(self, menu, button):
        values = settings(f"menu_{FILES[menu]}.cfg")
        left, top, width, height = (int(values[f"{button}Button_{key}"]) for key in "xywh")
        self.point(left + width / 2, top + height / 2)
        time.sleep(0.1)

    def press(self, menu, button):
        """Clicks a button and waits for the menu that comes after."""
        self.point_at(menu, button)
        x("click", 1)
        self.await_menu()
        time.sleep(BUTTON_DELAY)
        self.await_menu()

    def await_menu(self):
        """Until a menu shows, with the pointer, a bright drop, where it is sent to."""
        nowhere = iter(NOWHERE * 100)

        def has_pointer():
            left, top = next(nowhere)
            self.point(left, top)
            time.sleep(0.2)
            red, _, blue = numpy.moveaxis(self.picture()[top:top + 32, left:left + 32], 2, 0)
            return ((blue > 150) & (blue > red + 50)).sum() > 40

        wait_for(has_pointer, "a menu")


class LevelsEnd(unittest.TestCase):
    def setUp(self):
        """A level of the player's own that ends as soon as it is played."""
        self.home = tempfile.mkdtemp(prefix="vantrel-run-")
        self.addCleanup(shutil.rmtree, self.home)
        os.mkdir(os.path.join(self.home, "lev"))
        level = Map()
        for box in ((-200, 200, 400, 40), (-200, 0, 40, 200), (160, 0, 40, 200)):
            level.rectangle(*box, "stone")
        level.trigger("Level_end_a", (-160, -200, 320, 400))
        level.water_start(0, 0)
        level.camera_start(0, 0)
        source = os.path.join(self.home, "00.tmj")
        level.save(source)
        subprocess.run([LEVEL_TOOL, "compile", source, "-o",
                        os.path.join(self.home, "lev", "00.swah")], check=True, timeout=30)

    def scores(self):
        with open(os.path.join(self.home, "sav", "scores.sav"), "rb") as file:
            return file.read()

    def test_leads_to_a_name_in_the_table(self):
        game = MenuDriver(PROGRAM, "-MAP", "lev\\00.swah", menu=True, home=self.home, settings={
            "cfg/game.cfg": changed("game.cfg", finishAnimationTime="0.3"),
            "cfg/menu_levelFinished.cfg": changed(
                "menu_levelFinished.cfg", waterRampUpTime="0.1", timeRampUpTime="0.1",
                totalRampUpTime="0.1")})
        self.addCleanup(game.close)
        game.await_menu()
        game.press(1, "start")
        game.press(9, "continue")
        # The name; the button stands where it was, and is pressed by mouse.
        x("type", "--delay", 60, "Ada-Xy_ 1")
        for key in ("BackSpace", "BackSpace", "BackSpace", "F1"):
            x("key", key)
        game.press(9, "continue")
        game.press(4, "back")
        # Saved before the end. 128 drops in no time: 64,000 and 436,000.
        scores = b"\x0f\x23\x31\x12" + row("AdaX", 500000) + row("NO NAME", 0) * 9
        self.assertEqual(self.scores(), scores)
        game.press(1, "quit")
        game.point_at(6, "yes")
        x("click", 1)
        self.assertEqual(game.process.wait(timeout=20), 0)
        self.assertEqual(self.scores(), scores)


if __name__ == "__main__":
    unittest.main(verbosity=2)
