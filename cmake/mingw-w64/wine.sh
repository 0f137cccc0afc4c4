#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# wine.sh PREFIX run PROGRAM [ARGUMENT...] | start | stop
#
# Runs Windows programs without a display, in a Wine prefix of their own. `start` makes the prefix and keeps Wine's server
# waiting between programs, so that each starts quickly; `stop` ends it.
set -euo pipefail

mkdir -p "$1"
WINEPREFIX=$(cd "$1" && pwd)
export WINEPREFIX
export WINEDEBUG=-all
# Nothing is put into a desktop's menus, and nobody is asked to install .NET or a browser engine.
export WINEDLLOVERRIDES="winemenubuilder.exe,mscoree,mshtml="
unset DISPLAY WAYLAND_DISPLAY

case $2 in
    run) exec wine "${@:3}" ;;
    start)
        wineserver --persistent
        wine wineboot --init 2>/dev/null
        ;;
    stop) wineserver --kill ;;
esac
