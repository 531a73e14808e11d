#!/usr/bin/env bash
# SPDX-License-Identifier: MPL-2.0
# Installs packages of Debian 12 or 13, as root or with sudo. Does nothing when all are there.
#
#   tools/install-packages.sh [--missing] [SET ...]
#
# The sets, each with what stands before it, but for the last one:
#   build   what compiling the program and the extension needs
#   demo    what tools/demo.sh runs
#   package what packages are made and judged by
#   check   what the tests, the linters and the measurements need (the default)
#   windows what `make windows` needs
#
# With --missing nothing is installed: the packages that are not there are named.
set -euo pipefail

only_name=
if [ "${1:-}" = --missing ]; then
  only_name=yes
  shift
fi
[ $# -gt 0 ] || set -- check

build=(
  g++ cmake ninja-build make nlohmann-json3-dev libcli11-dev libexpat1-dev libpng-dev zlib1g-dev
  librsvg2-bin zip
  libreoffice-writer libreoffice-dev libreoffice-dev-common
)
demo=(
  # pictures of documents
  python3 python3-uno poppler-utils
)
# what `make package` needs beside all for Windows
package=(
  python3 dpkg-dev fakeroot git lintian
)
check=(
  git libgtest-dev libgmock-dev libbenchmark-dev
  # the host in its windows, with a user at the keyboard
  libreoffice-gtk3 libreoffice-style-colibre adwaita-icon-theme fonts-dejavu fonts-liberation
  xvfb xauth x11-xkb-utils xdotool openbox wmctrl x11-utils imagemagick procps
  # another reader of database files, to compare with
  mdbtools mdbtools-dev pkg-config
  # other writers of documents, to be read
  libreoffice-calc libreoffice-draw libreoffice-impress
  pandoc python3-docx python3-lxml python3-odf
  # the checks of what is printed as JSON, and of the completions
  python3-jsonschema zsh fish
  # the sanitizers
  clang libclang-rt-dev
  # the linters of Python and of the manual page
  flake8 mandoc
)
windows=(
  cmake ninja-build make nlohmann-json3-dev googletest
  g++-mingw-w64-x86-64-win32 g++-mingw-w64-i686-win32 wine wine64
  # the icons, the package and the setup, and what reads its palettes
  librsvg2-bin python3 zip nsis mdbtools
  # a screen, and a user at it
  xvfb xauth x11-xkb-utils xdotool openbox wmctrl x11-utils imagemagick fonts-liberation fonts-wine
)

# The linters of C++: tools/lint.sh needs these very versions. Debian 13 has only later ones.
if (. /etc/os-release && [ "$ID ${VERSION_ID:-}" = "debian 12" ]); then
  check+=(clang-format-14 clang-tidy-14)
fi

# What runs the other reader may have come from elsewhere than from a package.
command -v node >/dev/null || check+=(nodejs)
command -v npm >/dev/null || check+=(npm)

packages=()
for set in "$@"; do
  case $set in
    build) packages+=("${build[@]}") ;;
    demo) packages+=("${build[@]}" "${demo[@]}") ;;
    package) packages+=("${build[@]}" "${package[@]}") ;;
    check) packages+=("${build[@]}" "${demo[@]}" "${package[@]}" "${check[@]}") ;;
    windows) packages+=("${windows[@]}") ;;
    *) echo "install-packages: there is no set $set" >&2; exit 2 ;;
  esac
done

if ! command -v dpkg-query >/dev/null; then
  [ -n "$only_name" ] && exit
  echo "install-packages: this is not Debian; install the equivalents of: ${packages[*]}" >&2
  exit 1
fi
missing=()
for package in "${packages[@]}"; do
  dpkg-query -W -f '${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed ||
    missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit

if [ -n "$only_name" ]; then
  echo "missing packages: ${missing[*]}"
  exit
fi
as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
echo "installing: ${missing[*]}"
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
  apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
