#!/usr/bin/env bash
# Makes the zip, unpacks it for the tests, and starts what is in it: unpack-zip.sh BUILD FOLDER SOURCE
set -euo pipefail
build=$1 folder=$2 source=$3
rm -rf "$folder" "$build"/qolf-*-windows-x64.zip
mkdir -p "$folder"
(cd "$build" && cpack >cpack.log) || {
    cat "$build/cpack.log" >&2
    exit 1
}
unzip -q "$build"/qolf-*-windows-x64.zip -d "$folder"
mv "$folder"/qolf-*/* "$folder"
rmdir "$folder"/qolf-*-windows-x64
# What the tests themselves need of it beside them.
ln -sfn "$folder/proj" "$build/tests/proj"
"$source/cmake/wine-run" "$build/wine" "$folder/qolf.exe" --version
