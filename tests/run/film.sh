#!/usr/bin/env bash
# film.sh PROGRAM OUT: starts the game on the display at hand, films it while keys are pressed,
# and takes a picture now and then.
set -euo pipefail
program=$1
out=$2
home=$(mktemp -d)
cd "$home"
# An empty film of one's own passes over the opening.
mkdir vid cfg
: >vid/intro.avi
echo "enableLogging true" >cfg/console.cfg
export HOME=$home XDG_CONFIG_HOME=$home/config
"$program" -FULLSCREEN 0 -RESOLUTION 800 600 &
game=$!
film=
trap 'kill $game $film 2>/dev/null || true; wait; rm -rf "$home"' EXIT

window=$(timeout 30 xdotool search --sync --onlyvisible --name '^Vantrel: Version' | tail -n 1)
place() { xwininfo -id "$window" | sed -n "s/.*$1: *//p"; }

# click X Y: in the window; buttons act a moment later.
click() {
  xdotool mousemove --window "$window" "$1" "$2" click 1
  sleep 1.2
}
# The menu hears nothing before the level stands and the loading picture is gone.
for _ in $(seq 300); do
  grep -qs "Initialising particle renderer" ConsoleLog.txt && break
  sleep 0.1
done
sleep 2
ffmpeg -loglevel error -y -f x11grab -framerate 30 -video_size "$(place Width)x$(place Height)" \
  -i "$DISPLAY+$(place 'Absolute upper-left X'),$(place 'Absolute upper-left Y')" \
  -c:v mpeg4 -q:v 4 "$out/play.mp4" </dev/null &
film=$!
click 400 194 # the start button

# Each line: seconds to wait, keys held from then on, name of a picture to take.
held=
while read -r wait keys picture; do
  sleep "$wait"
  for key in $held; do xdotool keyup "$key"; done
  held=
  [ "$keys" = none ] || held=$keys
  for key in $held; do xdotool keydown "$key"; done
  [ -z "$picture" ] || import -window "$window" "$out/$picture.png"
done <"$(dirname "$(readlink -f "$0")")/film.keys"

kill -INT $film
wait $film || true
film=
# Out by the menu: Escape, the quit button, yes.
xdotool key Escape
click 400 538
click 260 362
wait $game
echo "Played to the end; see $out"
