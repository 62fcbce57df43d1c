#!/usr/bin/env bash
# Counts the instructions of a fixed import and a fixed export and compares them with the recorded
# ones. Time is too noisy to be tested; this count hardly differs from run to run.
#
#   instructions.sh PROGRAM RECORD
#
# Only what runs in the module and in the host library counts. The C library chooses its string
# functions by the processor, and the C++ library's code is not ours, so their instructions would
# differ from machine to machine; ours depend on the compiler and its flags alone.
#
# A count of more than 10 % above the record fails. One of more than 10 % below is only reported:
# whoever made things faster writes the new count into the record.
set -euo pipefail
program=$1 record=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# The cost lines of a profile belong to the last object named before them; the line after one that
# begins with "calls=" is what the called functions cost, which they say themselves.
count_ours() {  # profile
    awk '/^ob=/ { ours = /\/(qolf\.so|libqolfhost\.so[.0-9]*)$/; next }
         /^calls=/ { getline; next }
         /^[0-9+*-]/ && ours { sum += $2 }
         END { printf "%.0f\n", sum }' "$1"
}

"$program" inputs "$scratch" >/dev/null
failed=0
for work in import export; do
    valgrind --quiet --tool=callgrind --compress-strings=no --compress-pos=no \
        --callgrind-out-file="$scratch/$work" "$program" "$work" "$scratch"
    counted=$(count_ours "$scratch/$work")
    recorded=$(awk -v work="$work" '$1 == work { print $2 }' "$record")
    echo "$work: $counted instructions, recorded are $recorded"
    if ((counted * 10 > recorded * 11)); then
        echo "FAILED: $work takes over 10 % more than recorded in $record" >&2
        failed=1
    elif ((counted * 10 < recorded * 9)); then
        echo "$work takes over 10 % less than recorded: write the new count into $record"
    fi
done
exit "$failed"
