#!/usr/bin/env bash
# Checks that a document names every operation of the host that the module may use: those that
# headers declare, without the deleted ones.
#
#   documented-operations.sh FOLDER DOCUMENT
set -euo pipefail
folder=$1 document=$2

operations=$(find "$folder" -name '*.h' -exec sed -e 's,//.*,,' -e '/= delete/d' {} + |
    grep -oE '\b[A-Z][A-Za-z0-9_]*\(' | tr -d '(' | sort -u)
if [ -z "$operations" ]; then
    echo "FAILED: $folder declares no operation" >&2
    exit 1
fi
missing=$(for operation in $operations; do
    grep -qw -- "$operation" "$document" || echo "$operation"
done)
if [ -n "$missing" ]; then
    printf 'FAILED: %s does not name these operations:\n%s\n' "$document" "$missing" >&2
    exit 1
fi
