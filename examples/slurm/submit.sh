#!/usr/bin/env bash
# Converts the files of a list as a Slurm job array, and reports at the end.
#
#   submit.sh LIST OUT FORMAT [PARTS]
#
# LIST names a file per line, best with its size: find /maps -iname '*.mif' -printf '%s\t%p\n'.
# LIST, the files in it and OUT must have the same paths on all nodes. OPTIONS is a variable with
# more options for sbatch: OPTIONS='--cpus-per-task=16 --partition=long'.
# The report is in OUT/.qolf/report.txt. Run the same again to convert what is left.
set -euo pipefail
if [ $# -lt 3 ]; then
    sed -n '2,/^[^#]/s/^# \{0,1\}//p' "$0" >&2
    exit 2
fi
here=$(cd "$(dirname "$0")" && pwd)
list=$(realpath "$1") out=$2 format=$3 parts=${4:-8}
mkdir -p "$out/.qolf"
out=$(realpath "$out")

# shellcheck disable=SC2086  # a list of words
array=$(sbatch ${OPTIONS:-} --parsable --array="1-$parts" --output="$out/.qolf/%A_%a.txt" \
    "$here/convert.sh" "$list" "$out" "$format")
report=$(sbatch --parsable --dependency="afterany:$array" --output="$out/.qolf/report.txt" \
    "$here/report.sh" "$out")
echo "job $array converts in $parts parts; job $report writes $out/.qolf/report.txt"
