#!/usr/bin/env bash
# The benchmarks of a build, in one of two ways.
#   bench.sh BUILD             a short run of every program, so that none of them rots
#   bench.sh --against COMMIT [OPTIONS...]
#                              this tree's against an earlier commit's, side by side: see
#                              bench_against.py --help
set -euo pipefail
if [ "${1:-}" = "--against" ]; then
  exec "$(dirname "$(readlink -f "$0")")/bench_against.py" "${@:2}"
fi
build=$1
for program in "$build"/bench/*Bench; do
  case $(basename "$program") in
    DrawBench | StartupBench) display=tools/setup/with_display.sh ;;
    *) display= ;;
  esac
  $display "$program" --benchmark_min_time=0.05
done
