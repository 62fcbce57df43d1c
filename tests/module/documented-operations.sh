#!/usr/bin/env bash
# Checks that a document names every operation of the list of what the module asks of its host.
#
#   documented-operations.sh LIST DOCUMENT
set -euo pipefail
list=$1 document=$2

# "construction of TrPen" and "IoManager::GetOption": the last name is the operation's.
operations=$(sed -n 's/^\([^#\t][^\t]*\)\t.*/\1/p' "$list" |
    sed -e 's/ (.*//' -e 's/ as a base class$//' -e 's/, /\n/g' |
    sed -e 's/.* //' -e 's/.*:://' | sort -u)
if [ -z "$operations" ]; then
    echo "FAILED: $list has no operations" >&2
    exit 1
fi
missing=$(for operation in $operations; do
    grep -qw -- "$operation" "$document" || echo "$operation"
done)
if [ -n "$missing" ]; then
    printf 'FAILED: %s does not name these operations:\n%s\n' "$document" "$missing" >&2
    exit 1
fi
