#!/usr/bin/env bash
# One part of a conversion: a task of the job array that submit.sh starts.
#
# What it asks for: a processor for each process of qolf, and for each 512 MB, of which a file of
# some gigabytes needs about a fifth. A part that takes longer than its time is put back into the
# queue a minute before, and goes on with what is left; so does one that was killed, preempted, or
# lost its node, up to five times.
#SBATCH --job-name=qolf-convert
#SBATCH --cpus-per-task=2
#SBATCH --mem-per-cpu=512M
#SBATCH --time=04:00:00
#SBATCH --requeue
#SBATCH --open-mode=append
#SBATCH --signal=B:TERM@60
set -uo pipefail
list=$1 out=$2 format=$3
most_restarts=5

qolf convert --quiet --shard "$SLURM_ARRAY_TASK_ID/$SLURM_ARRAY_TASK_COUNT" --resume \
    --jobs "${SLURM_CPUS_PER_TASK:-1}" --to "$format" --output-dir "$out" "$list" &
qolf=$!
trap 'kill -TERM "$qolf"' TERM
wait "$qolf"
code=$?
if [ "$code" -gt 128 ]; then
    wait "$qolf" 2>/dev/null  # after a TERM: until its processes have ended
    if [ "${SLURM_RESTART_COUNT:-0}" -lt "$most_restarts" ]; then
        echo "part $SLURM_ARRAY_TASK_ID ended by signal $((code - 128)): back into the queue" >&2
        scontrol requeue "${SLURM_ARRAY_JOB_ID}_$SLURM_ARRAY_TASK_ID"
        exit 0
    fi
fi
exit "$code"
