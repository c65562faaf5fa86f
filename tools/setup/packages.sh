#!/usr/bin/env bash
# Installs the packages of packages.txt that are missing (Debian and its relatives).
set -euo pipefail
list="$(dirname "$(readlink -f "$0")")/../../packages.txt"
missing=$(grep -v '^#' "$list" | while read -r package; do
  dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || echo "$package"
done)
[ -z "$missing" ] && exit 0

echo "Installing: $(echo $missing)"
root=""
[ "$(id -u)" = 0 ] || root=sudo
export DEBIAN_FRONTEND=noninteractive
$root apt-get update -qq
# shellcheck disable=SC2086 # a list of words
$root apt-get install -y -qq --no-install-recommends $missing >/dev/null
