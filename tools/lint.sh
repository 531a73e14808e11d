#!/usr/bin/env bash
# Checks the format of all C++ files, and runs clang-tidy over those that make the product. Both in
# version 14: every version formats differently and has checks of its own.
#
# tools/lint.sh [PART PARTS]: all files, or one part of them, so that several can run side by side.
set -euo pipefail
cd "$(dirname "$0")/.."
part=${1:-1} parts=${2:-1}

for tool in clang-format-14 clang-tidy-14; do
  command -v "$tool" >/dev/null && continue
  # tools/install-packages.sh has installed them where there are any.
  if (. /etc/os-release && [ "$ID ${VERSION_ID:-}" = "debian 12" ]); then
    echo "lint: $tool is missing" >&2
    exit 1
  fi
  echo "lint: nothing was checked: it needs $tool, which Debian 12 has" >&2
  exit 77
done

tools/sources.sh | xargs clang-format-14 --dry-run -Werror

# Without the headers that gcc reads beforehand, so that each file shows whether it includes all that
# it uses; clang cannot read those anyway.
commands=build/lint/$part
mkdir -p "$commands"
sed -E 's/ -Winvalid-pch -include [^ "]*cmake_pch\.hxx//' build/release/compile_commands.json \
  >"$commands/compile_commands.json"

# Headers are checked through what includes them; tests are held to the compiler's warnings.
mapfile -t sources < <(tools/sources.sh | grep '^src/.*\.cpp$' |
  grep -vE '_test(_support)?\.cpp$|Contract\.cpp$' | awk -v part="$part" -v parts="$parts" \
    'NR % parts == part % parts')
[ ${#sources[@]} -gt 0 ] || { echo "lint: no files" >&2; exit 1; }
jobs=$(nproc)
[ "$parts" -eq 1 ] || jobs=1
report=$(mktemp)
trap 'rm -f "$report"' EXIT
status=0
printf '%s\n' "${sources[@]}" |
  xargs -P "$jobs" -n 3 clang-tidy-14 -p "$commands" --quiet --warnings-as-errors='*' \
  >"$report" 2>/dev/null || status=$?
if [ "$status" -ne 0 ]; then
  sort -u "$report"
  exit 1
fi
echo "clang-format and clang-tidy: ${#sources[@]} files clean"
