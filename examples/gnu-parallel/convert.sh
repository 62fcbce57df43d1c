#!/usr/bin/env bash
# Converts the files of a list on several machines over ssh, and reports at the end.
#
#   convert.sh HOSTS LIST OUT FORMAT [PARTS]
#
# HOSTS names a machine per line, as the option --sshloginfile of GNU parallel takes it: "1/alpha" is
# one part at a time on alpha. LIST, the files in it and OUT must have the same paths everywhere, and
# qolf must be in the PATH there. Run the same again to convert what is left.
# JOBS is how many files a machine converts at a time, 2 by default.
set -euo pipefail
if [ $# -lt 4 ]; then
    sed -n '2,/^[^#]/s/^# \{0,1\}//p' "$0" >&2
    exit 2
fi
hosts=$1 list=$(realpath "$2") out=$3 format=$4 parts=${5:-8}
mkdir -p "$out/.qolf"
out=$(realpath "$out")

# A part whose connection breaks or whose process is killed runs again, on another machine.
seq "$parts" | parallel --sshloginfile "$hosts" --retries 3 --joblog "$out/.qolf/joblog.txt" \
    qolf convert --quiet --shard "{}/$parts" --resume --jobs "${JOBS:-2}" --to "$format" \
    --output-dir "$out" "$list" || true  # the report says what is left
qolf batch-report "$out"
