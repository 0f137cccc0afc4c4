#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# test_fonts_are_made.sh DIRECTORY
#
# Makes the test fonts anew, in DIRECTORY, and holds them against those that are checked in.
set -euo pipefail

here=$(cd "$(dirname "$0")" && pwd)
made=$1

for python in python3 /usr/bin/python3; do
    "$python" -c 'import fontTools' 2>/dev/null || continue
    rm -rf "$made"
    mkdir -p "$made"
    "$python" "$here/make_test_fonts.py" "$made"
    diff -r "$here/data" "$made"
    exit
done
echo "fontTools is not here."
exit 77
