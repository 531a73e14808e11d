#!/usr/bin/env bash
# SPDX-License-Identifier: MPL-2.0
# Checks how the tree is written.
#
#   tools/lint.sh                everything
#   tools/lint.sh text           the format of C++ (clang-format), Python (flake8), the manual page (mandoc)
#   tools/lint.sh PART PARTS     the product's C++ by clang-tidy: one part of the files, so that several
#                                can run side by side
#   tools/lint.sh tests          that of the tests and measurements; eight minutes of one core, so that
#                                `make check` leaves it to `make lint`
#
# clang-format and clang-tidy in version 14: every version formats differently and has checks of its
# own. Where Debian does not have it, exit code 77 says that C++ was not checked.
set -euo pipefail
cd "$(dirname "$0")/.."

# has_version_14 TOOL: fails where tools/install-packages.sh would have installed it.
has_version_14() {
  command -v "$1" >/dev/null && return
  if (. /etc/os-release && [ "$ID ${VERSION_ID:-}" = "debian 12" ]); then
    echo "lint: $1 is missing" >&2
    exit 1
  fi
  echo "lint: C++ was not checked: it needs $1, which Debian 12 has" >&2
  exit 77
}

check_text() {
  tools/licence-lines.sh
  tools/sources.sh '*.py' | xargs flake8
  mandoc -T lint -W style man/huebrush.1.in
  has_version_14 clang-format-14
  tools/sources.sh | xargs clang-format-14 --dry-run -Werror
}

# The commands of the build without the headers that gcc reads beforehand, so that each file shows
# whether it includes all that it uses; clang cannot read those anyway.
write_commands() { # FOLDER
  mkdir -p "$1"
  sed -E 's/ -Winvalid-pch -include [^ "]*cmake_pch\.hxx//' build/release/compile_commands.json \
    >"$1/compile_commands.json"
}

# What is compiled here.
cpp_files() {
  tools/sources.sh '*.cpp' | grep -vE '/win32/|^tests/windows/'
}
readonly TESTS='^(tests|bench)/|_test(_support)?\.cpp$|Contract\.cpp$'

product_files() { # PART PARTS
  cpp_files | grep -vE "$TESTS" | awk -v part="$1" -v parts="$2" 'NR % parts == part % parts'
}
test_files() {
  cpp_files | grep -E "$TESTS"
}

# Checks the files of its input; headers through what includes them.
tidy() { # NAME JOBS
  local commands=build/lint/$1 jobs=$2 sources
  has_version_14 clang-tidy-14
  write_commands "$commands"
  mapfile -t sources
  [ ${#sources[@]} -gt 0 ] || { echo "lint: no files" >&2; exit 1; }
  local report=$commands/report errors=$commands/errors
  if ! printf '%s\n' "${sources[@]}" |
    xargs -P "$jobs" -n 3 clang-tidy-14 -p "$commands" --quiet --warnings-as-errors='*' \
      >"$report" 2>"$errors"; then
    # A header's finding comes once for each file that includes it. What clang-tidy says of itself
    # comes with them, but for its counts.
    sort -u "$report"
    grep -vE '^[0-9]+ warnings? ' "$errors" >&2 || true
    exit 1
  fi
  echo "clang-tidy: ${#sources[@]} files clean"
}

case ${1:-} in
  text) check_text ;;
  tests) test_files | tidy tests "$(nproc)" ;;
  '') check_text; cpp_files | tidy all "$(nproc)" ;;
  *) product_files "$1" "$2" | tidy "$1" 1 ;;
esac
