#!/usr/bin/env bash
# SPDX-License-Identifier: MPL-2.0
# Checks how the tree is written.
#
#   tools/lint.sh                everything
#   tools/lint.sh text           the format of C++ (clang-format), Python (flake8), the manual page (mandoc)
#   tools/lint.sh PART PARTS     the product's C++ by clang-tidy: one part of the files, so that several
#                                can run side by side; files of one folder joined, which takes a
#                                quarter of the time
#   tools/lint.sh tests          that of the tests and measurements, joined likewise; four minutes of
#                                one core, so that `make check` leaves it to `make lint`
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
  tools/sources.sh '*.cpp' | grep -vE '/win32/|^src/ports/word/|^tests/windows/'
}
readonly TESTS='^(tests|bench)/|_test(_support)?\.cpp$|Contract\.cpp$'

product_files() {
  cpp_files | grep -vE "$TESTS"
}
test_files() {
  cpp_files | grep -E "$TESTS"
}

# Checks the files of its input, which are in the commands of FOLDER; headers through what includes
# them. Leaves what it found in FOLDER/report.
run_tidy() { # FOLDER JOBS [OPTION...]
  local folder=$1 jobs=$2
  shift 2
  xargs -P "$jobs" -n 1 clang-tidy-14 -p "$folder" --quiet --warnings-as-errors='*' "$@" \
    >"$folder/report" 2>"$folder/errors"
}

# A header's finding comes once for each file that includes it. What clang-tidy says of itself comes
# with them, but for its counts.
fail_with_report() { # FOLDER
  sort -u "$1/report"
  grep -vE '^[0-9]+ warnings? ' "$1/errors" >&2 || true
  exit 1
}

# Checks each file of its input by itself.
tidy() { # NAME JOBS
  local folder=build/lint/$1 sources
  has_version_14 clang-tidy-14
  write_commands "$folder"
  mapfile -t sources
  [ ${#sources[@]} -gt 0 ] || { echo "lint: no files" >&2; exit 1; }
  printf '%s\n' "${sources[@]}" | run_tidy "$folder" "$2" || fail_with_report "$folder"
  echo "clang-tidy: ${#sources[@]} files clean"
}

# Checks one part of the files of its input, joined. Those that cannot be compiled together, as when
# two have a constant of one name, are checked each by itself.
tidy_joined() { # NAME PART PARTS [CHECKS]
  # The one include of a source file that is meant.
  local folder=build/lint/$1 joined files checks=-bugprone-suspicious-include${4:+,$4}
  has_version_14 clang-tidy-14
  write_commands "$folder"
  joined=$(tools/join_sources.py "$folder" "$2" "$3")
  [ -n "$joined" ] || { echo "lint: no files" >&2; exit 1; }
  for file in $joined; do
    run_tidy "$folder" 1 --checks="$checks" <<<"$file" && continue
    grep -q 'clang-diagnostic-error' "$folder/report" || fail_with_report "$folder"
    echo "clang-tidy: not joined: $(grep -m 1 'clang-diagnostic-error' "$folder/report")"
    files=$(joined_files "$file")
    run_tidy "$folder" 1 --checks="$checks" <<<"$files" || fail_with_report "$folder"
  done
  echo "clang-tidy: $(joined_files $joined | wc -l) files clean"
}

# GoogleTest ends fixtures through their base, whatever their own destructors are; and what looks
# like a use of other variables while tests are registered happens when they run.
check_tests() {
  test_files | tidy_joined tests 1 1 \
    -cppcoreguidelines-virtual-class-destructor,-cppcoreguidelines-interfaces-global-init
}

# What is in files of tools/join_sources.py; others are what they are.
joined_files() { # FILE...
  for file; do
    case $file in
      */joined_*.cpp) sed -n 's/^#include "\(.*\)"$/\1/p' "$file" ;;
      *) echo "$file" ;;
    esac
  done
}

case ${1:-} in
  text) check_text ;;
  tests) check_tests ;;
  '') check_text; product_files | tidy all "$(nproc)"; check_tests ;;
  *) product_files | tidy_joined "$1" "$1" "$2" ;;
esac
