"""Every way to save a file, with each of its calls failing once in each way, and killed at any
moment: the file is the old one or the new one, a failure is told, and nothing else is left.

    python3 test_faults.py FAILING_CALLS SAVER VANTREL_SIM VANTREL_LEVEL KILLS
"""

import errno
import os
import random
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

CALLS_LIBRARY, SAVER, SIM, LEVEL_TOOL, KILLS = sys.argv[1:]
del sys.argv[1:]
ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
sys.path.insert(0, os.path.join(ROOT, "levels"))
import tiled  # noqa: E402

DISK = (errno.ENOSPC, errno.EIO)
FAULTS = {"open": (*DISK, errno.EINTR), "read": (errno.EIO, errno.EINTR, "short"),
          "write": (*DISK, errno.EINTR, "short"), "fsync": (*DISK, errno.EINTR),
          "flock": (errno.ENOLCK, errno.EINTR), "rename": DISK, "close": (*DISK, errno.EINTR)}
HARMLESS = (errno.EINTR, "short")  # what is no failure, only to be gone on with
# Whose failure always costs what was to be saved.
ESSENTIAL = (("write", "1"), ("fsync", "1"), ("rename", "1"))
VALUES = "config/vantrel/software/test/values.txt"


class Saving(unittest.TestCase):
    def setUp(self):
        self.home = tempfile.mkdtemp(prefix="vantrel-faults-")
        self.addCleanup(shutil.rmtree, self.home)
        self.mark = self.home + "-mark"
        self.make_map(100)
        self.compile = [LEVEL_TOOL, "compile", "map.tmj", "-o", "level.swah"]
        self.assertEqual(self.run_program(self.compile), (0, ""))
        self.clean = self.files()

    def make_map(self, x):
        level = tiled.Map()
        level.water_start(x, 100)
        level.camera_start(x, 100)
        level.save(os.path.join(self.home, "map.tmj"))

    def environment(self, **fault):
        return dict(os.environ, XDG_CONFIG_HOME=os.path.join(self.home, "config"),
                    ASAN_OPTIONS=":".join(
                        [os.environ.get("ASAN_OPTIONS", ""), "verify_asan_link_order=0"]),
                    **fault)

    def run_program(self, command, fault=None):
        """Its status and standard error."""
        done = subprocess.run(command, cwd=self.home, capture_output=True, text=True, timeout=60,
                              check=False, env=self.environment(**(fault or {})))
        return done.returncode, done.stderr

    def files(self):
        return {os.path.relpath(os.path.join(folder, name), self.home)
                for folder, _, names in os.walk(self.home) for name in names}

    def read(self, name):
        with open(os.path.join(self.home, name), "rb") as file:
            return file.read()

    def write(self, name, content):
        with open(os.path.join(self.home, name), "wb") as file:
            file.write(content)

    def each_fault(self, faults):
        """The environment of every call that fails, until there is none more of its kind."""
        for call, kinds in faults.items():
            for kind in kinds:
                for number in range(1, 100):
                    yield call, kind, {"LD_PRELOAD": CALLS_LIBRARY, "FAULT_CALL": call,
                                       "FAULT_DIRECTORY": self.home, "FAULT_MARK": self.mark,
                                       "FAULT_KIND": str(kind), "FAULT_NUMBER": str(number)}
                    if not os.path.exists(self.mark):
                        self.assertGreater(number, 1, f"{call} is never called")
                        break
                    os.remove(self.mark)

    def hold(self, name, first, second):
        """`second` over the file that `first` made, with every fault."""
        self.run_program(first)
        old = self.read(name)
        self.assertEqual(self.run_program(second), (0, ""))
        new = self.read(name)
        self.assertNotEqual(old, new)
        count = 0
        for call, kind, fault in self.each_fault(FAULTS):
            self.write(name, old)
            status, told = self.run_program(second, fault)
            with self.subTest(call=call, kind=kind, number=fault["FAULT_NUMBER"], told=told):
                self.assertIn(status, (0, 1))
                after = self.read(name)
                self.assertIn(after, (old, new))
                is_failure = kind not in HARMLESS and (call, fault["FAULT_NUMBER"]) in ESSENTIAL
                self.assertTrue(told if is_failure else after == new or
                                (told and kind not in HARMLESS))
                aside = self.files() - self.clean - {name}
                for other in aside:
                    self.assertEqual((other, self.read(other)), (name + ".bad", old))
                    self.assertIn("kept as", told)
                    os.remove(os.path.join(self.home, other))
            count += 1
        print(f"{name}: {count} runs", file=sys.stderr)

    def test_scores(self):
        self.hold("sav/scores.sav", [SAVER, "scores", "old", "5"], [SAVER, "scores", "new", "6"])

    def test_preferences(self):
        self.hold(VALUES, [SAVER, "preferences", "a", "1"], [SAVER, "preferences", "b", "2"])

    def test_a_compiled_level(self):
        self.make_map(200)
        self.hold("level.swah", ["true"], self.compile)

    def test_a_recorded_run(self):
        def record(frames):
            return [SIM, "level.swah", "--record", "a.run", "--frames", frames, "--frame-ms", "20",
                    "--every", "1000"]
        self.hold("a.run", record("20"), record("30"))

    def kill(self, command, name, is_whole):
        """Kills the program that writes the file, at any moment after its first save, again and
        again. How often it left a file behind."""
        path = os.path.join(self.home, name)
        dice = random.Random(1)
        left = 0
        for _ in range(int(KILLS)):
            before = os.stat(path).st_ino if os.path.exists(path) else 0
            with subprocess.Popen(command, cwd=self.home, env=self.environment()) as process:
                end = time.time() + 20
                while not os.path.exists(path) or os.stat(path).st_ino == before:
                    self.assertLess(time.time(), end, "nothing was saved")
                time.sleep(dice.uniform(0.0, 0.01))
                process.kill()
            is_whole()
            files = os.listdir(os.path.dirname(path))
            self.assertLess(len(files), 3, "swept by the next save")
            left += len(files) > 1
        return left

    def test_kills(self):
        def whole_scores():
            content = self.read("sav/scores.sav")
            self.assertEqual((len(content), content[:4]), (284, b"\x0f\x23\x31\x12"))

        def whole_values():
            self.assertRegex(self.read(VALUES).decode(), r"\Aa=\d+\n\Z")

        left = self.kill([SAVER, "scores", "a", "1", "100000"], "sav/scores.sav", whole_scores)
        left += self.kill([SAVER, "preferences", "a", "1", "100000"], VALUES, whole_values)
        print(f"{left} of {2 * int(KILLS)} kills left a file", file=sys.stderr)
        for command in (["scores", "b", "999999"], ["preferences", "a", "0"]):
            self.assertEqual(self.run_program([SAVER, *command]), (0, ""))
        self.assertEqual(self.files(), self.clean | {"sav/scores.sav", VALUES})

    def test_whoever_comes_first_makes_the_folders(self):
        for _ in range(40):
            programs = [subprocess.Popen([SAVER, "preferences", name, "1"], cwd=self.home,
                                         env=self.environment()) for name in "abcd"]
            self.assertEqual([program.wait() for program in programs], [0] * 4)
            self.assertEqual(sorted(self.read(VALUES).split()), [b"a=1", b"b=1", b"c=1", b"d=1"])
            shutil.rmtree(os.path.join(self.home, "config"))


if __name__ == "__main__":
    unittest.main(verbosity=2)
