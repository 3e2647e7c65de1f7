#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Measures the simulated board's noise at all ranges by `vx3260-cli characterise`, with many seeds,
# and compares it with the board's law: it must be within the 95 % confidence interval in 95 % of
# the cells. Arguments: the path of vx3260-cli, and how many seeds.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/build-functions.sh

cli=$(realpath "${1:-build/release/bin/vx3260-cli}")
seeds=${2:-20}
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

for seed in $(seq "$seeds"); do
    "$cli" --simulated --seed "$seed" characterise main --words 13,20,30 --count 200 \
        --output "$folder/$seed" --format csv >>"$folder/tables.csv" 2>"$folder/err" ||
        ShowEnd "$folder/err"
done

# Volts at the 20 mV range and filter word 69, eight times that at 2.56 V, less the gain error of
# 0.4 %; as the root of the rate.
awk -F, '
    BEGIN { split("20mV 40mV 80mV 160mV 320mV 640mV 1.28V 2.56V", names, " ")
            for (i in names) step[names[i]] = i - 1 }
    $1 == "range" { next }
    { law = 0.5e-6 * 8 ^ (step[$1] / 7) * sqrt(69 / $2) * 0.996
      cells++; inside += law >= $7 && law <= $8 }
    END { share = inside / cells; tolerance = 3 * sqrt(0.95 * 0.05 / cells)
          printf "%d of %d cells, %.1f %%, have the law within their 95 %% interval\n",
              inside, cells, 100 * share
          exit (share < 0.95 - tolerance || share > 0.95 + tolerance) }' "$folder/tables.csv"
