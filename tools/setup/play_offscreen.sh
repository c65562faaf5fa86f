#!/usr/bin/env bash
# play_offscreen.sh PROGRAM OUT: plays the first level on a display of its own, by its recorded
# run, and leaves pictures and a short film in OUT.
set -euo pipefail
here="$(dirname "$(readlink -f "$0")")"
program=$(readlink -f "$1")
mkdir -p "$2"
out=$(readlink -f "$2")
run=$(readlink -f "$here/../../levels/testLevel.run")
exec "$here/with_display.sh" "$here/film_replay.sh" "$program" "$out" "$run"
