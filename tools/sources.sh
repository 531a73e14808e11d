#!/usr/bin/env bash
# Lists the C++ files of the project.
cd "$(dirname "$0")/.."
git ls-files -co --exclude-standard -- '*.h' '*.cpp'
