#!/usr/bin/env bash
# SPDX-License-Identifier: MPL-2.0
# Runs a fuzzer over the inputs that are kept, and then over new ones for a time.
#
#     run.sh PROGRAM SUBJECT [SECONDS]
#
# HUEBRUSH_FUZZ_SECONDS sets another time, HUEBRUSH_FUZZ_SEED another seed. What the fuzzer finds is
# left beside the program; give it to the program as an argument to repeat it.
set -euo pipefail
program=$1
subject=$2
seconds=${HUEBRUSH_FUZZ_SECONDS:-${3:-30}}
seed=${HUEBRUSH_FUZZ_SEED:-1}
here=$(cd "$(dirname "$0")" && pwd)
. "$here/limits.sh" "$subject"

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/new"
tar -xzf "$here/corpus.tar.gz" -C "$work" "$subject"
kept=$(find "$work/$subject" -type f | wc -l)
[ "$kept" -gt 0 ] || { echo "no inputs are kept for $subject"; exit 1; }
echo "$subject: $kept inputs, $seconds s, seed $seed"
# A few frames are enough to show where a block of memory was allocated: more take time.
export ASAN_OPTIONS=malloc_context_size=6
"$program" -seed="$seed" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=1024 \
  -malloc_limit_mb="$largest" -max_len="$longest" -len_control=0 -entropic=0 -verbosity=0 \
  -print_final_stats=1 -artifact_prefix="$(dirname "$program")/$subject-" "$work/new" "$work/$subject"
