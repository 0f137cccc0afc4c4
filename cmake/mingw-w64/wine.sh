#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# wine.sh PREFIX run PROGRAM [ARGUMENT...] | start | stop
#
# Runs Windows programs without a display, in a Wine prefix of their own, whose fonts are none but those that a program
# puts there. `start` makes the prefix and keeps Wine's server and its desktop there between programs, so that each
# starts quickly; `stop` ends both.
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
        wine wineboot --init >/dev/null 2>&1
        wine reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f >/dev/null 2>&1
        # All ends here that a run that was interrupted has left, and the desktop on a screen that the programs above had.
        wineserver --kill || true
        wineserver --wait
        # What Wine keeps running must not keep open what a pipe waits for.
        wineserver --persistent >/dev/null 2>&1
        # Wine makes a desktop for the first program that asks and takes it away a second after the last one has ended. A
        # program that asks meanwhile may wait for minutes, so one with a window keeps the desktop there. It is up once
        # another program has been served.
        wine clock.exe >/dev/null 2>&1 &
        timeout 60 wine rundll32 user32.dll,GetDesktopWindow >/dev/null 2>&1 || true
        ;;
    stop) wineserver --kill ;;
esac
