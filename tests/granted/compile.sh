#!/usr/bin/env bash
# Checks the syntax of one source of the module with the headers in this folder in place of the
# host's. host/platform is ours on every host, so it is taken from the tree; a header of the host
# that is not in this folder would be taken from there as well, which fails.
#
#   compile.sh COMPILER ROOT SOURCE
set -euo pipefail
compiler=$1 root=$2 source=$3
included=$(mktemp)
trap 'rm -f "$included"' EXIT

"$compiler" -std=c++20 -fsyntax-only -Wall -Wextra -Werror -I"$root/tests/granted" -I"$root" \
    -MD -MF "$included" "$root/$source"
if [ ! -s "$included" ]; then
    echo "FAILED: the compiler does not say what $source includes" >&2
    exit 1
fi
if tr ' ' '\n' <"$included" | grep "^$root/host/" | grep -v "^$root/host/platform/" >&2; then
    echo "FAILED: $source includes these headers, which no host has to offer" >&2
    exit 1
fi
