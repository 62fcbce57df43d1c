#!/bin/sh
# The module exports its two factories, undecorated, and needs no library of the compiler's own.
#
#   module-exports.sh OBJDUMP MODULE
set -eu
dump=$("$1" -p "$2")

exports=$(printf '%s\n' "$dump" | sed -n '/Ordinal\/Name Pointer/,/^$/s/^.*\[ *[0-9]*\] *//p' | sort | tr '\n' ' ')
if [ "$exports" != "ExportMIF ImportMIF " ]; then
    echo "exports: $exports" >&2
    exit 1
fi
if printf '%s\n' "$dump" | grep -iE 'DLL Name: (libgcc|libstdc|libwinpthread)' >&2; then
    exit 1
fi
