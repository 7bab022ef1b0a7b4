#!/usr/bin/env bash
# Installs a build into a temporary prefix and checks what an installed user gets: every
# file in its place (executable where it is a program), a menu entry that
# desktop-file-validate accepts, icons of the sizes their folders name, a first start through
# the installed launcher that prepares the user's directories from the installed defaults
# and names the installed help viewer and page, help pages whose pictures stand beside them,
# and an install manifest that uninstalls it all.
#   install-check.sh BUILD_DIR CONFIG BINDIR PROGDIR DATADIR SHAREDIR SOURCE_DIR
# BINDIR, PROGDIR (the program's own folder), DATADIR (the program's data folder) and
# SHAREDIR (the common data folder) are the build's install folders, relative to the prefix.
set -euo pipefail
build="$1" config="$2" bindir="$3" progdir="$4" datadir="$5" sharedir="$6" source="$7"

work="$(mktemp -d)"
pid=
# cmake --install writes the build's install manifest, which a user's own installation may
# need for uninstalling: it goes back as it was.
manifest="$build/install_manifest.txt"
if [ -f "$manifest" ]; then cp -p "$manifest" "$work/manifest.kept"; fi
cleanup() {
  if [ -n "$pid" ] && kill -0 "$pid" 2>/dev/null; then
    kill "$pid"
    wait "$pid" 2>/dev/null || true
  fi
  if [ -f "$work/manifest.kept" ]; then
    cp -p "$work/manifest.kept" "$manifest"
  else
    rm -f "$manifest"
  fi
  rm -rf "$work"
}
trap cleanup EXIT

failures=0
fail() {
  echo "FAIL: $*" >&2
  failures=$((failures + 1))
}

for dir in "$bindir" "$progdir" "$datadir" "$sharedir"; do
  case "$dir" in
    /*) echo "install-check.sh: '$dir' is absolute; a temporary prefix cannot hold it" >&2
        exit 1 ;;
  esac
done

mkdir "$work/prefix"
prefix="$(cd "$work/prefix" && pwd -P)"
if ! cmake --install "$build" --prefix "$prefix" ${config:+--config "$config"} \
    >"$work/install.log" 2>&1; then
  cat "$work/install.log" >&2
  echo "FAIL: cmake --install" >&2
  exit 1
fi

# Programs: present and executable.
for f in "$bindir/wayfern" "$bindir/wayfern-check" "$progdir/wayfern" "$progdir/wayfern-help" \
    "$progdir/prepare-user.sh"; do
  if [ ! -f "$prefix/$f" ]; then
    fail "$f is not installed"
  elif [ ! -x "$prefix/$f" ]; then
    fail "$f is not executable"
  fi
done

# Data: present, not executable, and the files of the source tree as they stand.
sizes=(16 22 24 32 48 64 128 256)
data=("$datadir/wayfern.cfg:share/wayfern.cfg"
      "$datadir/template.wfn:share/template.wfn"
      "$datadir/help/wayfern.html:share/help/wayfern.html"
      "$datadir/help/wayfern_de.html:share/help/wayfern_de.html"
      "$sharedir/applications/wayfern.desktop:share/wayfern.desktop"
      "$sharedir/mime/packages/wayfern.xml:share/wayfern-mime.xml"
      "$sharedir/metainfo/org.wayfern.Wayfern.metainfo.xml:share/org.wayfern.Wayfern.metainfo.xml"
      "$sharedir/icons/hicolor/scalable/apps/wayfern.svg:icons/hicolor/scalable/apps/wayfern.svg")
for n in "${sizes[@]}"; do
  data+=("$sharedir/icons/hicolor/${n}x${n}/apps/wayfern.png:icons/hicolor/${n}x${n}/apps/wayfern.png")
done
# The help pages' pictures, each as the source tree holds it.
while IFS= read -r -d '' picture; do
  rel="${picture#"$source/share/help/"}"
  data+=("$datadir/help/$rel:share/help/$rel")
done < <(find "$source/share/help/pictures" -type f -print0)
for pair in "${data[@]}"; do
  f="${pair%%:*}" shipped="${pair#*:}"
  if [ ! -f "$prefix/$f" ]; then
    fail "$f is not installed"
  elif [ -x "$prefix/$f" ]; then
    fail "$f is executable"
  elif ! cmp -s "$prefix/$f" "$source/$shipped"; then
    fail "$f differs from $shipped"
  fi
done

# Every picture that an installed help page shows is there, beside the page.
for page in "$prefix/$datadir/help/wayfern.html" "$prefix/$datadir/help/wayfern_de.html"; do
  [ -f "$page" ] || continue
  shown=0
  while IFS= read -r src; do
    shown=$((shown + 1))
    [ -f "$(dirname "$page")/$src" ] || fail "${page#"$prefix/"} shows $src, which is not installed"
  done < <(grep -o '<img[^>]* src="[^"]*"' "$page" | sed 's/.* src="\([^"]*\)"/\1/')
  [ "$shown" -gt 0 ] || fail "${page#"$prefix/"} shows no picture"
done

# The German texts: the .qm that the build made.
qm="$datadir/translations/wayfern_de.qm"
if [ ! -f "$prefix/$qm" ]; then
  fail "$qm is not installed"
elif ! cmp -s "$prefix/$qm" "$build/src/translations/wayfern_de.qm"; then
  fail "$qm differs from the build's"
fi

# The menu entry.
desktop="$prefix/$sharedir/applications/wayfern.desktop"
if [ -f "$desktop" ]; then
  if ! desktop-file-validate "$desktop" >"$work/validate.log" 2>&1 || [ -s "$work/validate.log" ]; then
    cat "$work/validate.log" >&2
    fail "desktop-file-validate does not accept wayfern.desktop"
  fi
  exec_line="$(sed -n 's/^Exec=//p' "$desktop")"
  [ "${exec_line%% *}" = wayfern ] || fail "the menu entry starts '$exec_line', not wayfern"
  grep -qx 'Icon=wayfern' "$desktop" || fail "the menu entry's icon is not wayfern"
  grep -qx 'Terminal=false' "$desktop" || fail "the menu entry asks for a terminal"
  grep -qx 'Name=Wayfern' "$desktop" || fail "the menu entry is not named Wayfern"
  [ "$exec_line" = 'wayfern %f' ] || fail "the menu entry hands no file to wayfern: '$exec_line'"
  grep -qx 'MimeType=application/x-wayfern;' "$desktop" ||
    fail "the menu entry does not open journeys"
fi

# The software centre's description.
metainfo="$prefix/$sharedir/metainfo/org.wayfern.Wayfern.metainfo.xml"
if [ -f "$metainfo" ] &&
    ! appstreamcli validate --no-net "$metainfo" >"$work/appstream.log" 2>&1; then
  cat "$work/appstream.log" >&2
  fail "appstreamcli does not accept the metainfo"
fi

# The journey's file type, as a desktop sees it: the installed package in a data folder of
# its own (the database made from it stays out of the prefix), asked through xdg-mime, which
# a desktop's file manager answers alike. By name, and by content for a file without the
# extension.
xdg="$work/xdg"
mkdir -p "$xdg/mime/packages" "$work/files"
if cp "$prefix/$sharedir/mime/packages/wayfern.xml" "$xdg/mime/packages/" 2>/dev/null &&
    update-mime-database "$xdg/mime" >"$work/mime.log" 2>&1; then
  cp "$source/tests/data/shell/sample.wfn" "$work/files/trip.wfn"
  cp "$source/tests/data/shell/sample.wfn" "$work/files/trip-without-extension"
  for f in trip.wfn trip-without-extension; do
    type="$(env -i PATH=/usr/bin:/bin HOME="$work/home" XDG_CURRENT_DESKTOP=GNOME \
      XDG_DATA_HOME="$xdg" XDG_DATA_DIRS=/usr/share xdg-mime query filetype "$work/files/$f")"
    [ "$type" = application/x-wayfern ] || fail "xdg-mime calls $f '$type'"
  done
else
  cat "$work/mime.log" >&2 || true
  fail "the MIME package does not make a MIME database"
fi

# The icons: PNG files whose width and height are the size that their folder names.
for n in "${sizes[@]}"; do
  png="$prefix/$sharedir/icons/hicolor/${n}x${n}/apps/wayfern.png"
  [ -f "$png" ] || continue
  signature="$(od -An -tx1 -N8 "$png" | tr -d ' \n')"
  if [ "$signature" != 89504e470d0a1a0a ]; then
    fail "${n}x${n}/apps/wayfern.png is not a PNG file"
    continue
  fi
  read -r w1 w2 w3 w4 h1 h2 h3 h4 < <(od -An -tu1 -j16 -N8 "$png")
  width=$(((w1 << 24) | (w2 << 16) | (w3 << 8) | w4))
  height=$(((h1 << 24) | (h2 << 16) | (h3 << 8) | h4))
  [ "$width" = "$n" ] && [ "$height" = "$n" ] ||
    fail "${n}x${n}/apps/wayfern.png is ${width}x${height}"
done

# The first start of an installed user: the launcher alone, nothing of the source tree or
# the build on the way, fresh home, configuration and journey directories.
home="$work/home" cfgdir="$work/home/cfg" journeys="$work/home/journeys"
mkdir -p "$home"
env -i HOME="$home" WAYFERNCFG="$cfgdir" WAYFERN_DATA="$journeys" PATH=/usr/bin:/bin \
  QT_QPA_PLATFORM=offscreen "$prefix/$bindir/wayfern" >"$work/start.log" 2>&1 &
pid=$!
# The program reads its configuration and then misses the last-state file of a first start:
# the line that says so names the journey directory taken from the new configuration.
started="WayfernView::loadLast - not able to read $journeys/wayfern.last"
for _ in $(seq 600); do
  grep -qF "$started" "$work/start.log" && break
  kill -0 "$pid" 2>/dev/null || break
  sleep 0.1
done
if ! grep -qF "$started" "$work/start.log"; then
  cat "$work/start.log" >&2
  fail "the installed program did not start with the prepared configuration"
elif ! kill -0 "$pid" 2>/dev/null; then
  cat "$work/start.log" >&2
  fail "the installed program ended by itself"
else
  [ "$(readlink "/proc/$pid/exe")" = "$prefix/$progdir/wayfern" ] ||
    fail "the launcher started $(readlink "/proc/$pid/exe"), not $prefix/$progdir/wayfern"
  [ "$(readlink "/proc/$pid/cwd")" = "$journeys" ] ||
    fail "the program runs in $(readlink "/proc/$pid/cwd"), not in the journey directory"
fi
if kill -0 "$pid" 2>/dev/null; then
  kill "$pid"
  wait "$pid" 2>/dev/null || true
fi
pid=

# Opening from a file manager: the launcher with a journey named relative to where it was
# started. The program opens it (not the last journey) and remembers it by its full path.
mkdir -p "$work/files"
cp "$source/tests/data/shell/sample.wfn" "$work/files/trip.wfn"
(cd "$work" && exec env -i HOME="$home" WAYFERNCFG="$cfgdir" WAYFERN_DATA="$journeys" \
  PATH=/usr/bin:/bin QT_QPA_PLATFORM=offscreen "$prefix/$bindir/wayfern" files/trip.wfn) \
  >"$work/open.log" 2>&1 &
pid=$!
opened="LASTFILE=$work/files/trip.wfn;"
for _ in $(seq 600); do
  grep -qF "$opened" "$journeys/wayfern.last" 2>/dev/null && break
  kill -0 "$pid" 2>/dev/null || break
  sleep 0.1
done
grep -qF "$opened" "$journeys/wayfern.last" 2>/dev/null || {
  cat "$work/open.log" >&2
  fail "the launcher did not open the journey named on its command line"
}
if kill -0 "$pid" 2>/dev/null; then
  kill "$pid"
  wait "$pid" 2>/dev/null || true
fi
pid=

value() { sed -n "s/^$1=\(.*\);\$/\1/p" "$cfgdir/wayfern.cfg"; }
if [ ! -f "$cfgdir/wayfern.cfg" ]; then
  fail "the first start wrote no wayfern.cfg"
else
  [ "$(value DATA-PATH)" = "$journeys" ] || fail "DATA-PATH is '$(value DATA-PATH)'"
  [ "$(value HELPPROG)" = "$prefix/$progdir/wayfern-help" ] ||
    fail "HELPPROG is '$(value HELPPROG)'"
  [ "$(value HELPFILE)" = "$prefix/$datadir/help/wayfern.html" ] ||
    fail "HELPFILE is '$(value HELPFILE)'"
  if grep -qE '@[A-Z_]+@' "$cfgdir/wayfern.cfg"; then fail "wayfern.cfg keeps a placeholder"; fi
fi
if ! cmp -s "$journeys/template.wfn" "$source/share/template.wfn"; then
  fail "the first start did not copy template.wfn into the journey directory"
elif ! "$prefix/$bindir/wayfern-check" "$journeys/template.wfn" >"$work/check.log" 2>&1; then
  cat "$work/check.log" >&2
  fail "the installed wayfern-check does not read the template"
fi

# Uninstalling with the manifest leaves no file behind.
if [ ! -f "$manifest" ]; then
  fail "cmake --install wrote no install_manifest.txt"
else
  xargs -d '\n' rm -f -- <"$manifest"
  left="$(find "$prefix" -type f -o -type l)"
  [ -z "$left" ] || fail "files that the manifest does not name: $left"
fi

if [ "$failures" -gt 0 ]; then
  echo "install-check.sh: $failures failures" >&2
  exit 1
fi
echo "install-check.sh: all installed files in their places, first start prepared"
