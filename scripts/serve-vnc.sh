#!/usr/bin/env bash
# Runs a program on its own virtual X server and serves that screen over VNC on the loopback
# address only, until the program ends; then the X and VNC servers end too.
#   serve-vnc.sh PROGRAM [ARGS...]
#   WAYFERN_VNC_PORT   VNC port (default 5900)
#   WAYFERN_VNC_SIZE   screen size (default 480x640)
# Every window the program opens, the help viewer's too, shares the one screen, so a second
# program never competes for the port. From another machine, tunnel the port through SSH:
#   ssh -L 5900:localhost:5900 user@host   then connect a viewer to localhost:5900.
set -euo pipefail
[ $# -ge 1 ] || { echo "usage: serve-vnc.sh PROGRAM [ARGS...]" >&2; exit 2; }
port="${WAYFERN_VNC_PORT:-5900}"
size="${WAYFERN_VNC_SIZE:-480x640}"

if grep -q ":$(printf '%04X' "$port") [0-9A-F:]* 0A " /proc/net/tcp /proc/net/tcp6 2>/dev/null; then
  echo "serve-vnc.sh: port $port is in use; set WAYFERN_VNC_PORT to another one" >&2
  exit 1
fi

# The first free display number from 90 upwards.
display=90
while [ -e "/tmp/.X$display-lock" ] || [ -e "/tmp/.X11-unix/X$display" ]; do
  display=$((display + 1))
done

xvfb_pid=
wm_pid=
program_pid=
vnc_pid=
cleanup() {
  for pid in $program_pid $vnc_pid $wm_pid $xvfb_pid; do
    kill "$pid" 2>/dev/null || true
    wait "$pid" 2>/dev/null || true
  done
}
trap cleanup EXIT
trap 'exit 130' INT TERM

Xvfb ":$display" -screen 0 "${size}x24" -nolisten tcp >/dev/null 2>&1 &
xvfb_pid=$!
for _ in $(seq 100); do
  [ -S "/tmp/.X11-unix/X$display" ] && break
  kill -0 "$xvfb_pid" 2>/dev/null || { echo "serve-vnc.sh: the X server did not start" >&2; exit 1; }
  sleep 0.1
done

# A handheld's window manager: each window fills the screen under a title bar that closes it.
DISPLAY=":$display" matchbox-window-manager -use_titlebar yes >/dev/null 2>&1 &
wm_pid=$!

# -localhost: nobody beyond this machine reaches the screen, which has no password.
vnc_log="$(mktemp)"
x11vnc -display ":$display" -localhost -rfbport "$port" -forever -shared -nopw -quiet \
  >"$vnc_log" 2>&1 &
vnc_pid=$!
# x11vnc says "PORT=..." once it listens.
for _ in $(seq 100); do
  grep -q "^PORT=$port" "$vnc_log" && break
  if ! kill -0 "$vnc_pid" 2>/dev/null; then
    echo "serve-vnc.sh: the VNC server did not start:" >&2
    cat "$vnc_log" >&2
    exit 1
  fi
  sleep 0.1
done
rm -f "$vnc_log"
echo "Wayfern: the window is served over VNC at localhost:$port (loopback only)."

# In the background, so that a signal to this script ends the program and the servers at
# once instead of after the program.
env -u QT_QPA_PLATFORM -u WAYLAND_DISPLAY DISPLAY=":$display" "$@" &
program_pid=$!
status=0
wait "$program_pid" || status=$?
program_pid=
exit "$status"
