#!/usr/bin/env bash
# film_replay.sh PROGRAM OUT RUN: shows a recorded run on the display at hand, films it, and takes
# a picture every few seconds.
set -euo pipefail
program=$1
out=$2
run=$3
home=$(mktemp -d)
cd "$home"
mkdir cfg
echo "enableLogging true" >cfg/console.cfg
export HOME=$home XDG_CONFIG_HOME=$home/config
"$program" -FULLSCREEN 0 -RESOLUTION 1280 720 -REPLAY "$run" &
game=$!
film=
trap 'kill $game $film 2>/dev/null || true; wait; rm -rf "$home"' EXIT

window=$(timeout 30 xdotool search --sync --onlyvisible --name '^Vantrel: Version' | tail -n 1)
place() { xwininfo -id "$window" | sed -n "s/.*$1: *//p"; }
says() { grep -qs "$1" ConsoleLog.txt; }

for _ in $(seq 300); do
  says "Initialising particle renderer" && break
  says "Unable to replay" && exit 1
  sleep 0.1
done
ffmpeg -loglevel error -y -f x11grab -framerate 30 -video_size "$(place Width)x$(place Height)" \
  -i "$DISPLAY+$(place 'Absolute upper-left X'),$(place 'Absolute upper-left Y')" \
  -c:v mpeg4 -q:v 4 "$out/play.mp4" </dev/null &
film=$!

# Ten minutes at most: a run is finished in far less.
for number in $(seq -w 120); do
  sleep 5
  import -window "$window" "$out/play-$number.png"
  says "Replay is over" && break
done
sleep 5
import -window "$window" "$out/end.png"

kill -INT $film
wait $film || true
film=
wmctrl -i -c "$window"
wait $game
echo "Played to the end; see $out"
