#!/usr/bin/env bash
# What became of the array: runs when all of its parts have ended. Fails unless every file is done.
#SBATCH --job-name=qolf-report
#SBATCH --cpus-per-task=1
#SBATCH --mem=2G
#SBATCH --time=01:00:00
exec qolf batch-report "$1"
