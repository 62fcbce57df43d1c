#!/usr/bin/env bash
# Ctrl-C, which is what Wine makes of an interrupt: what was begun is gone, whoever has it open.
#
#   interrupt.sh QOLF_UNDER_WINE
set -euo pipefail
qolf=$(realpath "$1")
rm -rf "${qolf%/*}"/wine/drive_c/users/*/Temp/.qolf-*
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"

# So many points that a conversion takes seconds.
{
    printf 'Version 300\nCharset "Neutral"\nCoordSys Earth Projection 1, 104\nColumns 0\nData\n'
    seq 1 1000000 | sed 's/.*/Point 1.& 2/'
} >map.mif

set -m # else the shell lets its children ignore interrupts
for format in geojson gpkg mif; do
    mkdir out
    "$qolf" convert map.mif "out/map.$format" 2>messages &
    for _ in $(seq 600); do
        [ -z "$(ls -A out)" ] || break
        sleep 0.1
    done
    [ -n "$(ls -A out)" ] || { echo "FAILED: nothing was begun" >&2; exit 1; }
    sleep 0.2
    kill -INT %%
    status=0
    wait %% || status=$?
    # The low byte of the system's code for Ctrl-C, 0xC000013A.
    [ "$status" -eq $((0x3A)) ] || { echo "FAILED: $format: exit code $status" >&2; exit 1; }
    [ -z "$(ls -A out)" ] || { echo "FAILED: $format: left behind: $(ls -A out)" >&2; exit 1; }
    [ ! -s messages ] || { echo "FAILED: $format: $(cat messages)" >&2; exit 1; }
    rmdir out
done
left=$(find "${qolf%/*}/wine/drive_c/users" -path '*Temp/.qolf-*' -prune)
[ -z "$left" ] || { echo "FAILED: left in the temporary folder: $left" >&2; exit 1; }
