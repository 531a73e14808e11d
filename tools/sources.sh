#!/usr/bin/env bash
# SPDX-License-Identifier: MPL-2.0
# Lists the project's source files: those of C++, or those whose names end in the given patterns.
#
#   tools/sources.sh [PATTERN...]
cd "$(dirname "$0")/.."
[ $# -gt 0 ] || set -- '*.h' '*.cpp'
git ls-files -co --exclude-standard -- "$@"
