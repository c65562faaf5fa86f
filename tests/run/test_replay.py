"""Runs recorded in the real program, replayed there and in vantrel-sim to the same last bit.

    with_display.sh python3 test_replay.py PROGRAM VANTREL_SIM
"""

import os
import re
import struct
import subprocess
import sys
import tempfile
import time
import unittest

from game_driver import ROOT, Driver, wait_for, x

SIM = sys.argv.pop(2)
PROGRAM = sys.argv.pop(1)
STATE = "; state at its end: "
STEPS_PER_HASH = 300


def last_state(log):
    return re.findall(STATE + "([0-9a-f]{16})", log)[-1]


class RunFile:
    """The parts of a recorded run: its head, its blocks of equal steps and its hashes."""

    def __init__(self, path):
        with open(path, "rb") as file:
            data = file.read()
        begin = 7 + data[6] + 16
        self.head, (count,) = data[:begin + 4], struct.unpack_from("<I", data, begin)
        self.tail = data[-(10 + 8 * (count // STEPS_PER_HASH + 1)):]
        blocks = data[begin + 4:len(data) - len(self.tail)]
        self.blocks = [list(block) for block in struct.iter_unpack("<ffBI", blocks)]

    def write(self, path):
        with open(path, "wb") as file:
            file.write(self.head + b"".join(struct.pack("<ffBI", *b) for b in self.blocks)
                       + self.tail)


class Replay(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.file = os.path.join(directory.name, "a.run")

    def record(self):
        """Plays with keys, mouse, pause, menu and console; the state at the end."""
        home = tempfile.TemporaryDirectory()
        self.addCleanup(home.cleanup)
        game = Driver(PROGRAM, "-RECORD", self.file, size=(960, 540), home=home.name)
        self.addCleanup(game.close)
        time.sleep(3)
        game.hold("Left", 0.7)
        x("key", "p")
        game.hold("Right", 0.3)
        x("key", "p")
        game.hold("Right", 1.5)
        x("mousemove_relative", 40, 0)
        x("key", "Escape")
        time.sleep(0.5)
        x("key", "Escape")
        game.toggle_console()
        game.hold("Left", 0.5)
        game.toggle_console()
        time.sleep(1)
        game.close()
        self.assertIn("Recorded run written to", game.log())
        return last_state(game.log())

    def sim(self, *arguments):
        return subprocess.run([SIM, "--replay", self.file, "--data", os.path.join(ROOT, "data"),
                               *arguments], capture_output=True, text=True, check=False,
                              timeout=300)

    def replay(self, *arguments):
        game = Driver(PROGRAM, "-REPLAY", self.file, *arguments, menu=True)
        self.addCleanup(game.close)
        return game

    def test_ends_alike_to_the_last_bit_in_game_and_simulation(self):
        state = self.record()
        self.assertLess(os.path.getsize(self.file), 20000)
        summary = self.sim("--quiet")
        self.assertEqual(summary.returncode, 0, summary.stderr)
        self.assertIn("state " + state, summary.stdout)
        self.assertEqual(summary.stderr, "")
        game = self.replay("-SOUND", "0")
        x("keydown", "Right")
        self.addCleanup(x, "keyup", "Right")
        wait_for(lambda: STATE in game.log(), "the replay's end", 60)
        self.assertEqual(last_state(game.log()), state)
        self.assertNotIn("another way", game.log())

    def test_a_changed_step_is_told_by_its_time_and_status_and_a_renewed_run_is_at_peace(self):
        changed = RunFile(os.path.join(ROOT, "levels", "testLevel.run"))
        number = len(changed.blocks) // 2
        changed.blocks[number][1] = -changed.blocks[number][1] - 1
        changed.write(self.file)
        when = sum(dt * count for dt, _, _, count in changed.blocks[:number])
        parted = self.sim("--quiet", "--record", self.file)
        self.assertEqual(parted.returncode, 3)
        times = re.findall("another way.*between ([0-9.]+) s and ([0-9.]+) s\n", parted.stderr)
        self.assertEqual(len(times), 1, parted.stderr)
        begin, end = map(float, times[0])
        self.assertTrue(begin <= when < end <= begin + 10, (begin, when, end))

        renewed = RunFile(self.file)
        self.assertEqual((renewed.head, renewed.blocks), (changed.head, changed.blocks))
        again = self.sim("--quiet")
        self.assertEqual((again.returncode, again.stderr, again.stdout),
                         (0, "", parted.stdout))

    def test_refuses_what_is_no_run_of_this_level(self):
        sim = os.path.join(self.file + ".made")
        made = subprocess.run([SIM, "lev\\testLevel.swah", "--frames", "50", "--frame-ms", "16",
                               "--record", sim, "--data", os.path.join(ROOT, "data")],
                              capture_output=True, check=False)
        self.assertEqual(made.returncode, 0)
        with open(sim, "rb") as file:
            good = file.read()
        checksum = 7 + good[6]
        for bad, reason in ((b"", "isn't a recorded run"), (good[:-1], "is cut off"),
                            (good[:checksum] + b"????" + good[checksum + 4:],
                             "has changed since")):
            with open(self.file, "wb") as file:
                file.write(bad)
            refused = self.sim()
            self.assertEqual((refused.returncode, refused.stdout), (1, ""))
            self.assertEqual(refused.stderr.count("\n"), 1)
            self.assertIn(reason, refused.stderr)
        game = self.replay()
        self.assertIn("Unable to replay", game.log())
        x("key", "Escape")  # out of the main menu: to the question
        time.sleep(1)
        self.assertIsNone(game.process.poll())


if __name__ == "__main__":
    unittest.main(verbosity=2)
