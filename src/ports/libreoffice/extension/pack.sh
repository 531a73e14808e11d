#!/bin/sh
# SPDX-License-Identifier: MPL-2.0
# Packs the files of the current folder in a fixed order, with fixed rights and times.
#
#   pack.sh ZIP PACKAGE
set -eu
export LC_ALL=C TZ=UTC
find . -type f -exec chmod 644 {} + -exec touch -d 1980-01-01 {} +
find . -type f | sort | "$1" -qX "$2" -@
