#!/usr/bin/env bash
# SPDX-License-Identifier: MPL-2.0
# Runs Windows programs under Wine.
#
#   wine.sh FOLDER start              makes a prefix there if there is none, and starts its server if
#                                     none runs
#   wine.sh FOLDER run PROGRAM ...    runs a program in it
#   wine.sh FOLDER end                ends everything that runs in it
#   wine.sh FOLDER screen WHAT ...    the same in a second prefix with the same files and a registry of
#                                     its own, with windows on the screen of $DISPLAY; programs read
#                                     what this reads
set -euo pipefail
folder=$1 what=$2
shift 2
first=$folder/prefix prefix=$folder/prefix
if [ "$what" = screen ]; then
  prefix=$folder/screen what=$1
  shift
fi

# File names are UTF-8 only in such a locale. Nothing is written to the user's own folders, and no
# window opens where none is wanted.
export LC_ALL=C.UTF-8 HOME=$folder/home WINEPREFIX=$prefix WINEDEBUG=-all
export WINEDLLOVERRIDES='mscoree,mshtml,winemenubuilder.exe='
[ "$prefix" != "$first" ] || unset DISPLAY

case $what in
  start)
    mkdir -p "$HOME"
    # A prefix is complete only once a file says so.
    if [ ! -f "$folder/made" ]; then
      rm -rf "$first"
      WINEPREFIX=$first wineboot -i </dev/null >"$folder/wineboot.log" 2>&1 ||
        { cat "$folder/wineboot.log"; exit 1; }
      WINEPREFIX=$first wineserver -w
      touch "$folder/made"
    fi
    # Debian's Wine does not look where its own stand-in for this font is.
    cp -n /usr/share/wine/fonts/tahoma*.ttf "$first/drive_c/windows/Fonts"
    if [ ! -f "$prefix/made" ] && [ "$prefix" != "$first" ]; then
      rm -rf "$prefix"
      mkdir "$prefix"
      cp -a "$first"/*.reg "$first"/.update-timestamp "$first"/dosdevices "$prefix"
      ln -s "$first/drive_c" "$prefix/drive_c"
      sed -i 's/"Graphics"="null"/"Graphics"="x11"/' "$prefix/user.reg"
      touch "$prefix/made"
    fi
    # The server stays from one program to the next, and for a minute after the last one at most. Its
    # services start here, away from CTest's pipe: CTest would wait until they have closed it. One
    # that runs already serves as well.
    wineserver -k0 2>/dev/null || wineserver -p60 </dev/null >/dev/null 2>&1
    # The first program makes windows possible where there is no screen.
    graphics=null
    [ "$prefix" = "$first" ] || graphics=x11
    wine reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d $graphics /f </dev/null >/dev/null 2>&1
    ;;
  run)
    [ "$prefix" != "$first" ] || exec </dev/null
    exec wine "$@"
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
