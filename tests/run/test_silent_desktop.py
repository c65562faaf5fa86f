"""The real program under a window manager that doesn't answer, or maps windows late or never.

    WINDOW_MANAGER=none with_display.sh python3 test_silent_desktop.py PROGRAM SILENT_DESKTOP
"""

import subprocess
import sys
import unittest

from game_driver import Driver

DESKTOP = sys.argv.pop(2)
PROGRAM = sys.argv.pop(1)


class SilentDesktop(unittest.TestCase):
    def test_the_program_starts_and_closes(self):
        for milliseconds in (0, 700, -1):
            for fullscreen in (0, 1):
                with self.subTest(milliseconds=milliseconds, fullscreen=fullscreen):
                    self.run_game(milliseconds, fullscreen)

    def run_game(self, milliseconds, fullscreen):
        with subprocess.Popen([DESKTOP, str(milliseconds)], stdout=subprocess.PIPE) as desktop:
            try:
                desktop.stdout.readline()
                game = Driver(PROGRAM, "-FULLSCREEN", str(fullscreen), size=(1280, 1024),
                              menu=True)
                self.assertEqual(game.close(), 0)
            finally:
                desktop.kill()


if __name__ == "__main__":
    unittest.main(verbosity=2)
