#!/usr/bin/env bash
# SPDX-License-Identifier: MPL-2.0
# Installs the npm packages mdb-reader and anypalette, with the scripts of this folder that use them,
# into a folder.
# Only what the lock file names by its hash is taken, and nothing of it runs while it is installed.
set -euo pipefail
source=$(cd "$(dirname "$0")" && pwd)
target=$1

mkdir -p "$target"
cp "$source"/*.mjs "$source/package.json" "$target"
[ -e "$target/installed.json" ] && cmp -s "$source/package-lock.json" "$target/installed.json" && exit 0
cp "$source/package-lock.json" "$target"
(cd "$target" && npm ci --ignore-scripts --no-audit --no-fund --loglevel=error)
cp "$source/package-lock.json" "$target/installed.json"
