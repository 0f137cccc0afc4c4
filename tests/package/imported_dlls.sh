#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# imported_dlls.sh PROGRAM [DLL...]
#
# Fails where PROGRAM, or a DLL, is loaded with anything but the system's own DLLs and the named ones.
set -euo pipefail

program=$1
allowed=(advapi32.dll gdi32.dll kernel32.dll msvcrt.dll user32.dll "${@:2}")

imported=$("$OBJDUMP" --private-headers "$program" | sed -nE 's/^[[:space:]]*DLL Name: //p')
[ -n "$imported" ] || { echo "$program imports nothing at all." >&2; exit 1; }
if printf '%s\n' "$imported" | grep -vixF "$(printf '%s\n' "${allowed[@]}")"; then
    echo "$program is loaded with these." >&2
    exit 1
fi
