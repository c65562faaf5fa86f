#!/usr/bin/env bash
# Runs a command on a display of its own, with a window manager, and ends both afterwards.
#   with_display.sh COMMAND [ARGUMENTS...]
# Exit status: the command's; 125 if there is no display to be had. SCREEN sets the screen
# (1280x1024x24), WINDOW_MANAGER=none goes without one.
set -u

folder=$(mktemp -d)
server=
manager=
command=
finish() {
  local process
  for process in $command $manager $server; do
    kill "$process" 2>/dev/null
    wait "$process" 2>/dev/null
  done
  rm -rf "$folder"
}
trap finish EXIT
trap 'exit 130' INT TERM

# await COMMAND...: until it succeeds, for 20 seconds at most, while the server lives.
await() {
  local tries
  for ((tries = 0; tries < 400; tries++)); do
    "$@" >/dev/null 2>&1 && return 0
    kill -0 "$server" 2>/dev/null || return 1
    sleep 0.05
  done
  return 1
}
fail() {
  echo "with_display.sh: $1" >&2
  cat "$folder/log" >&2
  exit 125
}

# The server picks a free display number itself and writes it down when it is ready.
Xvfb -displayfd 3 -screen 0 "${SCREEN:-1280x1024x24}" -nolisten tcp -noreset \
  3>"$folder/display" >"$folder/log" 2>&1 &
server=$!
await test -s "$folder/display" || fail "Xvfb doesn't start"
DISPLAY=:$(cat "$folder/display")
export DISPLAY
unset WAYLAND_DISPLAY

if [ "${WINDOW_MANAGER:-openbox}" != none ]; then
  openbox >>"$folder/log" 2>&1 &
  manager=$!
  managed() { xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'; }
  await managed || fail "openbox doesn't start"
fi

# Not in the foreground, where bash would hear of a signal only when the command has ended.
"$@" <&0 &
command=$!
wait "$command"
status=$?
command=
exit "$status"
