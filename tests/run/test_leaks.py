"""Tilts each shipped level for four minutes of its time, along its recorded run and beyond: no
drop may get through a wall.

    test_leaks.py VANTREL-SOLVE
"""

import pathlib
import subprocess
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
MINUTES = 4


class Leaks(unittest.TestCase):
    def test_no_level_leaks(self):
        levels = sorted(path.stem for path in (ROOT / "levels").glob("*.run"))
        self.assertTrue(levels)
        for name in levels:
            with self.subTest(level=name):
                done = subprocess.run(
                    [solver, f"lev\\{name}.swah", "--leaks", "--minutes", str(MINUTES), "--along",
                     ROOT / "levels" / f"{name}.run"], capture_output=True, text=True, cwd=ROOT)
                self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
                self.assertIn("drops leaked: 0\n", done.stdout)


if __name__ == "__main__":
    solver = sys.argv[1]
    unittest.main(argv=sys.argv[:1])
