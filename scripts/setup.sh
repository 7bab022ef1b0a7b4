#!/usr/bin/env bash
# Installs everything Wayfern needs to build, test and run, from Debian's packages.
#   bash scripts/setup.sh           what the build, the tests and the run command use
#   bash scripts/setup.sh ninja     also ninja-build, for scripts/check-multiconfig.sh
#   bash scripts/setup.sh format    also clang-format, to check a file against .clang-format
#   bash scripts/setup.sh screenshots   also a virtual X server, for scripts/screenshots.sh
#   bash scripts/setup.sh fuzz      also clang and its libFuzzer runtime, for scripts/fuzz.sh
#   bash scripts/setup.sh icons     also rsvg-convert, for scripts/render-icons.sh
set -euo pipefail

packages=(
  # compiler, make and CMake
  build-essential cmake
  # Qt Core, Widgets and Test with moc, uic and rcc (the OpenGL headers that
  # find_package(Qt6 Widgets) looks for come with qt6-base-dev)
  qt6-base-dev qt6-base-dev-tools
  # lupdate and lrelease, and CMake's Qt6::LinguistTools that builds the translations with
  # them; Qt's own German texts (standard buttons), which the program loads beside its own
  qt6-l10n-tools qt6-tools-dev qt6-translations-l10n
  # the VNC platform that the run command serves the window with when there is no display
  qt6-qpa-plugins
  # fetches the exchange rate pages (the program starts it; its tests run it against a
  # loopback server)
  wget
  # desktop-file-validate, appstreamcli, xdg-mime with update-mime-database and gio under
  # it: the install test checks the menu entry, the software-centre description and the
  # journey's file type with them
  desktop-file-utils appstream xdg-utils shared-mime-info libglib2.0-bin
  # pdftotext and pdftoppm: the report tests read its PDF back as text, and the report's
  # pictures for docs/ are rendered from it
  poppler-utils
)
for extra in "$@"; do
  case "$extra" in
    ninja) packages+=(ninja-build) ;;
    format) packages+=(clang-format) ;;
    # xvfb-run needs xauth, which is only recommended
    screenshots) packages+=(xvfb xauth) ;;
    # libclang_rt.fuzzer and the sanitizer runtimes come with libclang-rt-14-dev
    fuzz) packages+=(clang libclang-rt-14-dev) ;;
    icons) packages+=(librsvg2-bin) ;;
    *) echo "setup.sh: unknown extra '$extra' (ninja, format, screenshots, fuzz, icons)" >&2
       exit 2 ;;
  esac
done

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done

if [ "${#missing[@]}" -gt 0 ]; then
  if [ "$(id -u)" -ne 0 ]; then SUDO=sudo; else SUDO=; fi
  export DEBIAN_FRONTEND=noninteractive
  $SUDO apt-get update
  $SUDO apt-get install -y --no-install-recommends "${missing[@]}"
fi
