#!/usr/bin/env bash
# Prepares a user's configuration and journey directories from the shipped defaults, once:
# existing files are never overwritten.
#   WAYFERNCFG          configuration directory (default ~/.config/wayfern)
#   WAYFERN_DATA        journey directory       (default ~/wayfern)
#   WAYFERN_HELPPROG    help viewer program     (default: the one built in ./build)
# The one copy of these rules serves the source tree and an installed program alike: run
# from the source tree it takes the defaults from share/ and the help viewer from the build;
# the installed launcher (src/shell/wayfern.sh.in) names the installed places instead:
#   prepare-user.sh --defaults DIR --help-prog PROGRAM --help-file PAGE
# where DIR holds wayfern.cfg and template.wfn. The options win over WAYFERN_HELPPROG.
set -euo pipefail
top="$(cd "$(dirname "$0")/.." && pwd)"
build="${WAYFERN_BUILD_DIR:-$top/build}"
defaults="$top/share"
helpprog="${WAYFERN_HELPPROG:-$build/src/wayfern-help}"
helpfile="$top/share/help/wayfern.html"
while [ $# -gt 0 ]; do
  if [ $# -lt 2 ]; then echo "prepare-user.sh: '$1' needs a value" >&2; exit 2; fi
  case "$1" in
    --defaults) defaults="$2" ;;
    --help-prog) helpprog="$2" ;;
    --help-file) helpfile="$2" ;;
    *) echo "prepare-user.sh: unknown option '$1'" >&2; exit 2 ;;
  esac
  shift 2
done
cfgdir="${WAYFERNCFG:-$HOME/.config/wayfern}"
datadir="${WAYFERN_DATA:-$HOME/wayfern}"

# A path goes into sed's replacement as it stands: "\", "|" and "&" lose their meaning there.
literal() { printf '%s' "$1" | sed -e 's/[\\|&]/\\&/g'; }

mkdir -p "$cfgdir" "$datadir"
if [ ! -e "$cfgdir/wayfern.cfg" ]; then
  sed -e "s|@DATA_PATH@|$(literal "$datadir")|" -e "s|@HELP_PROG@|$(literal "$helpprog")|" \
    -e "s|@HELP_FILE@|$(literal "$helpfile")|" "$defaults/wayfern.cfg" > "$cfgdir/wayfern.cfg"
  echo "Wayfern: wrote $cfgdir/wayfern.cfg"
fi
if [ ! -e "$datadir/template.wfn" ]; then
  cp "$defaults/template.wfn" "$datadir/template.wfn"
  echo "Wayfern: wrote $datadir/template.wfn"
fi
