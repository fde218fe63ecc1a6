#!/usr/bin/env bash
# Installs the packages and builds the given targets optimised, without tests, in build/release.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh

cmake -S . -B build/release -G Ninja -DCMAKE_BUILD_TYPE=Release -DTARNBROOK_TESTS=OFF \
  -DTARNBROOK_BENCH=OFF >/dev/null
cmake --build build/release -j"$(nproc)" --target "$@"
