#!/usr/bin/env bash
# Builds and runs the benchmarks (optimised, no sanitizers), then sets each figure that has a
# target beside it. Arguments go to the benchmark program (e.g. --benchmark_filter=Form).
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh

build=build/bench
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DTARNBROOK_TESTS=OFF >/dev/null
cmake --build "$build" -j"$(nproc)" --target tarnbrook_bench
results="$build/results.txt"
"$build/bench/tarnbrook_bench" --benchmark_color=false "$@" | tee "$results"

# name, what is measured (the CPU time or a counter), target, unit of the target
echo
echo "== Against the targets"
awk '
  BEGIN {
    split("ns us ms s", units, " ");
    scale["ns"] = 1; scale["us"] = 1e3; scale["ms"] = 1e6; scale["s"] = 1e9;
    row["BM_MonthCalendar_Paint"] = "time 15 us";
    row["BM_MonthCalendar_ClickToWindow"] = "time 20 us";
    row["BM_DatePicker_KeystrokeToWindow"] = "time 5 us";
    row["BM_FormatDate_ours"] = "time 15 ns";
    row["BM_DateSelect_SQLCriteria_Range"] = "time 2 us";
    row["BM_Criteria_RenderRange"] = "time 1 us";
    row["BM_DateSelect_SelectionToWindow"] = "time 150 us";
    row["BM_Form_Create2000/iterations:3"] = "time 500 ms;peak_rss_kB 358400 kB;paints_per_control 1.01 paints";
    row["BM_Form_Reload2000/iterations:3"] = "time 500 ms";
    row["BM_DatePicker_Memory/iterations:20"] = "control_bytes 40960 bytes";
    row["BM_MonthCalendar_Memory/iterations:20"] = "ratio 1.5 x";
    printf "%-40s %-20s %14s %14s  %s\n", "benchmark", "measure", "ours", "target", "";
  }
  ($1 in row) {
    n = split(row[$1], checks, ";");
    for (i = 1; i <= n; ++i) {
      split(checks[i], c, " ");
      if (c[1] == "time") {
        ours = $4 * scale[$5] / scale[c[3]];
      } else {
        ours = "";
        for (f = 6; f <= NF; ++f) {
          split($f, kv, "=");
          if (kv[1] == c[1]) {
            v = kv[2]; m = 1;
            if (v ~ /k$/) { m = 1e3; sub(/k$/, "", v); }
            if (v ~ /M$/) { m = 1e6; sub(/M$/, "", v); }
            ours = v * m;
          }
        }
      }
      if (ours == "") continue;
      printf "%-40s %-20s %14.4g %14.4g  %s %s\n", $1, c[1], ours, c[2], c[3],
             (ours <= c[2] ? "ok" : "OVER");
    }
  }' "$results"
