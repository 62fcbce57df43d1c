#!/usr/bin/env bash
# Checks a package that cpack made: lintian, what it holds, what it needs, and that its command and
# module work from the folder it is unpacked to.
set -euo pipefail
package=$(realpath "$1") source=$(realpath "$2")

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
chmod 755 "$scratch"

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

lintian --fail-on error,warning --allow-root "$package" || fail "lintian complains"

dpkg-deb --contents "$package" | awk '{ print $6 }' >"$scratch/contents"
for file in bin/qolf 'lib/[^/]*/qolf/qolf\.so' 'lib/[^/]*/qolf/qolf-commands\.so' \
    'lib/[^/]*/libqolfhost\.so' 'lib/[^/]*/libqolfhost\.so\.[0-9]*' include/qolf/host/zeio/IoImportFilter.h \
    include/qolf/standalone/IoHost.h 'lib/[^/]*/cmake/qolf/qolf-config\.cmake' \
    share/man/man1/qolf-info.1.gz share/bash-completion/completions/qolf \
    share/doc/qolf/copyright share/doc/qolf/changelog.Debian.gz; do
    grep -qx "\./usr/$file" "$scratch/contents" || fail "the package has no $file"
done
grep -vE '^\./(usr/.*)?$' "$scratch/contents" && fail "the package has files outside /usr"

depends=$(dpkg-deb --field "$package" Depends)
for library in libc6 libstdc++6 libproj25 libcairo2 libsqlite3-0; do
    [[ $depends == *$library* ]] || fail "the package does not depend on $library: $depends"
done

dpkg-deb --extract "$package" "$scratch/tree"
bash "$source/tests/package/links.sh" "$scratch/tree/usr/share/doc/qolf" ||
    fail "the links of the documents"
qolf=$scratch/tree/usr/bin/qolf
cd "$scratch"
"$qolf" info "$source/samples/island.mif" >info.out || fail "qolf info"
grep -q 'WGS 84' info.out || fail "qolf info printed: $(cat info.out)"
"$qolf" trace --no-store "$source/samples/island-ways.mif" >trace.jsonl || fail "qolf trace"
"$qolf" replay --no-store trace.jsonl copy.mif || fail "qolf replay"
"$qolf" draw "$source/samples/island.mif" map.svg || fail "qolf draw"
ls copy.mif copy.mid map.svg >/dev/null
echo "$(basename "$package"): $(wc -l <contents) entries; depends on $depends"
