#!/usr/bin/env bash
# Renders the icon's PNG sizes from icons/hicolor/scalable/apps/wayfern.svg into
# icons/hicolor/<n>x<n>/apps/wayfern.png; the PNGs are committed, so the build needs no
# SVG renderer. Run it after every change of the SVG and commit the result.
#   bash scripts/render-icons.sh [OUTPUT_DIR]   another hicolor folder instead of icons/hicolor
set -euo pipefail
top="$(cd "$(dirname "$0")/.." && pwd)"
command -v rsvg-convert >/dev/null || bash "$top/scripts/setup.sh" icons
svg="$top/icons/hicolor/scalable/apps/wayfern.svg"
out="${1:-$top/icons/hicolor}"
for n in 16 22 24 32 48 64 128 256; do
  mkdir -p "$out/${n}x${n}/apps"
  rsvg-convert --width "$n" --height "$n" --format png --output "$out/${n}x${n}/apps/wayfern.png" \
    "$svg"
done
