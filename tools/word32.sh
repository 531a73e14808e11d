#!/usr/bin/env bash
# SPDX-License-Identifier: MPL-2.0
# Runs the tests of the build for 32-bit Windows, in a 32-bit Debian of its own, since Wine for 64 bits
# runs no such programs. Needs root, and the build (make word32).
#
#   tools/word32.sh           packages, and all tests
#   tools/word32.sh CMD...    runs a command in that system, in the source tree
#
# The system is created once and kept in HUEBRUSH_WORD32 or else in the user's cache folder; delete that
# folder to start afresh.
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/private_system.sh

run_apart "$@"
open_system "${HUEBRUSH_WORD32:-${XDG_CACHE_HOME:-$HOME/.cache}/huebrush/word32}" bookworm i386
# The tests' files know where this is.
mount_tree "$PWD" "$PWD/build"

packages=(
  wine wine32 fonts-liberation fonts-wine
  # what runs the tests, and what makes and reads the package
  cmake python3 binutils-mingw-w64-i686 binutils-mingw-w64-x86-64 nsis mdbtools
  # a screen, and a user at it
  xvfb xauth x11-xkb-utils xdotool openbox wmctrl x11-utils imagemagick
)
if ! inside dpkg-query -W "${packages[@]}" >/dev/null 2>&1; then
  echo "installing ${packages[*]} there ..."
  inside apt-get update -qq
  inside env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
    "${packages[@]}" >"$folder/packages.log" 2>&1 || { tail "$folder/packages.log" >&2; exit 1; }
fi

[ $# -gt 0 ] || set -- ctest --test-dir build/windows-i686 --output-on-failure -j2
inside "$@"
