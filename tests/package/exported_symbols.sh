#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# exported_symbols.sh check|update LIBRARY
#
# Holds the names that LIBRARY exports against the list in exported_symbols.txt, or writes them there. They are the
# binary interface, and the same for every compiler and build type. Each line: the mangled name, the readable one.
set -euo pipefail

list=$(dirname "$0")/exported_symbols.txt
library=$2

names() { nm --dynamic --no-sort --defined-only "$@" "$library" | cut -d ' ' -f 3-; }

# A DLL has a table of its exports.
dll_names() {
    "$OBJDUMP" --private-headers "$library" |
        awk '/^\[Ordinal\/Name Pointer\] Table/ { inside = 1; next } inside && NF == 0 { exit } inside { print $NF }'
}

exported() {
    case $library in
        *.dll) paste -d ' ' <(dll_names) <(dll_names | c++filt) ;;
        *) paste -d ' ' <(names) <(names --demangle) ;;
    esac | LC_ALL=C sort
}

# Windows has a debugger output of its own.
listed() {
    case $library in
        *.dll) grep -v '^VellumDebugOutput ' "$list" ;;
        *) cat "$list" ;;
    esac
}

case $1 in
    check)
        if ! diff -u --label "listed" --label "exported" <(listed) <(exported); then
            echo "The exported names differ from $list. If that is meant: ./dev symbols writes the list anew." >&2
            exit 1
        fi
        ;;
    update) exported >"$list" ;;
esac
