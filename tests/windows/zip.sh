#!/usr/bin/env bash
# What the zip holds: zip.sh OBJDUMP UNPACKED SOURCE
set -euo pipefail
objdump=$1 unpacked=$2 source=$3

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

for program in qolf.exe qolf.dll qolfhost.dll; do
    "$source/tests/windows/dependencies/only-system-libraries.sh" "$objdump" "$unpacked/$program" ||
        fail "$program needs a library that not every Windows has"
done
grep -aq '<longPathAware[^>]*>true<' "$unpacked/qolf.exe" ||
    fail "Windows would keep qolf.exe from paths of more than 260 characters"
for text in README LICENSE CHANGELOG; do
    [ -z "$(grep -vc $'\r$' "$unpacked/$text.txt" | grep -v '^0$')" ] || fail "$text.txt has lines without CR LF"
done
grep -aqF "$source" "$unpacked"/*.exe "$unpacked"/*.dll && fail "a program names folders of this machine"

# The help that the dialogs ask for, and a page for each man page, without dead links.
pages=$(cd "$source/docs/man" && ls qolf*.md)
for page in $pages; do
    [ -f "$unpacked/manual/${page%.md}.html" ] || fail "there is no page of ${page%.md}"
done
for page in "$unpacked"/Mif-{Import,Export}.htm "$unpacked"/manual/*.html; do
    for link in $(grep -o 'href="[^"#]*' "$page" | cut -c 7-); do
        [ -f "$(dirname "$page")/$link" ] || [[ $link == http* ]] ||
            fail "$(basename "$page") leads to $link, which is missing"
    done
done

# The terms of every library that is linked in.
for library in bzip2 cairo geos libarchive libpng pixman proj sqlite3 xz zlib boost cli11 \
    leaflet nlohmann-json gcc-mingw-w64-base mingw-w64-x86-64-dev; do
    ls "$unpacked/licences/$library"/* >/dev/null || fail "the terms of $library are missing"
done
[ -f "$unpacked/proj/proj.db" ] || fail "proj.db is missing"
# Whoever copies the folder gets all of it.
[ "$(find "$unpacked" -type f | wc -l)" -gt 50 ] || fail "files are missing"
