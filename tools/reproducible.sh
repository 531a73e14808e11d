#!/usr/bin/env bash
# SPDX-License-Identifier: MPL-2.0
# Builds the packages of the last commit twice, in folders of different names, and says whether they
# are the same, byte for byte.
set -euo pipefail
cd "$(dirname "$0")/.."

work=$(mktemp -d "${TMPDIR:-/tmp}/huebrush-reproducible-XXXXXX")
trap 'rm -rf "$work"' EXIT
for copy in first second-one; do
  git clone -q . "$work/$copy"
  make -s -C "$work/$copy" package >"$work/log" 2>&1 || { tail -n 40 "$work/log"; exit 1; }
done
if diff -r "$work/first/build/packages" "$work/second-one/build/packages"; then
  cat "$work/first/build/packages/SHA256SUMS"
  echo "the packages of both builds are the same"
else
  echo "the packages of both builds differ" >&2
  exit 1
fi
