#!/usr/bin/env bash
# film_replay.sh PROGRAM OUT RUN: shows a recorded run on the display at hand, films it, and takes
# a picture every few seconds.
run=$3
. "$(dirname "$(readlink -f "$0")")/filming.sh"
start_game -RESOLUTION 1280 720 -REPLAY "$run"
start_film

number=1
while ((SECONDS < limit)) && ! says "Replay is over"; do
  sleep 5
  import -window "$window" "$out/play-$(printf %03d "$number").png"
  number=$((number + 1))
done
((SECONDS >= limit)) || sleep 5
import -window "$window" "$out/end.png"

stop_film
wmctrl -i -c "$window"
wait "$game"
game=
echo "Played; see $out"
