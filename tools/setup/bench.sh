#!/usr/bin/env bash
# A short run of every benchmark, so that none of them rots; figures that are to be compared
# come from longer runs of one program.
set -euo pipefail
build=$1
for program in "$build"/bench/*Bench; do
  case $(basename "$program") in
    DrawBench | StartupBench) display=tools/setup/with_display.sh ;;
    *) display= ;;
  esac
  $display "$program" --benchmark_min_time=0.05
done
