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

fail() {
    echo "FAILED: $case: $*" >&2
    exit 1
}

# The outputs, and the private folders of those that are being written. The log of a batch stays.
outputs() {
    find out -mindepth 1 -maxdepth 1 ! -name .qolf
}

# Starts a command, and interrupts it when it has begun an output.
interrupt() {
    mkdir out
    "$qolf" "$@" 2>messages &
    for _ in $(seq 600); do
        [ -z "$(outputs)" ] || break
        sleep 0.1
    done
    [ -n "$(outputs)" ] || fail "nothing was begun"
    sleep 0.2
    kill -INT %%
    local status=0
    wait %% || status=$?
    # The low byte of the system's code for Ctrl-C, 0xC000013A.
    [ "$status" -eq $((0x3A)) ] || fail "exit code $status"
    [ -z "$(outputs)" ] || fail "left behind: $(outputs)"
    local left
    left=$(find "${qolf%/*}/wine/drive_c/users" -path '*Temp/.qolf-*' -prune)
    [ -z "$left" ] || fail "left in the temporary folder: $left"
}

# So many points that a conversion takes seconds.
{
    printf 'Version 300\nCharset "Neutral"\nCoordSys Earth Projection 1, 104\nColumns 0\nData\n'
    seq 1 1000000 | sed 's/.*/Point 1.& 2/'
} >map.mif

set -m # else the shell lets its children ignore interrupts
for case in geojson gpkg mif; do
    interrupt convert map.mif "out/map.$case"
    [ ! -s messages ] || fail "$(cat messages)"
    rm -r out
done

# The archive is unpacked once for all processes. Files that are broken off have not failed.
case=batch
for name in a b c; do
    ln map.mif "$name.mif"
done
zip -q maps.zip [abc].mif
interrupt convert --jobs 2 --shard 1/1 --to geojson --output-dir out maps.zip
grep -q 'interrupted: converted 0 of 3 files' messages || fail "$(cat messages)"
[ ! -s out/.qolf/1-of-1.jsonl ] || fail "in the log: $(cat out/.qolf/1-of-1.jsonl)"
