"""Runs the real game in a window and plays it through the X server: keys, mouse, pictures, and
the console's log. Needs a display with a window manager (with_display.sh)."""

import os
import re
import shutil
import subprocess
import tempfile
import time

import numpy
from PIL import Image

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
VERSION = "1.03"
TITLE = f"Vantrel: Version {VERSION}"
START = (400, 194)  # the main menu's start button, in menu units
BUTTON_DELAY = 1.0  # seconds until a press has acted, for sure


def x(*words):
    """One xdotool call; its output."""
    return subprocess.run(["xdotool", *map(str, words)], check=True, capture_output=True,
                          text=True, timeout=20).stdout.strip()


def wait_for(condition, what, seconds=20.0):
    end = time.time() + seconds
    while time.time() < end:
        value = condition()
        if value:
            return value
        time.sleep(0.05)
    raise AssertionError(f"waited {seconds} s in vain for {what}")


class Driver:
    """A running game with a home, a configuration and a working directory of its own. It is
    played at once, without a stay in its main menu, unless `menu` is set. The opening film is
    passed over, as an empty one of the player's own comes before the game's; `intro` names
    another film to play. Nothing is waited for then, nor without `waits`. With a size of None
    the game chooses its own. After `close`, `errors` is what it wrote to standard error."""

    def __init__(self, program, *arguments, size=(800, 600), settings=None, data=None,
                 menu=False, intro=None, home=None, waits=True):
        self.keeps_home = home is not None
        self.home = home or tempfile.mkdtemp(prefix="vantrel-run-")
        self._write_settings({"cfg/console.cfg": "enableLogging true\nfontSize 8\n",
                              "vid/intro.avi": "", **(settings or {})})
        if intro:
            shutil.copy(intro, self.home + "/vid/intro.avi")
        environment = dict(os.environ, HOME=self.home, XDG_CONFIG_HOME=self.home + "/config")
        if data:
            environment["VANTREL_DATA"] = os.path.join(self.home, data)
        resolution = ["-RESOLUTION", *map(str, size)] if size else []
        words = ["-FULLSCREEN", "0", *resolution, *arguments]
        self.process = subprocess.Popen([program, *words], cwd=self.home, env=environment,
                                        stderr=subprocess.PIPE, text=True)
        self.window = wait_for(self._find_window, "the game's window")
        self.size = size
        if intro or not waits:
            return
        self.await_level()
        if not menu:
            self.click(*START)

    def await_level(self):
        wait_for(lambda: "Game initialisation" in self.log()
                 or "Unable to open level" in self.log(), "the level")

    def _write_settings(self, files):
        for name, text in files.items():
            if text is None:  # takes back what is written by default
                continue
            path = os.path.join(self.home, name)
            os.makedirs(os.path.dirname(path), exist_ok=True)
            with open(path, "w", encoding="ascii") as file:
                file.write(text)

    def _find_window(self):
        if self.process.poll() is not None:
            raise AssertionError("the game ended: " + self.process.stderr.read())
        found = subprocess.run(["xdotool", "search", "--name", f"^{TITLE}$"], check=False,
                               capture_output=True, text=True).stdout.split()
        return found[-1] if found else None

    def close(self):
        """Closes the window as a user does and gives the exit status."""
        if self.process.poll() is None:
            subprocess.run(["wmctrl", "-i", "-c", self.window], check=False)
        try:
            status = self.process.wait(timeout=20)
        except subprocess.TimeoutExpired:
            self.process.kill()
            status = self.process.wait()
            raise AssertionError("the game didn't close") from None
        finally:
            if not self.process.stderr.closed:
                self.errors = self.process.stderr.read()
                self.process.stderr.close()
            if not self.keeps_home:
                shutil.rmtree(self.home, ignore_errors=True)
        return status

    # -- the console --------------------------------------------------------------------------

    def log(self):
        try:
            with open(os.path.join(self.home, "ConsoleLog.txt"), encoding="latin-1") as file:
                return file.read()
        except FileNotFoundError:
            return ""

    def toggle_console(self):
        x("key", "grave")
        time.sleep(0.2)

    def type(self, text):
        x("type", "--delay", "15", text)
        time.sleep(0.2)

    def command(self, line, answer=None):
        """Types a line into the open console; waits for `answer` in what it prints."""
        before = len(self.log())
        self.type(line)
        x("key", "Return")
        if answer is not None:
            wait_for(lambda: answer in self.log()[before:], f"'{answer}' after '{line}'")
        else:
            time.sleep(0.3)
        return self.log()[before:]

    # -- menus --------------------------------------------------------------------------------

    def point(self, x_units, y_units):
        """Moves the pointer to a place in the menus' 800 by 600 units."""
        width, height = self.size
        scale = width / 800 if height > width else height / 600
        x("mousemove", "--window", self.window,
          round((width - 800 * scale) / 2 + x_units * scale),
          round((height - 600 * scale) / 2 + y_units * scale))

    def click(self, x_units, y_units):
        """Clicks and waits for what the click brings."""
        self.point(x_units, y_units)
        time.sleep(0.1)
        x("click", 1)
        time.sleep(BUTTON_DELAY)

    # -- keys and pictures --------------------------------------------------------------------

    def hold(self, key, seconds):
        x("keydown", key)
        time.sleep(seconds)
        x("keyup", key)

    def picture(self):
        """The window as the screen shows it, as an array of rows of RGB."""
        told = subprocess.run(["xwininfo", "-id", self.window], check=True, capture_output=True,
                              text=True, timeout=20).stdout
        left, top, width, height = (int(re.search(rf"{what}: +(-?\d+)", told).group(1))
                                    for what in ("Absolute upper-left X",
                                                 "Absolute upper-left Y", "Width", "Height"))
        size = f"{width}x{height}+{left}+{top}"
        path = os.path.join(self.home, "shot.png")
        # The screen, cut: a window that is just changing its size can't be asked itself.
        subprocess.run(["import", "-window", "root", "-crop", size, "+repage", path], check=True,
                       timeout=30)
        with Image.open(path) as image:
            return numpy.asarray(image.convert("RGB")).astype(int)


def blueness(picture):
    """How much bright water there is: the share of pixels that are clearly cyan or blue."""
    red, green, blue = picture[..., 0], picture[..., 1], picture[..., 2]
    return float(((blue > 120) & (blue > red + 50) & (green > red)).mean())


def difference(a, b):
    """Mean difference of two pictures, 0 to 255."""
    if a.shape != b.shape:
        return 255.0
    return float(numpy.abs(a - b).mean())
