#!/usr/bin/env bash
# Sets everything up, builds Wayfern and starts it for the current user.
# Without a display the window is served over VNC: connect a VNC viewer to localhost:5900.
set -euo pipefail
top="$(cd "$(dirname "$0")/.." && pwd)"
bash "$top/scripts/setup.sh"
bash "$top/scripts/build.sh"
build="${WAYFERN_BUILD_DIR:-$top/build}"
export WAYFERNCFG="${WAYFERNCFG:-$HOME/.config/wayfern}"
export WAYFERN_DATA="${WAYFERN_DATA:-$HOME/wayfern}"
bash "$top/scripts/prepare-user.sh"

if [ -x "$build/src/wayfern" ]; then
  if [ -z "${QT_QPA_PLATFORM:-}" ] && [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
    port="${WAYFERN_VNC_PORT:-5900}"
    export QT_QPA_PLATFORM="vnc:size=480x640:port=$port"
    echo "Wayfern: no display found; the window is served over VNC."
    echo "Wayfern: connect a VNC viewer to localhost:$port (e.g. 'vncviewer localhost:$port')."
  fi
  cd "$WAYFERN_DATA"
  exec "$build/src/wayfern" "$@"
fi

# No window yet: check the journey that a new user starts with.
echo "Wayfern: the window comes with the shell; checking the starting journey instead."
exec "$build/src/wayfern-check" "$WAYFERN_DATA/template.wfn"
