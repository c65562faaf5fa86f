#!/bin/sh
# Makes every sound and piece of music anew from its generator; needs Python 3 with numpy, and
# ffmpeg to pack the music.
set -e
cd "$(dirname "$0")"
for script in make_*.py; do
  echo "$script"
  python3 "$script"
done
