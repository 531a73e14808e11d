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
# folder; delete that folder to start afresh. All mounts are made in a namespace of this script's
# own, so that they and all processes are gone when it ends, however it ends.
set -euo pipefail
cd "$(dirname "$0")/.."

release=trixie
folder=${HUEBRUSH_NEWER:-${XDG_CACHE_HOME:-$HOME/.cache}/huebrush/$release}
system=$folder/system

[ "$(id -u)" -eq 0 ] || { echo "newer: needs root, to make a system of its own" >&2; exit 1; }
if [ -z "${HUEBRUSH_NEWER_APART:-}" ]; then
  export HUEBRUSH_NEWER_APART=1
  exec unshare --mount --propagation private --pid --fork --kill-child "tools/$(basename "$0")" "$@"
fi

mkdir -p "$folder/build"
exec 9>"$folder/lock"
flock -n 9 || { echo "newer: another run is using $folder" >&2; exit 1; }

# The mirror that this machine itself takes Debian from.
mirror() {
  apt-get indextargets --format '$(ORIGIN) $(LABEL) $(REPO_URI)' |
    sed -n 's/^Debian Debian //p' | head -n 1
}

make_system() {
  if ! command -v debootstrap >/dev/null || [ -z "$(mirror)" ]; then
    apt-get update -qq
    apt-get install -y -qq --no-install-recommends debootstrap >/dev/null
  fi
  echo "making a Debian $release in $system ..."
  rm -rf "$system.part"
  debootstrap --variant=minbase "$release" "$system.part" "$(mirror)" >"$folder/debootstrap.log" ||
    { tail "$folder/debootstrap.log" >&2; exit 1; }
  mv "$system.part" "$system"
}

[ -d "$system" ] || make_system

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

# The tree read-only, with a build folder of its own.
mkdir -p "$system/huebrush" build
mount --bind . "$system/huebrush"
mount -o remount,bind,ro "$system/huebrush"
mount --bind "$folder/build" "$system/huebrush/build"
mount -t proc proc "$system/proc"
mount -t tmpfs tmpfs "$system/tmp"
mount --rbind /dev "$system/dev"
cp -L /etc/resolv.conf "$system/etc/resolv.conf"

settings=(HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin LANG=C.UTF-8 TERM="${TERM:-dumb}")
for name in http_proxy https_proxy no_proxy; do
  [ -z "${!name:-}" ] || settings+=("$name=${!name}")
done
inside() {
  chroot "$system" env -i "${settings[@]}" sh -c 'cd /huebrush && exec "$@"' sh "$@"
}

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
