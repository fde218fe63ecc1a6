#!/usr/bin/env bash
# Builds the libFuzzer targets (Clang, address and undefined-behaviour sanitizers) and runs
# each on its seed corpus for the given number of seconds (default 60).
# Usage: scripts/fuzz.sh [seconds] [target...]   targets: conversions date_format
#                                                format_cutter form_file form_values
#                                                automation
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=${1:-60}
shift || true
targets=("$@")
if [ ${#targets[@]} -eq 0 ]; then
  targets=(conversions date_format format_cutter form_file form_values automation)
fi

build=build/fuzz
CC=clang CXX=clang++ cmake -S . -B "$build" -G Ninja -DTARNBROOK_FUZZ=ON \
  -DTARNBROOK_TESTS=OFF -DTARNBROOK_BENCH=OFF >/dev/null
cmake --build "$build" -j"$(nproc)" --target "${targets[@]/#/fuzz_}"

# fontconfig keeps its font set for the life of the process.
export LSAN_OPTIONS="suppressions=$PWD/tests/lsan.supp${LSAN_OPTIONS:+:$LSAN_OPTIONS}"
for target in "${targets[@]}"; do
  # New inputs go to a scratch corpus so the committed seeds stay small.
  work="$build/corpus/$target"
  mkdir -p "$work" "$build/artifacts/$target"
  echo "== $target: ${seconds}s"
  "$build/fuzz/fuzz_$target" -max_total_time="$seconds" -print_final_stats=1 \
    -artifact_prefix="$build/artifacts/$target/" "$work" "fuzz/corpus/$target"
done
