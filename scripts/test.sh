#!/usr/bin/env bash
# Builds everything with the address and undefined-behaviour sanitizers and runs every test.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh

build=build/test
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DTARNBROOK_SANITIZE=ON -DTARNBROOK_BENCH=OFF >/dev/null
cmake --build "$build" -j"$(nproc)"
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1
export LSAN_OPTIONS=suppressions=$PWD/tests/lsan.supp:print_suppressions=0
export UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1
ctest --test-dir "$build" -j"$(nproc)" --output-on-failure
