#!/usr/bin/env bash
# SPDX-License-Identifier: MPL-2.0
# Runs Windows programs under Wine.
#
#   wine.sh FOLDER start              makes a prefix there if there is none, and starts its server
#   wine.sh FOLDER run PROGRAM ...    runs a program in it
#   wine.sh FOLDER end                ends everything that runs in it
set -euo pipefail
folder=$1 what=$2
shift 2

# File names are UTF-8 only in such a locale. Nothing is written to the user's own folders, and no
# window opens.
export LC_ALL=C.UTF-8 HOME=$folder/home WINEPREFIX=$folder/prefix WINEDEBUG=-all
export WINEDLLOVERRIDES='mscoree,mshtml,winemenubuilder.exe='
unset DISPLAY

case $what in
  start)
    mkdir -p "$HOME"
    # A prefix is complete only once this file says so.
    if [ ! -f "$folder/made" ]; then
      rm -rf "$WINEPREFIX"
      wineboot -i </dev/null >"$folder/wineboot.log" 2>&1 || { cat "$folder/wineboot.log"; exit 1; }
      wineserver -w
      touch "$folder/made"
    fi
    # The server stays from one program to the next, and for a minute after the last one at most. Its
    # services start here, away from CTest's pipe: CTest would wait until they have closed it.
    wineserver -p60 </dev/null >/dev/null 2>&1
    wine cmd /c exit </dev/null >/dev/null 2>&1
    ;;
  run)
    exec wine "$@" </dev/null
    ;;
  end)
    wineserver -k || true
    wineserver -w
    ;;
  *)
    echo "wine.sh: start, run or end" >&2
    exit 2
    ;;
esac
