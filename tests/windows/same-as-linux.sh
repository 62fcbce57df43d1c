#!/usr/bin/env bash
# The command of the unpacked zip gives the same bytes as that of this machine, but for pictures:
# same-as-linux.sh QOLF QOLF_UNDER_WINE SAMPLES
set -euo pipefail
linux=$(realpath "$1") windows=$(realpath "$2") samples=$(realpath "$3")
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failures=0

# Runs both commands in folders of their own, with the samples in them under the same names.
both() {
    local name
    for name in linux windows; do
        (cd "$scratch/$name" && "${!name}" "$@" >"$scratch/$name.out" 2>"$scratch/$name.err") ||
            echo "exit code $?" >>"$scratch/$name.err"
    done
    same "$*: standard output" "$scratch/linux.out" "$scratch/windows.out"
    same "$*: messages" "$scratch/linux.err" "$scratch/windows.err"
}

same() {  # what, two files
    cmp -s "$2" "$3" && return
    echo "FAILED: $1: Linux (<) and Windows (>) differ:" >&2
    diff -a "$2" "$3" | head -n 10 >&2 || true
    failures=$((failures + 1))
}

same_file() {  # name
    same "$1" "$scratch/linux/$1" "$scratch/windows/$1"
}

# A package says when it was made.
same_package() {  # name
    LC_ALL=C sed -i -E 's/20[0-9]{2}-[0-9]{2}-[0-9]{2}T[0-9:.]{12}Z/made today/' \
        "$scratch/linux/$1" "$scratch/windows/$1"
    same_file "$1"
}

# A pair has the line ends of its system (tests/windows/PathsTest.cpp).
same_pair() {  # name without extension
    local extension
    for extension in mif mid; do
        sed -i 's/\r$//' "$scratch/windows/$1.$extension"
        same_file "$1.$extension"
    done
}

for name in linux windows; do
    mkdir "$scratch/$name"
    cp "$samples"/*.mi[fd] "$samples"/real/*.mi[fd] "$scratch/$name"
done
cd "$scratch/linux"
maps=(*.mif)
for map in "${maps[@]}"; do
    name=${map%.mif}
    both info --count "$map"
    both info --json "$map"
    both check "$map"
    both convert "$map" "$name.geojson"
    same_file "$name.geojson"
    both convert "$map" "$name.gpkg"
    same_package "$name.gpkg"
    both convert "$map" "$name-copy.mif"
    same_pair "$name-copy"
done
both draw island.mif island-ways.mif styles.mif map.svg
[ "$failures" -eq 0 ]
