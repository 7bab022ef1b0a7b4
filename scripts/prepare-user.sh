#!/usr/bin/env bash
# Prepares a user's configuration and journey directories from the shipped defaults, once:
# existing files are never overwritten.
#   WAYFERNCFG          configuration directory (default ~/.config/wayfern)
#   WAYFERN_DATA        journey directory       (default ~/wayfern)
#   WAYFERN_HELPPROG    help viewer program     (default: the one built in ./build)
set -euo pipefail
top="$(cd "$(dirname "$0")/.." && pwd)"
build="${WAYFERN_BUILD_DIR:-$top/build}"
cfgdir="${WAYFERNCFG:-$HOME/.config/wayfern}"
datadir="${WAYFERN_DATA:-$HOME/wayfern}"
helpprog="${WAYFERN_HELPPROG:-$build/src/wayfern-help}"
helpfile="$top/share/help/wayfern.html"

mkdir -p "$cfgdir" "$datadir"
if [ ! -e "$cfgdir/wayfern.cfg" ]; then
  sed -e "s|@DATA_PATH@|$datadir|" -e "s|@HELP_PROG@|$helpprog|" -e "s|@HELP_FILE@|$helpfile|" \
    "$top/share/wayfern.cfg" > "$cfgdir/wayfern.cfg"
  echo "Wayfern: wrote $cfgdir/wayfern.cfg"
fi
if [ ! -e "$datadir/template.wfn" ]; then
  cp "$top/share/template.wfn" "$datadir/template.wfn"
  echo "Wayfern: wrote $datadir/template.wfn"
fi
