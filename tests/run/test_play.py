"""The off-screen play: its film has an end, and nothing of it stays, however it ends.

    python3 test_play.py PROGRAM
"""

import os
import signal
import subprocess
import sys
import tempfile
import time
import unittest

from game_driver import ROOT, wait_for

PROGRAM = sys.argv.pop(1)
PLAY = os.path.join(ROOT, "tools", "setup", "play_offscreen.sh")


class Film(unittest.TestCase):
    def play(self, seconds):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.film = os.path.join(folder.name, "play.mp4")
        return subprocess.Popen([PLAY, PROGRAM, folder.name], start_new_session=True,
                                stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                env=dict(os.environ, FILM_SECONDS=str(seconds)))

    def expect_nothing_left(self, play):
        left = subprocess.run(["ps", "-o", "args=", "-s", str(play.pid)], check=False,
                              capture_output=True, text=True).stdout
        self.assertEqual(left, "")

    def test_ends_at_its_limit_as_a_whole_film(self):
        play = self.play(15)
        self.assertEqual(play.wait(timeout=90), 0)
        told = subprocess.run(["ffprobe", "-v", "error", "-show_entries", "format=duration", "-of",
                               "csv=p=0", self.film], check=True, capture_output=True, text=True)
        self.assertGreater(float(told.stdout), 1)
        self.assertLess(float(told.stdout), 30)
        self.expect_nothing_left(play)

    def test_ends_when_it_is_told_to(self):
        play = self.play(600)
        wait_for(lambda: os.path.exists(self.film), "the film", 60)
        time.sleep(1)
        play.send_signal(signal.SIGTERM)
        play.wait(timeout=40)
        self.expect_nothing_left(play)


if __name__ == "__main__":
    unittest.main(verbosity=2)
