#!/usr/bin/env bash
# Checks that the committed PNG icons are renderings of the SVG as it stands: renders them
# again with scripts/render-icons.sh and compares the bytes. Without rsvg-convert (bash
# scripts/setup.sh icons) there is nothing to render with, and the test is skipped.
#   icons-check.sh SOURCE_DIR
set -euo pipefail
source="$1"
if ! command -v rsvg-convert >/dev/null; then
  echo "icons-check.sh: no rsvg-convert (bash scripts/setup.sh icons); skipped"
  exit 77
fi
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
bash "$source/scripts/render-icons.sh" "$work"
status=0
for png in "$work"/*/apps/wayfern.png; do
  size="$(basename "$(dirname "$(dirname "$png")")")"
  if ! cmp -s "$png" "$source/icons/hicolor/$size/apps/wayfern.png"; then
    echo "FAIL: icons/hicolor/$size/apps/wayfern.png is not the SVG's rendering;" \
      "run bash scripts/render-icons.sh" >&2
    status=1
  fi
done
n="$(ls "$work" | wc -l)"
[ "$n" = 8 ] || { echo "FAIL: $n sizes rendered, not 8" >&2; status=1; }
exit "$status"
