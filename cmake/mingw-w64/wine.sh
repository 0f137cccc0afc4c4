#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# wine.sh PREFIX run PROGRAM [ARGUMENT...] | start | stop
#
# Runs Windows programs without a display, in a Wine prefix of their own, whose fonts are none but those that a program
# puts there. `start` makes the prefix and keeps Wine's server
# waiting between programs, so that each starts quickly; `stop` ends it.
set -euo pipefail

mkdir -p "$1"
WINEPREFIX=$(cd "$1" && pwd)
export WINEPREFIX
export WINEDEBUG=-all
# Nothing is put into a desktop's menus, and nobody is asked to install .NET or a browser engine.
export WINEDLLOVERRIDES="winemenubuilder.exe,mscoree,mshtml="
unset DISPLAY WAYLAND_DISPLAY
# Otherwise file names have the letters of ASCII only.
export LC_ALL=C.UTF-8
# Wine would install all fonts of this machine.
export FONTCONFIG_FILE=$WINEPREFIX/fonts.conf
[ -f "$FONTCONFIG_FILE" ] || echo '<fontconfig/>' >"$FONTCONFIG_FILE"
# Tests may install and remove fonts.
export VELLUM_TEST_MACHINE=1

case $2 in
    run) exec wine "${@:3}" ;;
    start)
        # The server of a run that was interrupted would not let another one start.
        wineserver --kill || true
        # What Wine keeps running must not keep open what a pipe waits for.
        wineserver --persistent >/dev/null 2>&1
        wine wineboot --init >/dev/null 2>&1
        # The desktop, on no screen: otherwise programs that ask for it wait ten seconds for one to come up.
        wine reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f >/dev/null 2>&1
        wine explorer.exe /desktop >/dev/null 2>&1 &
        # It is there once something has asked for it.
        timeout 60 wine rundll32 user32.dll,GetDesktopWindow >/dev/null 2>&1 || true
        ;;
    stop) wineserver --kill ;;
esac
