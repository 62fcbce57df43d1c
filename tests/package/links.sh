#!/usr/bin/env bash
# Follows the links among the documents below a folder: each must lead to a file or folder there.
set -euo pipefail
folder=$(realpath "$1")

count=0
while IFS=: read -r document target; do
    count=$((count + 1))
    case $target in
    http://* | https://*) continue ;;
    esac
    place=$(realpath -m "${document%/*}/$target")
    if [ ! -e "$place" ] || [[ $place != "$folder"/* ]]; then
        echo "FAILED: ${document#"$folder/"} links to $target, which is not there" >&2
        exit 1
    fi
done < <(find "$folder" -name build -prune -o -name .git -prune -o -name '.*' -prune -o \
    -name '*.md' -print0 | xargs -0 grep -oHE '\]\([^)#]+' | sed 's/:\](/:/')
[ "$count" -gt 0 ] || {
    echo "FAILED: no links below $folder" >&2
    exit 1
}
echo "followed $count links below $folder"
