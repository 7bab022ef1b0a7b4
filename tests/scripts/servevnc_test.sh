#!/usr/bin/env bash
# The VNC serving of the run command: the screen is reachable on the loopback address only,
# the program sees its own X display and no VNC platform, its exit status comes through, and
# nothing of the servers is left running afterwards.
set -uo pipefail
serve="$1"
helpviewer="${2:-}"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
port=$((20000 + $$ % 10000))
hexport=$(printf '%04X' "$port")
failures=0
fail() { echo "FAIL: $*"; failures=$((failures + 1)); }

# The program under the server: records what it sees, then ends with status 7.
cat > "$work/probe.sh" <<PROBE
#!/usr/bin/env bash
echo "\$DISPLAY" > "$work/display"
echo "\${QT_QPA_PLATFORM-unset}" > "$work/platform"
grep -h ":$hexport .* 0A " /proc/net/tcp /proc/net/tcp6 > "$work/listeners"
exit 7
PROBE

WAYFERN_VNC_PORT=$port QT_QPA_PLATFORM=offscreen bash "$serve" bash "$work/probe.sh" \
  > "$work/out" 2>&1
status=$?

[ "$status" = 7 ] || fail "the program's exit status 7 came back as $status"
grep -q "localhost:$port (loopback only)" "$work/out" || fail "no announcement: $(cat "$work/out")"
display="$(cat "$work/display" 2>/dev/null)"
[[ "$display" =~ ^:[0-9]+$ ]] || fail "the program saw DISPLAY '$display'"
[ "$(cat "$work/platform" 2>/dev/null)" = unset ] || fail "QT_QPA_PLATFORM reached the program"

# Listening sockets of the port: only 127.0.0.1 and ::1.
[ -s "$work/listeners" ] || fail "nothing listened on port $port"
while read -r _ local _; do
  address="${local%:*}"
  case "$address" in
    0100007F | 00000000000000000000000001000000) ;;
    *) fail "listening on $address, not on the loopback address" ;;
  esac
done < "$work/listeners"

# Afterwards the port is free and no server of that display is left.
sleep 0.5
grep -q ":$hexport .* 0A " /proc/net/tcp /proc/net/tcp6 && fail "port $port still listens"
if [ -n "$display" ] && pgrep -f -- "(Xvfb|x11vnc|matchbox-window-manager).*$display( |$)" >/dev/null; then
  fail "a server of display $display is still running"
fi

# A port that is taken already (by a first server): the second says so, fails, and runs
# nothing.
WAYFERN_VNC_PORT=$port bash "$serve" sleep 30 > "$work/first.out" 2>&1 &
first=$!
for _ in $(seq 100); do grep -q "loopback only" "$work/first.out" && break; sleep 0.1; done
WAYFERN_VNC_PORT=$port bash "$serve" bash -c 'touch "$0"' "$work/ran" > "$work/out2" 2>&1
status=$?
kill "$first" 2>/dev/null; wait "$first" 2>/dev/null
[ "$status" != 0 ] || fail "a taken port did not fail"
[ -e "$work/ran" ] && fail "the program ran although the screen could not be served"
grep -q "port $port is in use" "$work/out2" || fail "no message for a taken port: $(cat "$work/out2")"

# The help viewer, started apart from the program as the program starts it, shows on the
# same screen instead of failing on the taken port, and ends with the screen.
if [ -n "$helpviewer" ]; then
  cat > "$work/help.sh" <<PROBE
#!/usr/bin/env bash
setsid "$helpviewer" "$work/page.html" > "$work/help.out" 2>&1 < /dev/null &
echo \$! > "$work/help.pid"
sleep 2
kill -0 \$(cat "$work/help.pid") && echo alive > "$work/help.state"
PROBE
  echo "<h1>help</h1>" > "$work/page.html"
  WAYFERN_VNC_PORT=$port bash "$serve" bash "$work/help.sh" > "$work/out3" 2>&1
  [ "$(cat "$work/help.state" 2>/dev/null)" = alive ] \
    || fail "the help viewer did not stay up: $(cat "$work/help.out")"
  viewer=$(cat "$work/help.pid" 2>/dev/null)
  for _ in $(seq 50); do kill -0 "$viewer" 2>/dev/null || break; sleep 0.1; done
  kill -0 "$viewer" 2>/dev/null && { fail "the help viewer outlived its screen"; kill "$viewer"; }
fi

[ "$failures" = 0 ] && echo "all checks passed"
exit $((failures > 0))
