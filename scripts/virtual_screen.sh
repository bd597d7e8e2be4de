# To be sourced by scripts that show windows: a virtual display of their own with a window manager.
# shellcheck shell=bash

screenScratch=$(mktemp -d)
started=()  # processes to end, the newest first

EndStarted() {
  local i
  for ((i = ${#started[@]} - 1; i >= 0; i--)); do
    kill "${started[i]}" 2>/dev/null || true
    wait "${started[i]}" 2>/dev/null || true
  done
  rm -rf "$screenScratch"
}
trap EndStarted EXIT
trap 'exit 130' INT TERM

Fail() {
  echo "${0##*/}: $1" >&2
  exit 1
}

# WaitFor SECONDS WHAT COMMAND...: polls until the command succeeds.
WaitFor() {
  local until=$((SECONDS + $1)) what=$2
  shift 2
  until "$@"; do
    ((SECONDS < until)) || Fail "$what did not come"
    sleep 0.05
  done
}

# IsPainted PROCESS LOG: whether the window of the editor that runs as PROCESS, and says what it says
# in LOG, is drawn; sets window.
IsPainted() {
  kill -0 "$1" 2>/dev/null || Fail "the program ended by itself: $(tail -n 5 "$2")"
  window=$(xdotool search --onlyvisible --name '^Vesmora  ' 2>/dev/null | head -n 1)
  [[ -n $window ]] || return 1
  (($(import -silent -window "$window" -crop 500x400+100+100 -format %k info: 2>/dev/null || echo 0) > 3))
}

HasWindowManager() { xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'; }

# Sets DISPLAY.
StartScreen() {
  Xvfb -displayfd 3 -screen 0 1600x1000x24 -nolisten tcp \
    3>"$screenScratch/display" >"$screenScratch/xvfb.log" 2>&1 &
  started+=($!)
  WaitFor 15 Xvfb grep -qs '^[0-9]' "$screenScratch/display"
  DISPLAY=:$(<"$screenScratch/display")
  export DISPLAY
  unset WAYLAND_DISPLAY
  openbox >"$screenScratch/openbox.log" 2>&1 &
  started+=($!)
  WaitFor 15 openbox HasWindowManager
}
