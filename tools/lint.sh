#!/usr/bin/env bash
# Checks the format of all C++ files, and runs clang-tidy over those that make the product.
set -euo pipefail
cd "$(dirname "$0")/.."

tools/sources.sh | xargs clang-format --dry-run -Werror

# Headers are checked through what includes them; tests are held to the compiler's warnings.
mapfile -t sources < <(tools/sources.sh | grep '^src/.*\.cpp$' | grep -vE '_test(_support)?\.cpp$|Contract\.cpp$')
report=$(mktemp)
trap 'rm -f "$report"' EXIT
status=0
printf '%s\n' "${sources[@]}" |
  xargs -P "$(nproc)" -n 3 clang-tidy -p build/release --quiet --warnings-as-errors='*' \
  >"$report" 2>/dev/null || status=$?
if [ "$status" -ne 0 ]; then
  sort -u "$report"
  exit 1
fi
echo "clang-format and clang-tidy: ${#sources[@]} files clean"
