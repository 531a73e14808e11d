#!/usr/bin/env bash
# Checks the format of all C++ files, and runs clang-tidy over those that the release build compiles.
set -euo pipefail
cd "$(dirname "$0")/.."

tools/sources.sh | xargs clang-format --dry-run -Werror

# clang-tidy knows no flag of the other compiler's; headers are checked through what includes them.
mapfile -t sources < <(tools/sources.sh | grep '\.cpp$')
printf '%s\n' "${sources[@]}" |
  xargs -P "$(nproc)" -n 4 clang-tidy -p build/release --quiet --warnings-as-errors='*' 2>/dev/null
echo "clang-format and clang-tidy: ${#sources[@]} files clean"
