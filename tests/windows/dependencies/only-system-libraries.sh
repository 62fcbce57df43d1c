#!/bin/sh
# A program needs no DLL but those of this project and those that every Windows has.
#
#   only-system-libraries.sh OBJDUMP PROGRAM
set -eu
windows='advapi32|comctl32|comdlg32|gdi32|kernel32|msimg32|msvcrt|ole32|shell32|user32'
needed=$("$1" -p "$2" | sed -n 's/^.*DLL Name: //p')
[ -n "$needed" ]
if printf '%s\n' "$needed" | grep -viE "^(qolf|qolfhost|$windows)\.dll$" >&2; then
    exit 1
fi
