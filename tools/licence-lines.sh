#!/usr/bin/env bash
# SPDX-License-Identifier: MPL-2.0
# The line in every source file that names its licence.
#
#   tools/licence-lines.sh          fails, and names the files, where one is missing
#   tools/licence-lines.sh --add    adds it there, below a first line that must stay the first
set -euo pipefail
cd "$(dirname "$0")/.."
line="SPDX-License-Identifier: MPL-2.0"

# The comment in which a kind of file has the line.
comment() { # FILE
  case $1 in
    *.h | *.cpp) echo "// $line" ;;
    *.xml | *.xml.in | *.xcu | *.xcs | *.components | *.svg) echo "<!-- $line -->" ;;
    *.bas) echo "' $line" ;;
    *.1.in) echo ".\\\" $line" ;;
    *.mjs) echo "// $line" ;;
    *) echo "# $line" ;;
  esac
}

files() {
  tools/sources.sh '*.h' '*.cpp' '*.py' '*.sh' '*.mjs' '*.bas' '*.cmake' '*CMakeLists.txt' \
    '*.xml' '*.xml.in' '*.xcu' '*.xcs' '*.components' 'src/*.svg' '*.1.in' Makefile .ci/run \
    .clang-format .clang-tidy .flake8
}

add() { # FILE
  local first=
  # An interpreter's line and XML's declaration come first.
  case $(head -c 5 "$1") in '#!'* | '<?xml') first=$(head -n 1 "$1") ;; esac
  local rest=1 space=
  [ -z "$first" ] || rest=2
  # In C++ a comment on what the file is for may follow.
  case $1 in *.h | *.cpp) space=$'\n' ;; esac
  local text
  text=$([ -z "$first" ] || echo "$first"
    comment "$1"
    printf '%s' "$space"
    tail -n "+$rest" "$1"
    echo .)
  # Into the same file, which keeps its rights.
  printf '%s' "${text%.}" >"$1"
}

# A function, because it may change this very file while the shell reads it.
main() {
  local missing=() file
  while read -r file; do
    head -n 3 "$file" | grep -qF -- "$(comment "$file")" || missing+=("$file")
  done < <(files)
  if [ "${1:-}" = --add ]; then
    for file in "${missing[@]}"; do add "$file"; done
    echo "licence line: added to ${#missing[@]} files"
  elif [ ${#missing[@]} -gt 0 ]; then
    printf 'no licence line: %s\n' "${missing[@]}" >&2
    echo "tools/licence-lines.sh --add adds it" >&2
    return 1
  fi
}

main "$@"; exit
