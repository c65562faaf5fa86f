#!/usr/bin/env bash
# film_replay.sh PROGRAM OUT RUN: shows a recorded run on the display at hand in a home of its own,
# films it for FILM_SECONDS at most (180), takes a picture every few seconds, and leaves nothing
# running, however it ends.
set -euo pipefail
program=$1
out=$2
run=$3
limit=${FILM_SECONDS:-180}
game=
film=
home=$(mktemp -d)
cd "$home"
mkdir cfg
echo "enableLogging true" >cfg/console.cfg
export HOME=$home XDG_CONFIG_HOME=$home/config

# end PROCESS: asks it to end, and after ten seconds no longer asks.
end() {
  kill "$1" 2>/dev/null || return 0
  local tries
  for ((tries = 0; tries < 100; tries++)); do
    kill -0 "$1" 2>/dev/null || break
    sleep 0.1
  done
  kill -KILL "$1" 2>/dev/null || true
  wait "$1" 2>/dev/null || true
}
finish() {
  [ -z "$film" ] || end "$film"
  [ -z "$game" ] || end "$game"
  rm -rf "$home"
}
trap finish EXIT
trap 'exit 130' INT TERM

says() { grep -qs "$1" ConsoleLog.txt; }
place() { xwininfo -id "$window" | sed -n "s/.*$1: *//p"; }

"$program" -FULLSCREEN 0 -RESOLUTION 1280 720 -REPLAY "$run" &
game=$!
window=$(timeout 30 xdotool search --sync --onlyvisible --name '^Vantrel: Version' | tail -n 1)
for ((tries = 0; tries < 300; tries++)); do
  says "Initialising particle renderer" && break
  says "Unable to replay" && exit 1
  sleep 0.1
done
timeout -k 10 "$limit" ffmpeg -loglevel error -y -f x11grab -framerate 30 \
  -video_size "$(place Width)x$(place Height)" \
  -i "$DISPLAY+$(place 'Absolute upper-left X'),$(place 'Absolute upper-left Y')" \
  -c:v mpeg4 -q:v 4 "$out/play.mp4" </dev/null &
film=$!

number=1
while ((SECONDS < limit)) && ! says "Replay is over"; do
  sleep 5
  import -window "$window" "$out/play-$(printf %03d "$number").png"
  number=$((number + 1))
done
((SECONDS >= limit)) || sleep 5
import -window "$window" "$out/end.png"

end "$film"
film=
wmctrl -i -c "$window"
wait "$game"
game=
echo "Played; see $out"
