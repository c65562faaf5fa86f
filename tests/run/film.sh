#!/usr/bin/env bash
# film.sh PROGRAM OUT: starts the game on the display at hand, films it while keys are pressed,
# and takes a picture now and then.
keys=$(dirname "$(readlink -f "$0")")/film.keys
. "$(dirname "$keys")/filming.sh"
: >vid/intro.avi # an empty film of one's own passes over the opening
start_game -RESOLUTION 800 600

# click X Y: in the window; buttons act a moment later.
click() {
  xdotool mousemove --window "$window" "$1" "$2" click 1
  sleep 1.2
}
# The menu hears nothing before the loading picture is gone.
sleep 2
start_film
click 400 194 # the start button

# Each line: seconds to wait, keys held from then on, name of a picture to take.
held=
while read -r wait pressed picture; do
  sleep "$wait"
  for key in $held; do xdotool keyup "$key"; done
  held=
  [ "$pressed" = none ] || held=$pressed
  for key in $held; do xdotool keydown "$key"; done
  [ -z "$picture" ] || import -window "$window" "$out/$picture.png"
done <"$keys"

stop_film
# Out by the menu: Escape, the quit button, yes.
xdotool key Escape
click 400 538
click 260 362
wait "$game"
game=
echo "Played; see $out"
