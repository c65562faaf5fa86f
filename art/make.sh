#!/bin/sh
# Makes every picture anew from its generator; needs Python 3 with numpy and Pillow.
set -e
cd "$(dirname "$0")"
for script in make_*.py; do
  echo "$script"
  python3 "$script"
done
