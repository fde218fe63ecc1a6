#!/usr/bin/env bash
# Builds the library and renders the gallery: button faces and borders, calendars, pickers.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/build-release.sh gallery
build=build/release

"$build/apps/gallery" out
