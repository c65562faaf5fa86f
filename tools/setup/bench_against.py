#!/usr/bin/env python3
"""Compares this tree's benchmarks with those of an earlier commit.

Builds both (the earlier one in a worktree of its own, build/against), runs the same programs of
the two in turn, and prints for each benchmark the least and the middle processor time of either
and the ratio of the least, new to old.
"""

import argparse
import json
import os
import pathlib
import statistics
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
NEEDS_DISPLAY = {"DrawBench", "StartupBench"}
NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}


def parse_arguments():
    parser = argparse.ArgumentParser(
        prog="bench.sh --against", description=__doc__.split("\n", 1)[0]
    )
    parser.add_argument("commit", help="what to compare with: a commit, tag or branch")
    parser.add_argument(
        "--program", action="append", metavar="NAME", help="only this one, such as BspBench"
    )
    parser.add_argument("--filter", default=".", metavar="REGEX", help="only these benchmarks")
    parser.add_argument("--rounds", type=int, default=3, help="runs of each program (3)")
    parser.add_argument("--min-time", default="0.2", metavar="SECONDS", help="per benchmark (0.2)")
    parser.add_argument(
        "--display", action="store_true", help="also those that need one, on a display of their own"
    )
    return parser.parse_args()


def check_out(commit):
    """The earlier tree; the worktree is kept, so that a second build of it is quick."""
    tree = ROOT / "build" / "against"
    git = ["git", "-C", ROOT]
    find = [*git, "rev-parse", "--verify", "--quiet", f"{commit}^{{commit}}"]
    name = subprocess.run(find, capture_output=True, text=True).stdout.strip()
    if not name:
        sys.exit(f"bench.sh: no commit {commit}")
    if (tree / ".git").exists():
        subprocess.run(["git", "-C", tree, "checkout", "--quiet", "--detach", name], check=True)
    else:
        subprocess.run([*git, "worktree", "prune"], check=True)
        subprocess.run([*git, "worktree", "add", "--quiet", "--detach", tree, name], check=True)
    return tree


def programs_of(tree, arguments):
    names = {path.stem for path in (tree / "bench").glob("*Bench.cpp")}
    if arguments.program:
        return names & set(arguments.program)
    return names if arguments.display else names - NEEDS_DISPLAY


def build(tree, programs):
    if not programs:
        return
    subprocess.run(
        ["cmake", "--preset", "release"], cwd=tree, check=True, stdout=subprocess.DEVNULL
    )
    command = ["cmake", "--build", "build/release", "--target", *sorted(programs)]
    command += ["--", f"-j{os.cpu_count()}", "--quiet"]
    subprocess.run(command, cwd=tree, check=True, stdout=sys.stderr)


def run(tree, program, arguments):
    """Processor time in nanoseconds by name; wall time where the benchmark is named for it."""
    command = [
        f"build/release/bench/{program}", "--benchmark_format=json",
        f"--benchmark_filter={arguments.filter}", f"--benchmark_min_time={arguments.min_time}",
    ]
    if program in NEEDS_DISPLAY:
        command.insert(0, ROOT / "tools/setup/with_display.sh")
    done = subprocess.run(command, cwd=tree, capture_output=True, text=True)
    if done.returncode != 0:
        sys.exit(f"{program} of {tree} failed:\n{done.stderr}")
    if not done.stdout.strip():
        return {}  # no benchmark of that name
    times = {}
    for entry in json.loads(done.stdout)["benchmarks"]:
        if entry["run_type"] == "iteration" and not entry.get("error_occurred"):
            clock = "real_time" if "/real_time" in entry["name"] else "cpu_time"
            times[entry["name"]] = entry[clock] * NANOSECONDS[entry["time_unit"]]
    return times


def text_of(nanoseconds):
    for unit in ("ns", "us", "ms"):
        if nanoseconds < 1000:
            return f"{nanoseconds:.3g} {unit}"
        nanoseconds /= 1000
    return f"{nanoseconds:.3g} s"


def print_program(program, new, old):
    names = [*new, *(name for name in old if name not in new)]
    width = max(map(len, [program, *names]))
    heads = "".join(f"{head:>10}" for head in ("new min", "median", "old min", "median"))
    print(f"\n{program:{width}} {heads}  new/old")
    for name in names:
        cells = ""
        for times in (new.get(name), old.get(name)):
            for pick in (min, statistics.median):
                cells += f"{text_of(pick(times)) if times else '-':>10}"
        if name not in old:
            verdict = "only new"
        elif name not in new:
            verdict = "only old"
        else:
            verdict = f"{min(new[name]) / min(old[name]):7.2f}"
        print(f"{name:{width}} {cells}  {verdict}", flush=True)


def main():
    arguments = parse_arguments()
    trees = [ROOT, check_out(arguments.commit)]
    has = [programs_of(tree, arguments) for tree in trees]
    if not has[0] | has[1]:
        sys.exit("bench.sh: no such program")
    for tree, programs in zip(trees, has):
        build(tree, programs)
    for program in sorted(has[0] | has[1]):
        collected = [{}, {}]
        for _ in range(arguments.rounds):
            for side, tree in enumerate(trees):
                if program in has[side]:
                    for name, time in run(tree, program, arguments).items():
                        collected[side].setdefault(name, []).append(time)
        print_program(program, *collected)


if __name__ == "__main__":
    main()
