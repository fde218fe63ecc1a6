#!/usr/bin/env bash
# Builds and runs the benchmarks (optimised, no sanitizers).
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh

build=build/bench
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DTARNBROOK_TESTS=OFF >/dev/null
cmake --build "$build" -j"$(nproc)" --target tarnbrook_bench
"$build/bench/tarnbrook_bench" "$@"
