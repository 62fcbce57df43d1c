#!/usr/bin/env bash
# cmake/check-arrows fails on what the table forbids, and on nothing else.
set -euo pipefail
check=$1
failures=0

tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
mkdir -p "$tree"/{docs,top,low,low/platform,base/one,base/two}
cat >"$tree/docs/architecture.md" <<'TABLE'
| folder | holds | may include | libraries |
|---|---|---|---|
| `top` | the start | `low` | `parser.hpp` |
| `low` | the work | `base/` | |
| `base/` | the rest | | |
TABLE

# A tree of sources that is allowed.
reset_tree() {
    echo '#include "low/Low.h"' >"$tree/top/Top.cpp"
    echo '#include <string>' >"$tree/low/Low.h"
    echo '#include "base/one/One.h"' >"$tree/low/platform/Low_posix.cpp"
    echo '' >"$tree/base/one/One.h"
    echo '' >"$tree/base/two/Two.h"
    rm -rf "$tree/low/new"
}

expect() {  # name, exit code, a part of the message
    local output code=0
    output=$("$check" "$tree" 2>&1) || code=$?
    if [ "$code" -ne "$2" ] || [[ "$output" != *"$3"* ]]; then
        printf 'FAILED: %s: exit code %s, output:\n%s\n' "$1" "$code" "$output" >&2
        failures=$((failures + 1))
    fi
    reset_tree
}

reset_tree
expect "an allowed tree" 0 ""

echo '#include "base/one/One.h"' >>"$tree/top/Top.cpp"
expect "an include that a row below allows" 0 ""

echo '#include <parser.hpp>' >>"$tree/top/Top.cpp"
expect "a library where its row names it" 0 ""

echo '  #  include "top/Top.h"' >>"$tree/low/Low.h"
expect "a forbidden include" 1 'low/Low.h:2: low may not include "top/Top.h"'

echo '#include "top/Top.h"' >>"$tree/low/platform/Low_posix.cpp"
expect "a forbidden include in platform/" 1 'low/platform/Low_posix.cpp:2: low may not include'

echo '#include <parser.hpp>' >>"$tree/low/Low.h"
expect "a library in another room" 1 'low/Low.h:2: low may not include <parser.hpp>'

echo '#include "other/Other.h"' >>"$tree/low/Low.h"
expect "an include of a folder without a row" 1 'low may not include "other/Other.h"'

mkdir "$tree/low/new" && echo '' >"$tree/low/new/New.h"
expect "a folder without a row" 1 'low/new has no row'

echo '#include "base/two/Two.h"' >>"$tree/base/one/One.h"
echo '#include "base/one/One.h"' >>"$tree/base/two/Two.h"
expect "a cycle in one room" 1 'folders include each other: base/one -> base/two -> base/one'

sed -i 's/| `base\/` | the rest | |/| `base\/` | the rest | `none` |/' "$tree/docs/architecture.md"
expect "a table that names no room" 1 'base/ include none, which has no row'

echo 'no table' >"$tree/docs/architecture.md"
expect "a document without a table" 1 'has no table of folders'

[ "$failures" -eq 0 ]
