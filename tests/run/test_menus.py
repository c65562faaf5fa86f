"""The menus of the real program, by mouse and by keys, from the first click to the name in the
table.

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

from game_driver import BUTTON_DELAY, ROOT, Driver, difference, wait_for, x

sys.path.insert(0, os.path.join(ROOT, "levels"))
from tiled import Map  # noqa: E402 (found by the line above)

LEVEL_TOOL = sys.argv.pop(2)
PROGRAM = sys.argv.pop(1)
# A device that plays to nobody, so that the music's volume means something.
os.environ.setdefault("ALSOFT_DRIVERS", "null")

NOWHERE = (30, 330)  # in menu units; no menu has a widget there
NO_SCORES = b"\x0f\x23\x31\x12" + (b"NO NAME".ljust(24, b"\0") + b"\0" * 4) * 10


def settings(name):
    """A cfg file of the game, as a dictionary."""
    with open(os.path.join(ROOT, "data", "cfg", name), encoding="ascii") as file:
        words = file.read().split()
    return dict(zip(words[::2], words[1::2]))


FILES = {1: "main", 2: "inGame", 3: "options", 4: "highScores", 5: "instructions", 6: "quitGame",
         7: "loadMap", 8: "credits", 9: "levelFinished", 10: "restart"}


def middle(menu, widget):
    values = settings(f"menu_{FILES[menu]}.cfg")
    left, top, width, height = (int(values[f"{widget}_{key}"]) for key in "xywh")
    return left + width / 2, top + height / 2


def row(name, score):
    return name.encode("ascii").ljust(24, b"\0") + struct.pack("<I", score)


class MenuDriver(Driver):
    """A running game whose menus are told apart by their pictures."""

    def __init__(self, *arguments, **options):
        super().__init__(PROGRAM, *arguments, menu=True, **options)
        self.portraits = {}
        # While the game loads, keys wait: what answers is a game that runs.
        self.toggle_console()
        self.command("ready", "UNKNOWN COMMAND")
        self.toggle_console()

    def press(self, menu, button):
        self.click(*middle(menu, button + "Button"))

    def keys(self, *names, wait=BUTTON_DELAY):
        # The first key of a menu only wakes the keyboard's focus up.
        x("key", "--delay", 40, *names)
        time.sleep(wait)

    def look(self):
        self.point(*NOWHERE)
        time.sleep(0.15)
        return self.picture()

    def portray(self, menu):
        """Keeps the look of the menu that shows; it is to be unlike all others."""
        picture = self.look()
        for other, portrait in self.portraits.items():
            assert difference(picture, portrait) > 0.3, f"menu {menu} looks like {other}"
        self.portraits[menu] = picture

    def menu(self):
        """The menu that shows."""
        picture = self.look()
        return min(self.portraits, key=lambda menu: difference(picture, self.portraits[menu]))


class Graph(unittest.TestCase):
    """Without a level behind them, menus look the same each time."""

    def setUp(self):
        self.game = MenuDriver("-MAP", "none")
        self.addCleanup(self.game.close)

    def expect(self, menu):
        self.assertEqual(self.game.menu(), menu)

    def test_every_arrow_by_mouse_and_by_keys(self):
        game = self.game
        game.portray(1)
        sub_menus = {"load": 7, "options": 3, "instructions": 5, "highScores": 4, "credits": 8}
        for button, menu in sub_menus.items():
            game.press(1, button)
            game.portray(menu)
            game.press(menu, "back")
            self.expect(1)
        game.press(1, "quit")
        game.portray(6)
        game.press(6, "no")
        self.expect(1)
        game.press(1, "start")
        game.portray(0)
        x("key", "Escape")
        game.portray(2)
        game.press(2, "restart")
        game.portray(10)
        game.press(10, "no")
        self.expect(2)
        for button, menu in {**sub_menus, "quit": 6}.items():
            game.press(2, button)
            self.expect(menu)
            x("key", "Escape")
            self.expect(2)
        game.press(2, "continue")
        self.expect(0)

        self.by_keys(sub_menus)

    def by_keys(self, sub_menus):
        game = self.game
        x("key", "Escape")
        self.expect(2)
        game.keys("Return", "Return")
        self.expect(0)
        x("key", "Escape")
        places = ["restart", "load", "options", "instructions", "highScores", "credits", "quit"]
        for place, button in enumerate(places, 1):
            game.keys("space", *["Down"] * place, "Return")
            self.expect({"restart": 10, "quit": 6, **sub_menus}[button])
            # Back by the button, which has the focus; the no of a question likewise.
            game.keys("Tab", "space")
            self.expect(2)
        # From the quit button up is two steps.
        game.keys("Tab", *["Tab"] * 7, "Up", "Return")
        self.expect(4)
        x("key", "Escape")
        # Yes leaves the program: left of no.
        game.keys("Tab", *["Tab"] * 7, "Return")
        self.expect(6)
        game.keys("Tab", "Left", "Right", "Left", "Return", wait=0)
        self.assertEqual(game.process.wait(timeout=20), 0)

    def test_escape_on_the_main_menu_asks(self):
        game = self.game
        game.portray(1)
        x("key", "Escape")
        game.portray(6)
        x("key", "Escape")
        self.expect(1)
        x("key", "Escape")
        game.press(6, "yes")
        self.assertEqual(game.process.wait(timeout=20), 0)


class WithHome(unittest.TestCase):
    def setUp(self):
        self.home = tempfile.mkdtemp(prefix="vantrel-menus-")
        self.addCleanup(shutil.rmtree, self.home)

    def run_game(self, *arguments, **options):
        game = MenuDriver(*arguments, home=self.home, **options)
        self.addCleanup(game.close)
        return game


class Options(WithHome):
    def preferences(self):
        """All that the store holds, as text."""
        text = ""
        for folder, _, names in os.walk(os.path.join(self.home, "config")):
            for name in names:
                with open(os.path.join(folder, name), encoding="latin-1") as file:
                    text += name + "=" + file.read() + "\n"
        return text

    def music_volume(self, game):
        game.toggle_console()
        answer = game.command("MusicVolume", "MusicVolume is ")
        game.toggle_console()
        return int(answer.split()[-1])

    def test_are_kept_over_a_restart_and_dropped_by_escape(self):
        game = self.run_game("-MAP", "none")
        self.assertEqual(self.music_volume(game), 255)
        music_x, music_y = middle(3, "musicChooser")
        game.press(1, "options")
        game.click(music_x - 40, music_y)
        x("key", "Escape")
        self.assertEqual(self.music_volume(game), 255)
        before = self.preferences()
        game.press(1, "options")
        game.click(music_x - 40, music_y)
        game.press(3, "back")
        self.assertEqual(self.music_volume(game), 0)
        self.assertNotEqual(self.preferences(), before)
        self.assertEqual(game.close(), 0)

        game = self.run_game("-MAP", "none")
        self.assertEqual(self.music_volume(game), 0)
        # On again, by keys.
        game.look()
        game.keys("Tab", "Tab", "Tab", "Return")
        game.keys("Tab", "Up", "Up", "Right", "Down", "Down", "Return")
        self.assertEqual(self.music_volume(game), 255)


class LevelsAndScores(WithHome):
    """A level that ends as soon as it is played, beside the ones that ship."""

    def setUp(self):
        super().setUp()
        os.mkdir(os.path.join(self.home, "lev"))
        os.mkdir(os.path.join(self.home, "cfg"))
        level = Map()
        for box in ((-200, 200, 400, 40), (-200, 0, 40, 200), (160, 0, 40, 200)):
            level.rectangle(*box, "stone")
        level.trigger("Level_end_a", (-160, -200, 320, 400))
        level.water_start(0, 0)
        level.camera_start(0, 0)
        source = os.path.join(self.home, "a.tmj")
        level.save(source)
        subprocess.run([LEVEL_TOOL, "compile", source, "-o",
                        os.path.join(self.home, "lev", "aFirst.swah")], check=True, timeout=30)
        changed = dict(settings("game.cfg"), finishAnimationTime="0.3")
        with open(os.path.join(self.home, "cfg", "game.cfg"), "w", encoding="ascii") as file:
            file.write("\n".join(f"{key} {value}" for key, value in changed.items()) + "\n")

    def scores(self):
        with open(os.path.join(self.home, "sav", "scores.sav"), "rb") as file:
            return file.read()

    def finish(self, game):
        """Waits for the counters to come to rest. They stand right of the water's column, above
        the button, which never rests."""
        def counters():
            return game.look()[130:450, 220:]

        def rests():
            first = counters()
            time.sleep(0.4)
            return difference(first, counters()) < 0.02

        wait_for(lambda: not rests(), "the counters to begin")
        wait_for(rests, "the counters to end")

    def test_a_level_is_chosen_finished_and_scored_by_mouse(self):
        game = self.run_game()
        game.toggle_console()
        game.command("Map", "Map is lev\\testLevel.swah")
        game.toggle_console()
        game.press(1, "load")
        game.press(7, "load")  # the first in the list
        wait_for(lambda: game.log().count("Game initialisation") == 2, "the other level")
        game.toggle_console()
        game.command("Map", "Map is lev\\aFirst.swah")
        game.toggle_console()
        game.portray(1)
        game.press(1, "start")
        self.finish(game)
        game.portray(9)
        x("key", "Escape")
        time.sleep(0.3)
        self.assertEqual(game.menu(), 9, "there is no way back into a finished level")
        game.press(9, "continue")
        # The name; the button stands where it was, and is pressed by mouse.
        x("type", "--delay", 60, "Ada-Xy_ 1")
        for key in ("BackSpace", "BackSpace", "BackSpace", "F1"):
            x("key", key)
        # The pointer has to come to the button anew.
        game.look()
        game.press(9, "continue")
        time.sleep(1)
        game.portray(4)
        x("key", "Escape")
        time.sleep(0.3)
        self.assertFalse(os.path.exists(os.path.join(self.home, "sav")), "saved before the end")
        # Only from the main menu does this lead to the question.
        x("key", "Escape")
        game.press(6, "yes")
        self.assertEqual(game.process.wait(timeout=20), 0)
        # 128 drops in no time: 64,000 and 436,000.
        self.assertEqual(self.scores(), NO_SCORES[:4] + row("AdaX", 500000) + NO_SCORES[4:-28])

    def test_a_level_is_played_restarted_and_scored_by_keys(self):
        game = self.run_game("-MAP", "lev\\aFirst.swah", settings={
            "sav/scores.sav": "foreign"})
        game.look()
        game.portray(1)
        game.keys("Tab", "Return")
        self.finish(game)
        game.keys("Tab", "space")
        x("type", "--delay", 60, "abcdefghijklmnopqrstuvw")
        game.keys("Return", wait=1.5)
        game.portray(4)
        game.keys("Tab", "Return")
        # The level has begun again; this time it is left for the restart menu and back.
        game.keys("Tab", "Return", wait=0.95)
        x("key", "p")  # before the water is there
        time.sleep(0.2)
        x("key", "Escape")
        game.portray(2)
        game.keys("Tab", "Down", "Return")
        game.portray(10)
        game.keys("Tab", "Left", "Return")
        x("key", "p")
        self.finish(game)
        game.keys("Tab", "space")
        x("type", "--delay", 60, "two")
        game.keys("Escape", wait=1.5)
        self.assertEqual(game.close(), 0)
        self.assertEqual(self.scores(), NO_SCORES[:4] + row("abcdefghijklmnopqrst", 500000) +
                         row("two", 500000) + NO_SCORES[4:-56])


if __name__ == "__main__":
    unittest.main(verbosity=2)
