#!/usr/bin/env bash
# menu_footprint.sh BUILD: what the main menu takes when nobody touches it, on a display of its own:
# the heap, by who asked for it, and the share of one processor, the renderer's threads included.
# The heap apart from graphics driver and compiler is the program's own.
set -euo pipefail
here="$(dirname "$(readlink -f "$0")")"
build=$(readlink -f "$1")
if [ "${2:-}" != inside ]; then
  exec "$here/with_display.sh" "$0" "$build" inside
fi

home=$(mktemp -d)
game=
finish() {
  [ -z "$game" ] || kill "$game" 2>/dev/null || true
  wait 2>/dev/null || true
  rm -rf "$home"
}
trap finish EXIT
cd "$home"
mkdir vid
: >vid/intro.avi
export HOME=$home XDG_CONFIG_HOME=$home ALSOFT_DRIVERS=null
start() {
  env "$@" "$build/src/game/vantrel" -FULLSCREEN 0 -RESOLUTION 800 600 2>"$home/log" &
  game=$!
  sleep 6
}
# Hundredths of a second.
taken() { awk '{ print $14 + $15 }' "/proc/$game/stat"; }

start VANTREL_DATA="$here/../../data"
before=$(taken)
sleep 10
echo "processor: $((($(taken) - before) / 10)) % of one"
awk '/^VmRSS/ { printf "resident: %.1f MB\n", $2 / 1024 }' "/proc/$game/status"
awk '/\[heap\]/ { heap = 1 } heap && /^Size/ { printf "size of the heap: %.1f MB\n", $2 / 1024; exit }' \
  "/proc/$game/smaps"
kill "$game"
wait "$game" || true

start VANTREL_DATA="$here/../../data" LD_PRELOAD="$build/bench/heap_by_library.so"
kill -USR1 "$game"
sleep 2
awk '$1 == "heap" {
  driver = $3 ~ /_dri\.so|LLVM|libGL|libgl|libEGL|gallium/
  sum[driver] += $2
  if ($2 > 500000) printf "  %6.1f MB asked for by %s\n", $2 / 1048576, $3
}
END { printf "heap: %.1f MB of its own, %.1f MB of the driver\n", sum[0] / 1048576, sum[1] / 1048576 }' "$home/log"
