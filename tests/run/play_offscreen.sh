#!/usr/bin/env bash
# play_offscreen.sh PROGRAM OUT: plays the first level with recorded keys on a display of its
# own, and leaves pictures and a short film in OUT.
set -euo pipefail
here="$(dirname "$(readlink -f "$0")")"
program=$(readlink -f "$1")
mkdir -p "$2"
exec "$here/with_display.sh" "$here/film.sh" "$program" "$(readlink -f "$2")"
