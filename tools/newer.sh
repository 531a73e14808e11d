#!/usr/bin/env bash
# SPDX-License-Identifier: MPL-2.0
# Builds the project in a Debian 13 of its own and runs the tests there, with the newer compiler and
# the newer LibreOffice of that system. Needs root.
#
#   tools/newer.sh            packages, build, demo and tests; ends with what passed. What this machine
#                             itself has built, with an older LibreOffice, is tried there, too, and
#                             the other way round.
#   tools/newer.sh CMD...     runs a command in that system, in the source tree
#
# The system is created once and kept, with its build, in HUEBRUSH_NEWER or else in the user's cache
# folder; delete that folder to start afresh.
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/private_system.sh

run_apart "$@"
open_system "${HUEBRUSH_NEWER:-${XDG_CACHE_HOME:-$HOME/.cache}/huebrush/trixie}" trixie \
  "$(dpkg --print-architecture)"
mkdir -p "$folder/build"

# npm's registry is configured on this machine, so what comes from there is fetched here.
if command -v npm >/dev/null; then
  tests/readers/install.sh "$folder/build/release/readers"
fi

release_build=build/release
older=$folder/build/older
if [ $# -eq 0 ] && [ -f $release_build/huebrush.oxt ]; then
  rm -rf "$older"
  mkdir -p "$older"
  cp -r $release_build/bin/huebrush $release_build/huebrush.oxt $release_build/extension "$older"
fi

mount_tree /huebrush "$folder/build"

if [ $# -gt 0 ]; then
  inside "$@"
  exit
fi
status=0
inside tools/newer-steps.sh || status=1

# Its package on this machine. (An office as new as that one takes it.)
needed() {
  sed -n 's/.*minimal-version value="\([0-9.]*\)".*/\1/p' "$1"
}
description=extension/huebrush/description.xml
newer_package=$folder/build/release/huebrush.oxt
if [ -f "$older/$description" ] && [ -f "$newer_package" ] &&
  [ "$(needed "$older/$description")" != "$(needed "$folder/build/release/$description")" ]; then
  HUEBRUSH_PACKAGE=$newer_package HUEBRUSH_UNOPKG=$(command -v unopkg) \
    /usr/bin/python3 tests/libreoffice/package_test.py PackageOfANewerOffice && result=passed ||
    { result=FAILED; status=1; }
  echo "  the package from there on this machine: $result"
fi
exit "$status"
