"""Holds the shipped levels to what a player and an author expect: sources and level files
agree, the checker is content, and each level's recorded run wins it.

    test_levels.py VANTREL-SIM VANTREL-LEVEL
"""

import pathlib
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
LEVELS = sorted(path.stem for path in (ROOT / "data" / "lev").glob("*.swah"))
ENOUGH_WATER = 90  # of the 128 particles that a level starts with


def output(*command, **options):
    done = subprocess.run([str(word) for word in command], capture_output=True, text=True,
                          **options)
    if done.returncode:
        raise AssertionError(f"{command}: status {done.returncode}: {done.stderr}")
    return done.stdout


def summary(run):
    lines = output(simulator, "--replay", run, "--quiet", cwd=ROOT).splitlines()
    return dict(line.split(" ", 1) for line in lines)


class ShippedLevels(unittest.TestCase):
    def test_there_are_ten(self):
        self.assertEqual(len(LEVELS), 10, LEVELS)

    def test_sources_give_the_shipped_bytes(self):
        for name in LEVELS:
            with self.subTest(level=name), tempfile.TemporaryDirectory() as folder:
                folder = pathlib.Path(folder)
                output(sys.executable, ROOT / "levels" / f"{name}.py", cwd=folder)
                drawn = (folder / f"{name}.tmj").read_bytes()
                self.assertEqual(drawn, (ROOT / "levels" / f"{name}.tmj").read_bytes())
                output(compiler, "compile", folder / f"{name}.tmj", "-o", folder / "it.swah")
                shipped = (ROOT / "data" / "lev" / f"{name}.swah").read_bytes()
                self.assertEqual((folder / "it.swah").read_bytes(), shipped)

    def test_the_checker_has_no_complaint(self):
        for name in LEVELS:
            with self.subTest(level=name):
                said = output(compiler, "check", ROOT / "data" / "lev" / f"{name}.swah", cwd=ROOT)
                complaints = [line for line in said.splitlines()
                              if line.startswith(("error", "warning"))]
                self.assertEqual(complaints, [])

    def test_recorded_runs_win(self):
        for name in LEVELS:
            with self.subTest(level=name):
                run = summary(ROOT / "levels" / f"{name}.run")
                self.assertEqual(run["finished"], "yes")
                self.assertGreaterEqual(int(run["water"]), ENOUGH_WATER)


if __name__ == "__main__":
    simulator, compiler = sys.argv[1:3]
    unittest.main(argv=sys.argv[:1])
