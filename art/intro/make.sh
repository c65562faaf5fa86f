#!/usr/bin/env bash
# make.sh BUILD: renders the opening film anew, data/vid/intro.avi, with the programs of a build
# folder, on a display of its own. Its sound track is made by art/sound.
#
# The film's header says 29 ms a frame, and it is made for 33.3: the player shows a frame until
# the first refresh of 60 a second after its time.
set -euo pipefail
here="$(dirname "$(readlink -f "$0")")"
root="$(dirname "$(dirname "$here")")"
build="$(readlink -f "$1")"
ninja -C "$build" intro-film vantrel-level
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/lev"
/usr/bin/python3 "$here/level.py" "$work/intro.tmj"
"$build/tools/vantrel-level/vantrel-level" compile "$work/intro.tmj" -o "$work/lev/intro.swah"
cd "$work"
export VANTREL_DATA=$root/data
"$root/tools/setup/with_display.sh" "$build/tools/intro-film/intro-film" 'lev\intro.swah' |
  /usr/bin/python3 "$here/title.py" |
  ffmpeg -nostdin -loglevel error -y -f rawvideo -pixel_format rgb24 -video_size 800x600 \
    -framerate 1000/29 -i - -c:v mpeg4 -q:v 3 -bf 0 -g 30 -pix_fmt yuv420p "${2:-$root/data/vid/intro.avi}"
