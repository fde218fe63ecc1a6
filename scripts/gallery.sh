#!/usr/bin/env bash
# Builds the library and renders the gallery: button faces and borders, calendars, pickers.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh

build=build/release
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DTARNBROOK_TESTS=OFF \
  -DTARNBROOK_BENCH=OFF >/dev/null
cmake --build "$build" -j"$(nproc)" --target gallery
mkdir -p out
"$build/apps/gallery" out/gallery.png
