#!/usr/bin/env bash
# Takes the pictures in docs/ on a virtual X server: the main window, the cost dialogs, the
# user list with its dialogs and the tip editor on docs/sample.wfn, once on a 480x640
# screen and once on a 240x320 screen; then the same in German on the 480x640 screen, into
# docs/de/.
set -euo pipefail
top="$(cd "$(dirname "$0")/.." && pwd)"
bash "$top/scripts/setup.sh" screenshots
build="${WAYFERN_BUILD_DIR:-$top/build}"
cmake -S "$top" -B "$build" -DWAYFERN_BUILD_SCREENSHOT_TOOL=ON
cmake --build "$build" --target wayfern-screenshot --parallel "$(nproc)"
out="${1:-$top/docs}"
for size in 480x640 240x320; do
  suffix="-$size"
  [ "$size" = 480x640 ] && suffix=""
  # The platform is X here, whatever the caller's environment says.
  env -u QT_QPA_PLATFORM xvfb-run -a -s "-screen 0 ${size}x24" \
    "$build/src/wayfern-screenshot" "$out" "$top/docs/sample.wfn" "$suffix"
done
# Qt takes the language from these; no system locale is needed for it.
env -u QT_QPA_PLATFORM LANG=de_DE.UTF-8 LC_ALL=de_DE.UTF-8 LANGUAGE=de \
  xvfb-run -a -s "-screen 0 480x640x24" \
  "$build/src/wayfern-screenshot" "$out/de" "$top/docs/sample.wfn" ""
# The help pages show copies of some of these pictures: they follow.
for picture in "$top"/share/help/pictures/*.png; do
  cp "$out/$(basename "$picture")" "$picture"
done
for picture in "$top"/share/help/pictures/de/*.png; do
  cp "$out/de/$(basename "$picture")" "$picture"
done
