#!/usr/bin/env bash
# Sets everything up, builds Wayfern and starts it for the current user.
# Without a display the window is served over VNC on the loopback address: connect a VNC
# viewer to localhost:5900.
set -euo pipefail
top="$(cd "$(dirname "$0")/.." && pwd)"
bash "$top/scripts/setup.sh"
bash "$top/scripts/build.sh"
build="${WAYFERN_BUILD_DIR:-$top/build}"
export WAYFERNCFG="${WAYFERNCFG:-$HOME/.config/wayfern}"
export WAYFERN_DATA="${WAYFERN_DATA:-$HOME/wayfern}"
bash "$top/scripts/prepare-user.sh"

if [ -z "${QT_QPA_PLATFORM:-}" ] && [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
  port="${WAYFERN_VNC_PORT:-5900}"
  export QT_QPA_PLATFORM="vnc:size=480x640:port=$port"
  # The VNC server has no password and no setting for its address: the preloaded library
  # binds it to the loopback address, so that nobody beyond this machine reaches it.
  export LD_PRELOAD="$build/src/libwayfern-loopback.so${LD_PRELOAD:+:$LD_PRELOAD}"
  echo "Wayfern: no display found; the window is served over VNC on this machine only."
  echo "Wayfern: connect a VNC viewer to localhost:$port (e.g. 'vncviewer localhost:$port');"
  echo "Wayfern: from elsewhere through SSH: 'ssh -L $port:localhost:$port USER@HOST', then the same."
fi
# A journey named relative to where this was started is found from there (the program
# reads this folder), though the program runs in the journey directory.
export WAYFERN_START_DIR="$PWD"
cd "$WAYFERN_DATA"
exec "$build/src/wayfern" "$@"
