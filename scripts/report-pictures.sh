#!/usr/bin/env bash
# Renders the journey report of docs/sample.wfn, page by page, to docs/report-N.png (or to
# the folder given): wayfern-check writes the PDF without a display, pdftoppm paints it.
set -euo pipefail
top="$(cd "$(dirname "$0")/.." && pwd)"
bash "$top/scripts/setup.sh"
build="${WAYFERN_BUILD_DIR:-$top/build}"
cmake -S "$top" -B "$build"
cmake --build "$build" --target wayfern-check --parallel "$(nproc)"
out="$(cd "${1:-$top/docs}" && pwd)"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
# From inside docs/, so the report names the journey's file as "sample.wfn" alone.
(cd "$top/docs" && WAYFERNCFG=. "$build/src/wayfern-check" sample.wfn --report "$work/report.pdf")
pdftoppm -png -r 60 "$work/report.pdf" "$work/page"
rm -f "$out"/report-[0-9]*.png
for page in "$work"/page-*.png; do
  n="${page##*-}"
  n="${n%.png}"
  cp "$page" "$out/report-$((10#$n)).png"
done
ls "$out"/report-[0-9]*.png
