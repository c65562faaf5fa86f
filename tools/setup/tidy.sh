#!/usr/bin/env bash
# clang-tidy over our sources, with the compile commands of a build directory.
set -euo pipefail
build=$1
git ls-files 'src/*.cpp' 'tools/*.cpp' |
  xargs -P "$(nproc)" -n 4 clang-tidy -p "$build" --quiet 2>/dev/null
