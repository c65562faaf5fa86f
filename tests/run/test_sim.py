"""vantrel-sim on the shipped first level, as a tester of levels uses it.

    python3 test_sim.py VANTREL_SIM
"""

import os
import subprocess
import sys
import tempfile
import unittest

SIM = sys.argv.pop(1)
ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
DATA = os.path.join(ROOT, "data")
LEVEL = os.path.join(DATA, "lev", "testLevel.swah")


def run(*arguments, level=LEVEL):
    return subprocess.run([SIM, level, *map(str, arguments), "--data", DATA],
                          capture_output=True, text=True, check=False, timeout=300)


def trace(*arguments):
    result = run(*arguments)
    assert result.returncode == 0, result.stderr
    return result.stdout


def steps(text):
    """The blocks of a trace, each a list of its lines split into words."""
    blocks = []
    for line in text.splitlines():
        words = line.split()
        if words[0] == "STEP":
            blocks.append([])
        if words[0] != "END":
            blocks[-1].append(words)
    return blocks


def rows(block, kind):
    return [words[1:] for words in block if words[0] == kind]


def particles(block):
    return [tuple(map(float, words)) for words in rows(block, "P")]


def write(test, text):
    """A file that goes with the test; its path."""
    directory = tempfile.TemporaryDirectory()
    test.addCleanup(directory.cleanup)
    path = os.path.join(directory.name, "file")
    with open(path, "w", encoding="ascii") as file:
        file.write(text)
    return path


class Trace(unittest.TestCase):
    def test_a_block_per_step_in_the_given_form(self):
        text = trace("--frames", 200, "--frame-ms", 20, "--every", 7)
        numbers = [int(line.split()[1]) for line in text.splitlines() if line.startswith("STEP")]
        self.assertEqual(numbers, [n for n in range(1, 200) if n % 7 == 0][:len(numbers)])
        first = steps(text)[0]
        kinds = [words[0] for words in first]
        self.assertEqual(kinds[:4], ["STEP", "CAMERA", "RANDOM", "PROGRESS"])
        self.assertEqual(len(rows(first, "P")), 128)
        self.assertEqual([len(words) for words in rows(first, "CAMERA") + rows(first, "PROGRESS")],
                         [7, 6])
        self.assertRegex(text.splitlines()[-1], r"^END running 200 \d+ \d+ 128 \d+$")

    def test_held_keys_tilt_the_world_and_the_water_follows(self):
        keys = write(self, "150 right\n230 none\n")
        still = steps(trace("--frames", 320, "--frame-ms", 16, "--every", 10))[-1]
        tilted = steps(trace("--frames", 320, "--frame-ms", 16, "--every", 10, "--input", keys))[-1]
        self.assertLess(float(rows(tilted, "CAMERA")[0][2]), -30)
        middle = [sum(p[0] for p in particles(block)) / 128 for block in (still, tilted)]
        self.assertGreater(middle[1], middle[0] + 100)

    def test_what_has_no_end_or_no_room_ends_in_one_line(self):
        pipe = write(self, "")
        os.remove(pipe)
        os.mkfifo(pipe)
        endless = 100000000
        cases = [(endless, ["--input", "/dev/zero"], os.devnull),
                 (endless, ["--input", pipe], os.devnull),
                 (endless, ["--record", "/nowhere/a.run"], os.devnull),
                 (endless, [], "/dev/full"), (9, ["--quiet"], "/dev/full")]
        for frames, arguments, output in cases:
            with open(output, "w", encoding="ascii") as out:
                result = subprocess.run([SIM, LEVEL, "--frames", str(frames), "--frame-ms", "16",
                                         *arguments, "--data", DATA], stdout=out,
                                        stderr=subprocess.PIPE, text=True, check=False, timeout=60)
            self.assertEqual(result.returncode, 1, (arguments, output))
            self.assertEqual(len(result.stderr.splitlines()), 1, result.stderr)

    def test_bad_arguments_and_files_are_told_in_one_line(self):
        keys = write(self, "12 sideways\n")
        cases = [(["--frames", "x", "--frame-ms", 16], 2), (["--frames", 10], 2),
                 (["--frames", 10, "--frame-ms", 16, "--every", 0], 2),
                 (["--frames", 10, "--frame-ms", 16, "--nonsense", 1], 2),
                 (["--frames", 10, "--frame-ms", 16, "--input", keys], 1)]
        for arguments, status in cases:
            result = run(*arguments)
            self.assertEqual(result.returncode, status, arguments)
            self.assertEqual(len(result.stderr.splitlines()), 1, result.stderr)
        result = run("--frames", 1, "--frame-ms", 16, level=keys)
        self.assertEqual(result.returncode, 1)
        self.assertIn("Not a Vantrel level file.", result.stderr)


if __name__ == "__main__":
    unittest.main(verbosity=2)
