#!/usr/bin/env bash
# The window served over VNC as the run command serves it: with the loopback library
# preloaded the VNC server listens on the loopback address only and answers there; without
# it, the same server listens on every interface (which is why the library is there).
#   vncloopback-check.sh WAYFERN LOOPBACK_LIBRARY SOURCE_DIR
set -euo pipefail
program="$1"
library="$2"
top="$3"
work="$(mktemp -d)"
pid=
cleanup() {
  if [ -n "$pid" ]; then kill "$pid" 2>/dev/null || true; wait "$pid" 2>/dev/null || true; fi
  rm -rf "$work"
}
trap cleanup EXIT

# A sanitizer build wants its runtime first among the loaded libraries; the preloaded one
# comes before it.
export ASAN_OPTIONS="${ASAN_OPTIONS:+$ASAN_OPTIONS:}verify_asan_link_order=0"
export WAYFERNCFG="$work/cfg" WAYFERN_DATA="$work/data"
bash "$top/scripts/prepare-user.sh" >/dev/null

port_in_use() {
  grep -q ":$(printf '%04X' "$1") [0-9A-F:]* 0A " /proc/net/tcp /proc/net/tcp6 2>/dev/null
}
# The local addresses that listen on the port, one per line, as /proc/net/tcp* gives them.
listeners() {
  awk -v port="$(printf '%04X' "$1")" \
    '$4 == "0A" { split($2, a, ":"); if (a[2] == port) print a[1] }' /proc/net/tcp /proc/net/tcp6
}

# Starts the window on a free port (with LD_PRELOAD as given) and waits until it listens.
start() {
  port=$((40000 + RANDOM % 20000))
  while port_in_use "$port"; do port=$((port + 1)); done
  (cd "$WAYFERN_DATA" && exec env QT_QPA_PLATFORM="vnc:size=480x640:port=$port" "$@" \
    "$program" >"$work/out" 2>&1) &
  pid=$!
  for _ in $(seq 200); do
    [ -n "$(listeners "$port")" ] && return 0
    kill -0 "$pid" 2>/dev/null || { echo "the program ended early:"; cat "$work/out"; exit 1; }
    sleep 0.05
  done
  echo "FAIL: nothing listens on port $port"; cat "$work/out"; exit 1
}
stop() {
  kill "$pid"
  wait "$pid" 2>/dev/null || true
  pid=
}

# IPv4 127.0.0.1, or the IPv4-mapped ::ffff:127.0.0.1 of a dual-stack socket.
loopback='^(0100007F|0000000000000000FFFF00000100007F|00000000000000000000000001000000)$'
wildcard='^(00000000|00000000000000000000000000000000)$'

start env LD_PRELOAD="$library"
found="$(listeners "$port")"
if echo "$found" | grep -Eqv "$loopback"; then
  echo "FAIL: with the library the server listens beyond the loopback address: $found"; exit 1
fi
# A viewer on this machine is greeted with the protocol's version line.
exec 3<>"/dev/tcp/127.0.0.1/$port"
read -r -t 10 greeting <&3
exec 3<&-
case "$greeting" in
  RFB\ 003.*) ;;
  *) echo "FAIL: no VNC greeting on 127.0.0.1:$port, got '$greeting'"; exit 1 ;;
esac
stop

start env
found="$(listeners "$port")"
if ! echo "$found" | grep -Eq "$wildcard"; then
  echo "FAIL: without the library the server was expected on every interface: $found"; exit 1
fi
stop
echo "PASS"
