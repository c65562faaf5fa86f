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

import numpy
from PIL import Image

from game_driver import BUTTON_DELAY, ROOT, Driver, difference, wait_for, x

sys.path.insert(0, os.path.join(ROOT, "levels"))
from tiled import Map  # noqa: E402 (found by the line above)

LEVEL_TOOL = sys.argv.pop(2)
PROGRAM = sys.argv.pop(1)
# A silent device, so that the music's volume means something.
os.environ.setdefault("ALSOFT_DRIVERS", "null")

# In menu units; no menu has a widget there. Going from one to the other, the pointer tells that
# the game has taken what came before, and painted.
NOWHERE = ((30, 330), (30, 380))
# Mean difference of two pictures of one menu at most: its buttons are never still (0.9). The
# two questions differ by 2, all others by 6 and more.
SAME = 1.5
# Places of the level's end: the plate above, and what counts up.
PLATE = numpy.s_[30:86, 260:710]
COUNTERS = numpy.s_[130:450, 220:]
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
        self.nowhere = NOWHERE[0]
        # While the game loads, keys wait: what answers is a game that runs.
        self.toggle_console()
        self.command("ready", "UNKNOWN COMMAND")
        self.toggle_console()

    def press(self, menu, button, to=None):
        """Clicks a button and waits for what it brings: the menu `to` if that is known."""
        self.point(*middle(menu, button + "Button"))
        time.sleep(0.1)
        x("click", 1)
        self.await_menu(to)

    def leave(self):
        """By the question's yes; the exit status."""
        self.point(*middle(6, "yesButton"))
        time.sleep(0.1)
        x("click", 1)
        return self.process.wait(timeout=20)

    def keys(self, *names, to=None):
        # The first key of a menu only wakes the keyboard's focus up.
        x("key", "--delay", 40, *names)
        self.await_menu(to)

    def await_menu(self, menu):
        if menu == 0:
            self.point(*self.nowhere)
            time.sleep(BUTTON_DELAY)
            wait_for(lambda: not self.has_pointer(), "play")
        elif menu in self.portraits:
            wait_for(lambda: self.shows(menu), f"menu {menu}")
        else:
            self.look()
            time.sleep(BUTTON_DELAY)
            self.look()

    def has_pointer(self):
        """Whether a bright drop hangs where the pointer was sent: menus alone have one."""
        left, top = self.nowhere
        red, _, blue = numpy.moveaxis(self.picture()[top:top + 32, left:left + 32], 2, 0)
        return ((blue > 150) & (blue > red + 50)).sum() > 40

    def look(self):
        """A picture of the menu that shows, with the pointer out of the way."""
        self.nowhere = NOWHERE[self.nowhere == NOWHERE[0]]

        def goes_there():
            self.point(*self.nowhere)  # again, as a game in play holds it in the middle
            return self.has_pointer()

        wait_for(goes_there, "the pointer")
        return self.picture()

    def portray(self, menu):
        """Keeps the look of the menu that shows; it is to be unlike all others."""
        self.look()
        time.sleep(0.7)  # until no button shows that the pointer was there
        picture = self.picture()
        for other, portrait in self.portraits.items():
            assert difference(picture, portrait) > SAME, f"menu {menu} looks like {other}"
        self.portraits[menu] = picture

    def shows(self, menu):
        return difference(self.look(), self.portraits[menu]) < SAME


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
    """Two levels of the player's own, first in the list: one that ends as soon as it is played,
    and one without an end."""

    def setUp(self):
        super().setUp()
        os.mkdir(os.path.join(self.home, "lev"))
        for name in ("00", "00b"):
            level = Map()
            for box in ((-200, 200, 400, 40), (-200, 0, 40, 200), (160, 0, 40, 200)):
                level.rectangle(*box, "stone")
            if name == "00":
                level.trigger("Level_end_a", (-160, -200, 320, 400))
            level.water_start(0, 0)
            level.camera_start(0, 0)
            source = os.path.join(self.home, name + ".tmj")
            level.save(source)
            subprocess.run([LEVEL_TOOL, "compile", source, "-o",
                            os.path.join(self.home, "lev", name + ".swah")], check=True,
                           timeout=30)
        self.change("game.cfg", finishAnimationTime="0.3")
        with Image.open(os.path.join(ROOT, "data", "img", "menu", "background.png")) as image:
            self.plate = numpy.asarray(image.convert("RGB")).astype(int)[PLATE]

    def change(self, name, **values):
        """A cfg file of the player's own, with other values."""
        os.makedirs(os.path.join(self.home, "cfg"), exist_ok=True)
        with open(os.path.join(self.home, "cfg", name), "w", encoding="ascii") as file:
            file.write("\n".join(f"{key} {value}" for key, value in
                                 dict(settings(name), **values).items()) + "\n")

    def scores(self):
        with open(os.path.join(self.home, "sav", "scores.sav"), "rb") as file:
            return file.read()

    def await_end(self, game):
        wait_for(lambda: difference(game.picture()[PLATE], self.plate) < 5, "the level's end")

    def await_level(self, game, press):
        before = game.log().count("Game initialisation")
        press()
        wait_for(lambda: game.log().count("Game initialisation") > before, "the other level")

    def test_by_mouse_from_a_level_left_to_a_name_in_the_table(self):
        game = self.run_game("-MAP", "lev\\00b.swah")
        game.portray(1)
        game.press(1, "start", to=0)
        x("click", 3)
        game.look()
        game.press(2, "restart")
        game.press(10, "yes", to=0)
        x("click", 3)
        game.look()
        game.press(2, "load")
        self.await_level(game, lambda: game.press(7, "load", to=1))  # the first in the list
        game.toggle_console()
        game.command("Map", "Map is lev\\00.swah")
        game.toggle_console()
        game.press(1, "start", to=0)
        self.await_end(game)
        self.await_counters(game)
        game.portray(9)
        x("key", "Escape")
        game.look()
        self.assertTrue(game.shows(9), "there is no way back into a finished level")
        game.press(9, "continue")
        # The name; the button stands where it was, and is pressed by mouse.
        x("type", "--delay", 60, "Ada-Xy_ 1")
        for key in ("BackSpace", "BackSpace", "BackSpace", "F1"):
            x("key", key)
        # The pointer has to come to the button anew.
        game.press(9, "continue")
        game.portray(4)
        game.press(4, "back", to=1)
        # Saved before the end. 128 drops in no time: 64,000 and 436,000.
        scores = NO_SCORES[:4] + row("AdaX", 500000) + NO_SCORES[4:-28]
        self.assertEqual(self.scores(), scores)
        game.press(1, "quit")
        self.assertEqual(game.leave(), 0)
        self.assertEqual(self.scores(), scores)

    def await_counters(self, game):
        """They count for some seconds and come to rest."""
        def rest():
            first = game.picture()[COUNTERS]
            time.sleep(0.4)
            return difference(first, game.picture()[COUNTERS]) < 0.02

        begin = time.time()
        wait_for(rest, "the counters to end")
        self.assertGreater(time.time() - begin, 5, "three counters, one after the other")

    def test_by_keys_from_a_level_left_to_names_in_the_table(self):
        self.change("menu_levelFinished.cfg", waterRampUpTime="0.1", timeRampUpTime="0.1",
                    totalRampUpTime="0.1")
        game = self.run_game("-MAP", "lev\\00b.swah", settings={"sav/scores.sav": "foreign"})
        game.portray(1)
        game.keys("Tab", "Return", to=0)
        x("key", "p")
        x("key", "Escape")
        game.portray(2)
        game.keys("Tab", "Down", "Return")
        game.portray(10)
        game.keys("Tab", "Left", "Return", to=0)
        x("key", "p")  # a restart leaves the game paused
        x("key", "Escape")
        game.look()
        game.keys("Tab", "Down", "Down", "Return")
        self.await_level(game, lambda: game.keys("Tab", "Up", "Return", to=1))
        game.keys("Tab", "Return", to=0)
        self.await_end(game)
        game.keys("Tab", "space", "space")  # the second press is one too many
        x("type", "--delay", 60, "abcdefghijklmnopqrstuvw")
        game.keys("Return")
        game.portray(4)
        game.keys("Tab", "Return", to=1)
        # The level has begun again.
        game.keys("Tab", "Return", to=0)
        self.await_end(game)
        game.keys("Tab", "space")
        x("type", "--delay", 60, "two")
        game.keys("Escape")
        self.assertEqual(game.close(), 0)
        self.assertEqual(self.scores(), NO_SCORES[:4] + row("abcdefghijklmnopqrst", 500000) +
                         row("two", 500000) + NO_SCORES[4:-56])
        with open(os.path.join(self.home, "sav", "scores.sav.bad"), encoding="ascii") as file:
            self.assertEqual(file.read(), "foreign")


if __name__ == "__main__":
    unittest.main(verbosity=2)
