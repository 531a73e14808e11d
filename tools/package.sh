#!/usr/bin/env bash
# SPDX-License-Identifier: MPL-2.0
# Puts together what users install, in build/packages, of what `make` and `make word` have built.
set -euo pipefail
cd "$(dirname "$0")/.."

target=build/packages
rm -rf "$target"
mkdir -p "$target"
: "${SOURCE_DATE_EPOCH:=$(git log -1 --format=%ct)}"
export SOURCE_DATE_EPOCH
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' build/release/CMakeCache.txt)

/usr/bin/python3 packaging/debian/make_deb.py build/release "$target"
lintian --allow-root --fail-on error,warning "$target"/*.deb

cp build/release/huebrush.oxt "$target"
[ ! -e build/release/huebrush.update.xml ] || cp build/release/huebrush.update.xml "$target"
cp -r packaging/listing "$target"
for picture in town-before town-after dialog-filled writer-bar; do
  cp "docs/images/$picture.png" "$target/listing"
done

cp build/huebrush-word.zip "$target/huebrush-word-$version.zip"
unpacked=$(mktemp -d)
trap 'rm -rf "$unpacked"' EXIT
unzip -q build/huebrush-word.zip -d "$unpacked"
makensis -V2 -WX "-DVERSION=$version" "-DFILES=$unpacked/Huebrush" \
  "-DTARGET=$PWD/$target/huebrush-word-$version-setup.exe" packaging/windows/huebrush.nsi

sums=$(cd "$target" && find . -type f | LC_ALL=C sort | xargs sha256sum)
echo "$sums" >"$target/SHA256SUMS"
find "$target" -maxdepth 1 -type f -printf '%9s  %p\n' | LC_ALL=C sort -k 2
