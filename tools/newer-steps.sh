#!/usr/bin/env bash
# SPDX-License-Identifier: MPL-2.0
# What `make newer` runs inside the newer system: all steps, and at the end what became of each.
set -uo pipefail
cd "$(dirname "$0")/.."

report=$(mktemp -d)
trap 'rm -rf "$report"' EXIT
status=0

# step NAME CMD...: runs a command and notes how it ended, a test run with its numbers.
step() {
  local name=$1 result=passed
  shift
  echo "== $name"
  "$@" 2>&1 | tee "$report/output" || { result=FAILED; status=1; }
  local numbers
  numbers=$(sed -n 's/^[0-9]*% tests passed, \(.*\)$/: \1/p' "$report/output")
  printf '  %-9s %s%s\n' "$name" "$result" "$numbers" >>"$report/summary"
  [ "$result" = passed ]
}

tests() {
  ctest --test-dir build/release --output-on-failure "$@"
}

build() {
  cmake --preset release >/dev/null && cmake --build --preset release
}

# What was built with an older LibreOffice, if that was given: program, extension and package.
older() {
  local office=/usr/lib/libreoffice/program tests=tests/libreoffice
  HUEBRUSH_PROGRAM=$PWD/build/older/huebrush HUEBRUSH_EXTENSIONS=$PWD/build/older/extension \
    /usr/bin/python3 $tests/foreign_documents_test.py EveryBranch GradientsOfManyColours &&
    HUEBRUSH_PACKAGE=$PWD/build/older/huebrush.oxt HUEBRUSH_UNOPKG=$office/unopkg \
      /usr/bin/python3 $tests/package_test.py Package &&
    for subject in window dialog; do
      /usr/bin/python3 $tests/${subject}_test.py --plugin gen --office $office/soffice \
        --extensions "$PWD/build/older/extension" || return
    done
}

if step packages tools/install-packages.sh && step build build; then
  step demo tools/demo.sh
  step unit tests -j2 -L unit
  step office tests -j2 -L libreoffice
  step gtk3 tests -j2 -L gtk3
  [ ! -d build/older ] || step older older
fi

. /etc/os-release
echo "== $PRETTY_NAME, $(g++ --version | head -n 1), $(/usr/bin/soffice --version 2>/dev/null)"
cat "$report/summary"
exit "$status"
