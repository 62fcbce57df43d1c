#!/usr/bin/env bash
# Runs the commands of README.md that are fenced as ```sh, in order and in one folder, against the
# built command. Where a ```text fence follows, the output must be what it says; a line "..." in
# it stands for any lines.
set -euo pipefail
qolf=$(realpath "$1") source=$(realpath "$2")

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
mkdir "$scratch/bin" "$scratch/home"
ln -s "$qolf" "$scratch/bin/qolf"
printf '#!/bin/sh\nexec qolf "$@"\n' >"$scratch/run"
printf '#!/bin/sh\n' >"$scratch/test"
chmod +x "$scratch/run" "$scratch/test"
cp -r "$source/samples" "$scratch/samples"
export PATH="$scratch/bin:$PATH" XDG_CONFIG_HOME="$scratch/home" QOLF_MODULE="${qolf%/*}/qolf.so"
cd "$scratch"

# One file per fence, in order: 01.sh, 02.text, ...
awk '/^```(sh|text)$/ { name = sprintf("%02d.%s", ++count, substr($0, 4)); inside = 1; next }
     /^```/ { inside = 0; next }
     inside { print > name }' "$source/README.md"

# Turns the expected lines into one pattern for the whole output.
matches() {  # expected actual
    local pattern="" line
    while IFS= read -r line; do
        if [ "$line" = "..." ]; then
            pattern+="*"
        else
            pattern+=$(printf '%q' "$line")$'\n'
        fi
    done <"$1"
    # shellcheck disable=SC2053  # a pattern on purpose
    [[ "$(cat "$2")"$'\n' == $pattern ]]
}

count=0
for commands in *.sh; do
    count=$((count + 1))
    number=${commands%.sh}
    if ! bash -euo pipefail "$commands" >"$number.out" 2>&1; then
        echo "FAILED: the README says" >&2
        cat "$commands" "$number.out" >&2
        exit 1
    fi
    following=$(printf '%02d.text' $((10#$number + 1)))
    if [ -f "$following" ] && ! diff "$following" "$number.out" >"$number.diff" &&
        ! matches "$following" "$number.out"; then
        echo "FAILED: the README's output (<) of" >&2
        cat "$commands" >&2
        echo "is not what qolf prints (>)" >&2
        cat "$number.diff" >&2
        exit 1
    fi
done
[ "$count" -gt 0 ] || {
    echo "FAILED: the README has no commands" >&2
    exit 1
}
echo "ran the $count groups of commands in the README"
