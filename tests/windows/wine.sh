#!/usr/bin/env bash
# Runs Windows programs under Wine.
#
#   wine.sh FOLDER start              makes Wine's folder if there is none, and starts its server
#   wine.sh FOLDER run PROGRAM ...    runs a program
#   wine.sh FOLDER end                ends everything that runs in the folder
set -euo pipefail
folder=$1 what=$2
shift 2

# Names of files are in UTF-8 only in such a locale. Nothing is written to the user's own folders,
# and no window opens.
export LC_ALL=C.UTF-8 HOME=$folder/home WINEPREFIX=$folder/prefix WINEDEBUG=-all
export WINEDLLOVERRIDES='mscoree,mshtml,winemenubuilder.exe='
unset DISPLAY

case $what in
  start)
    mkdir -p "$HOME"
    # Complete only when it says so.
    if [ ! -f "$folder/made" ]; then
      rm -rf "$WINEPREFIX"
      wineboot -i </dev/null >"$folder/wineboot.log" 2>&1 || { cat "$folder/wineboot.log"; exit 1; }
      wineserver -w
      touch "$folder/made"
    fi
    # Kept from one program to the next, and gone after a minute without any, whatever happens here.
    # Its services start away from the pipe of who runs the tests, which would wait for them.
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
