"""What the program makes of its command line and of the preferences it finds.

    with_display.sh python3 test_start.py PROGRAM
"""

import os
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

from game_driver import ROOT, TITLE, VERSION, Driver

PROGRAM = sys.argv.pop(1)
STORE = "config/vantrel/software/Vantrel/Preferences/values.txt"
NO_SOUND = "No sound device can be opened: playing without sound"


class Start(unittest.TestCase):
    def test_without_a_display_it_says_so(self):
        environment = {key: value for key, value in os.environ.items()
                       if key not in ("DISPLAY", "WAYLAND_DISPLAY")}
        run = subprocess.run([PROGRAM], env=environment, capture_output=True, text=True,
                             timeout=30, check=False)
        self.assertEqual(run.returncode, 1)
        self.assertIn("display", run.stderr)

    def test_answers_questions_in_the_middle_of_switches(self):
        run = subprocess.run([PROGRAM, "-DETAIL", "3", "--version", "-SOUND", "0"],
                             capture_output=True, text=True, check=True)
        self.assertEqual(run.stdout, f"Vantrel {VERSION}\n")

    def test_runs_without_any_data(self):
        game = Driver(PROGRAM, settings={"empty/readme": ""}, data="empty", menu=True)
        self.addCleanup(game.close)
        self.assertIn("Could not open config file", game.log())
        self.assertIn("Unable to open level file", game.log())
        self.assertEqual(game.close(), 0)


class LostDisplay(unittest.TestCase):
    def test_ends_the_game_without_a_crash_at_any_time(self):
        for seconds in (0, 0.2, 0.5, 2):  # from the window's first moment to play
            self.assertEqual(self.play_until_lost(seconds), 1, seconds)

    def play_until_lost(self, seconds):
        get, put = os.pipe()
        # The default size opens on a smaller screen, too.
        server = subprocess.Popen(["Xvfb", "-displayfd", str(put), "-nolisten", "tcp", "-screen",
                                   "0", "640x480x24"], pass_fds=[put], stderr=subprocess.DEVNULL)
        self.addCleanup(server.kill)
        os.close(put)
        with os.fdopen(get) as number:
            environment = dict(os.environ, DISPLAY=":" + number.readline().strip())
        with tempfile.TemporaryDirectory() as home:
            os.mkdir(home + "/vid")
            open(home + "/vid/intro.avi", "wb").close()
            environment.update(HOME=home, XDG_CONFIG_HOME=home)
            game = subprocess.Popen([PROGRAM, "-FULLSCREEN", "0"], cwd=home, env=environment,
                                    stderr=subprocess.DEVNULL)
            self.addCleanup(game.kill)
            subprocess.run(["xdotool", "search", "--sync", "--name", f"^{TITLE}$"],
                           env=environment, check=True, capture_output=True, timeout=20)
            time.sleep(seconds)
            server.terminate()
            server.wait()
            return game.wait(timeout=20)


class Session(unittest.TestCase):
    """Each start has a home of its own, so that no log of another one stands there."""

    def start(self, *arguments, stored="", while_open=None):
        """One short session; the size of its window, what it complained of, its home."""
        home = tempfile.mkdtemp(prefix="vantrel-start-")
        self.addCleanup(shutil.rmtree, home)
        game = Driver(PROGRAM, *arguments, size=None, menu=True, home=home,
                      settings={STORE: stored})
        height, width = game.picture().shape[:2]
        if while_open:
            while_open(game)
        self.assertEqual(game.close(), 0)
        lines = game.errors.splitlines()
        for line in lines:
            self.assertIn(line, game.log(), "the console tells as much as the terminal")
        lines = [line for line in lines if line != NO_SOUND]  # the machine's affair
        return (width, height), lines, home

    @staticmethod
    def stored(home):
        with open(os.path.join(home, STORE), encoding="ascii") as file:
            return dict(line.split("=") for line in file.read().split())


class Resolution(Session):
    KEPT = "ResolutionX=1024\nResolutionY=700\n"

    def test_a_size_that_opened_is_kept_and_no_other(self):
        size, lines, home = self.start("-RESOLUTION", "900", "640", stored=self.KEPT)
        kept = self.stored(home)
        self.assertEqual((size, lines), ((900, 640), []))
        self.assertEqual((kept["ResolutionX"], kept["ResolutionY"]), ("900", "640"))
        for asked in (("-5", "-5"), ("100000", "100000"), ("2147483647", "600")):
            size, lines, home = self.start("-RESOLUTION", *asked, stored=self.KEPT)
            kept = self.stored(home)
            self.assertEqual(size, (1024, 700), asked)
            self.assertEqual(len(lines), 1, lines)
            self.assertEqual((kept["ResolutionX"], kept["ResolutionY"]), ("1024", "700"))


class Words(Session):
    def test_what_does_nothing_is_told(self):
        _, lines, _ = self.start("-MAPP", "x", "-DETAIL", "much", "-MAP", "lev\\nowhere.swah")
        self.assertEqual(len(lines), 4, lines)
        for line, part in zip(lines, ("-MAPP", "'x'", "-DETAIL much", "nowhere.swah")):
            self.assertIn(part, line)

    def test_a_recording_that_cannot_be_written_is_told_before_play(self):
        def look(game):
            self.assertIn("nowhere/a.run", game.log())
        _, lines, _ = self.start("-RECORD", "/nowhere/a.run", while_open=look)
        self.assertEqual(len(lines), 1, lines)


if __name__ == "__main__":
    unittest.main(verbosity=2)
