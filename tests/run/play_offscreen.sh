#!/usr/bin/env bash
# play_offscreen.sh PROGRAM OUT: plays the first level on a display of its own, by its recorded
# run or else with keys, and leaves pictures and a short film in OUT.
set -euo pipefail
here="$(dirname "$(readlink -f "$0")")"
program=$(readlink -f "$1")
mkdir -p "$2"
out=$(readlink -f "$2")
run=$here/../../levels/testLevel.run
if [ -e "$run" ]; then
  exec "$here/with_display.sh" "$here/film_replay.sh" "$program" "$out" "$(readlink -f "$run")"
fi
exec "$here/with_display.sh" "$here/film.sh" "$program" "$out"
