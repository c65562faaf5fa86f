#!/usr/bin/env bash
# A short run of every benchmark, so that none of them rots; figures that are to be compared
# come from longer runs of one program.
set -euo pipefail
build=$1
for program in "$build"/bench/*Bench; do
  display=
  [ "$(basename "$program")" = DrawBench ] && display=tests/run/with_display.sh
  $display "$program" --benchmark_min_time=0.05
done
