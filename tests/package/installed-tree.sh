#!/usr/bin/env bash
# Installs into a scratch folder, compares the list of files with the expected one, runs the
# installed command, and builds and runs the example host against the installed package.
set -euo pipefail
# shellcheck source-path=SCRIPTDIR
. "$(dirname "$0")/commands.sh"
cmake=$1 build=$2 source=$3 expected=$4 libdir=$5 compiler=$6 flags=${7:-}

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
root=$scratch/root
sample=$source/tests/package/three-kinds.mif

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

"$cmake" --install "$build" --prefix "$root" >"$scratch/install.log" || {
    cat "$scratch/install.log" >&2
    fail "the installation"
}

(cd "$root" && find . ! -type d | sed 's|^\./||' | LC_ALL=C sort) >"$scratch/installed-files"
{
    grep -v '^#' "$expected"
    echo share/man/man1/qolf.1.gz
    subcommands_of "$root/bin/qolf" | sed 's|.*|share/man/man1/qolf-&.1.gz|'
} | LC_ALL=C sort | diff - "$scratch/installed-files" ||
    fail "the installed files (>) are not those of tests/package/installed-files.txt (<)"

bash "$source/tests/package/links.sh" "$root/share/doc/qolf" || fail "the links of the documents"

for header in $(cd "$source" && find host -name '*.h' -not -path 'host/platform/*'); do
    [ -f "$root/include/qolf/$header" ] || fail "$header is missing in host/CMakeLists.txt"
done

for binary in bin/qolf "$libdir/qolf/qolf.so" "$libdir/qolf/qolf-commands.so" \
    "$libdir/libqolfhost.so"; do
    readelf -d "$root/$binary" | grep -E 'R(UN)?PATH' | grep -F "$build" &&
        fail "$binary looks for libraries in the build folder"
done
if grep -rlF -e "$build" -e "$source" "$root/$libdir/cmake" "$root/include"; then
    fail "these files name the build folder"
fi

# A moved tree still works: nothing in it is absolute.
mv "$root" "$scratch/moved"
root=$scratch/moved
cd "$scratch"

"$root/bin/qolf" info --count "$sample" >info.out 2>info.err || fail "qolf info: $(cat info.err)"
[ ! -s info.err ] || fail "qolf info said: $(cat info.err)"

build_example() {
    "$cmake" -S "$source/examples/count-objects" -B example -DCMAKE_PREFIX_PATH="$root" \
        -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_CXX_FLAGS="$flags" &&
        "$cmake" --build example
}
if ! build_example >example.log 2>&1; then
    cat example.log >&2
    fail "the example does not build against the installed package"
fi
example/count-objects "$sample" >counts
for line in "TrMarkerSet 1" "TrPolyline 1" "TrPolygon 1" "TrCRS 1"; do
    grep -qxF "$line" counts || fail "the example did not print '$line' but: $(cat counts)"
done
echo "installed $(wc -l <installed-files) files; the example counted $(tr '\n' ' ' <counts)"
