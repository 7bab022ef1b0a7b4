#!/usr/bin/env bash
# Sets everything up, builds Wayfern and starts it for the current user.
# Without a display the window is served over VNC on the loopback address: connect a VNC
# viewer to localhost:5900 (scripts/serve-vnc.sh says how to reach it from elsewhere).
set -euo pipefail
top="$(cd "$(dirname "$0")/.." && pwd)"
bash "$top/scripts/setup.sh"
bash "$top/scripts/build.sh"
build="${WAYFERN_BUILD_DIR:-$top/build}"
export WAYFERNCFG="${WAYFERNCFG:-$HOME/.config/wayfern}"
export WAYFERN_DATA="${WAYFERN_DATA:-$HOME/wayfern}"
bash "$top/scripts/prepare-user.sh"

cd "$WAYFERN_DATA"
if [ -z "${QT_QPA_PLATFORM:-}" ] && [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
  echo "Wayfern: no display found; the window gets a virtual screen served over VNC."
  exec bash "$top/scripts/serve-vnc.sh" "$build/src/wayfern" "$@"
fi
exec "$build/src/wayfern" "$@"
