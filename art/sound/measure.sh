#!/bin/sh
# Tells length, loudness and peak of every sound and piece of music; needs ffmpeg.
set -e
cd "$(dirname "$0")/../../data"
printf '%-24s %8s %8s %8s\n' sound seconds LUFS peak
for file in snd/*.wav snd/*.ogg vid/*.ogg; do
  [ -e "$file" ] || continue
  name=$(basename "$file")
  seconds=$(ffprobe -v error -show_entries format=duration -of csv=p=0 "$file")
  # Measures a sound shorter than a gating block by playing it over again.
  report=$(ffmpeg -hide_banner -nostats -stream_loop 8 -i "$file" -t "$(echo "$seconds" | awk '{print ($1 < 3) ? 3 : $1}')" \
    -af ebur128=peak=true -f null - 2>&1 | sed -n '/Summary/,$p')
  loud=$(echo "$report" | awk '/ I:/ {print $2}')
  peak=$(echo "$report" | awk '/Peak:/ {print $2}')
  printf '%-24s %8.2f %8s %8s\n' "$name" "$seconds" "$loud" "$peak"
done
