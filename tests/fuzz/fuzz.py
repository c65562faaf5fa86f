#!/usr/bin/env python3
"""Runs the fuzzing programs of a build, and prints a table of what they did.

    fuzz.py BUILD --seconds N   each program N seconds, as many at once as there are processors
    fuzz.py BUILD --minutes N   all programs in N minutes
    fuzz.py BUILD --keep        small inputs that reach what corpus/ doesn't go there

What is found stays in BUILD/corpus/NAME, from where the next run goes on; inputs that break
something go to BUILD/crashes. --only NAME,... picks programs. Status 1 if anything broke.
"""
import argparse
import concurrent.futures
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
LONGEST_KEPT = 4096  # bytes
MOST_KEPT = 60  # found inputs of a program
FOUND_NAME = re.compile("[0-9a-f]{12}")  # the beginning of the library's own
# Bytes of an input; what is slow on long ones learns more from short ones.
LONGEST = {"Input": 256, "ConsoleLine": 512, "LevelWhole": 8192,
           "Music": 16384, "Video": 16384}
# The entropic schedule costs the large programs a fifth of their time, and whole stacks of
# allocations as much.
LIMITS = ["-rss_limit_mb=1500", "-malloc_limit_mb=1000", "-timeout=10", "-close_fd_mask=3",
          "-entropic=0"]
SETTINGS = {"ASAN_OPTIONS": "allocator_may_return_null=1:malloc_context_size=6:"
                            "quarantine_size_mb=16"}


class Program:
    def __init__(self, build, path):
        self.name = path.name.removeprefix("fuzz_")
        self.path = path
        self.found = build / "corpus" / self.name
        self.crashes = build / "crashes"
        self.log = build / "logs" / f"{self.name}.log"
        for folder in (self.found, self.crashes, self.log.parent):
            folder.mkdir(parents=True, exist_ok=True)

    def kept(self):
        folders = (HERE / "corpus" / self.name, HERE / "crashes" / self.name)
        return [str(folder) for folder in folders if folder.is_dir()]

    def call(self, arguments):
        """In a directory of its own in memory, which goes even if the program breaks."""
        shm = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
        with tempfile.TemporaryDirectory(dir=shm) as folder, open(self.log, "w") as log:
            environment = os.environ | SETTINGS | {"TMPDIR": folder, "HOME": folder}
            return subprocess.run(["nice", str(self.path), *LIMITS, *arguments], cwd=folder,
                                  env=environment, stdout=log, stderr=log).returncode

    def search(self, seconds):
        """(executions, per second, broken); stops at the first input that breaks something."""
        status = self.call([f"-max_total_time={seconds}", "-print_final_stats=1",
                            f"-max_len={LONGEST.get(self.name, LONGEST_KEPT)}",
                            f"-artifact_prefix={self.crashes}/{self.name}-",
                            str(self.found), *self.kept()])
        text = self.log.read_text(errors="replace")
        stats = {key: int(value) for key, value in re.findall(r"stat::(\w+):\s+(\d+)", text)}
        runs = stats.get("number_of_executed_units", 0)
        return runs, stats.get("average_exec_per_sec", 0), status != 0

    def keep(self):
        """Inputs named by hand stay; of those found, a few that reach further edges."""
        target = HERE / "corpus" / self.name
        target.mkdir(parents=True, exist_ok=True)
        with tempfile.TemporaryDirectory() as folder:
            named = [file for file in target.iterdir() if not FOUND_NAME.fullmatch(file.name)]
            for file in named:
                shutil.copy(file, folder)
            status = self.call(["-merge=1", "-use_counters=0", f"-max_len={LONGEST_KEPT}", folder,
                                *self.kept(), str(self.found)])
            if status == 0:
                for file in set(target.iterdir()) - set(named):
                    file.unlink()
                found = [f for f in pathlib.Path(folder).iterdir() if len(f.name) == 40]
                for file in sorted(found, key=lambda f: f.stat().st_size)[:MOST_KEPT]:
                    shutil.copy(file, target / file.name[:12])
        return status == 0


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("--seconds", type=int)
    parser.add_argument("--minutes", type=float)
    parser.add_argument("--keep", action="store_true")
    parser.add_argument("--only", default="")
    arguments = parser.parse_args()
    build = arguments.build.resolve()
    wanted = set(filter(None, arguments.only.split(",")))
    programs = [Program(build, path) for path in sorted((build / "tests/fuzz").glob("fuzz_*"))]
    programs = [p for p in programs if not wanted or p.name in wanted]
    jobs = os.cpu_count() or 1
    if arguments.keep:
        return 0 if all([p.keep() for p in programs]) else 1
    seconds = arguments.seconds or int((arguments.minutes or 1) * 60 * jobs / len(programs)) or 1
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        results = list(pool.map(lambda p: p.search(seconds), programs))
    print(f"{'harness':<16}{'executions':>12}{'a second':>10}  crashes")
    for program, (runs, rate, broken) in zip(programs, results):
        print(f"{program.name:<16}{runs:>12,}{rate:>10,}  "
              f"{f'see {program.log}' if broken else 0}")
    print(f"{'all':<16}{sum(result[0] for result in results):>12,}{'':>10}  "
          f"{sum(result[2] for result in results)}")
    return 1 if any(result[2] for result in results) or not programs else 0


if __name__ == "__main__":
    sys.exit(main())
