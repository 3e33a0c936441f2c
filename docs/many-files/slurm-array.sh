#!/usr/bin/env bash
# A job array that distributes the plots in a list, with one name per line, among its tasks:
#     find plots -name '*.zrd' > list
#     sbatch --array=0-9 slurm-array.sh 10 list out
# Each task converts its part on the processors that it was given. It skips outputs that are up to date,
# so a failed task can be repeated: sbatch --array=3 slurm-array.sh 10 list out
#SBATCH --job-name=plots
#SBATCH --output=plots-%A-%a.log
#SBATCH --cpus-per-task=4
set -euo pipefail
tasks=$1
list=$2
output=$3

# Neighbours in the list go to different tasks, since large plots are often next to each other.
awk -v tasks="$tasks" -v task="$SLURM_ARRAY_TASK_ID" 'NR % tasks == task' "$list" |
  zrd convert --jobs "${SLURM_CPUS_PER_TASK:-1}" --keep-going --if-changed --output-dir "$output" -
