#!/usr/bin/env bash
# SPDX-License-Identifier: MPL-2.0
# Adds to the inputs that are kept those of a folder that lead to new places in the code, and drops
# those that lead nowhere new.
#
#     keep.sh PROGRAM SUBJECT FOLDER
set -euo pipefail
program=$1
subject=$2
found=$3
here=$(cd "$(dirname "$0")" && pwd)
. "$here/limits.sh" "$subject"

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
[ ! -e "$here/corpus.tar.gz" ] || tar -xzf "$here/corpus.tar.gz" -C "$work"
mkdir -p "$work/$subject" "$work/kept"
ASAN_OPTIONS=malloc_context_size=6 "$program" -merge=1 -use_counters=0 -max_len="$longest" "$work/kept" "$work/$subject" "$found"
rm -r "$work/$subject"
mv "$work/kept" "$work/$subject"
cd "$work"
# The same inputs always make the same archive.
tar --sort=name --mtime=@0 --owner=0 --group=0 --numeric-owner -cf - */ | gzip -9n \
  >"$here/corpus.tar.gz"
