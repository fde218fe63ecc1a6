#!/usr/bin/env bash
# Builds the demo and starts it. With a display it opens the window for a person; without one
# it starts an Xvfb of its own, runs the scripted tour (real X input from xdotool) and writes
# the screenshots to out/. Arguments go to the demo, e.g. --form my-form.json.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/build-release.sh demo
build=build/release
demo="$build/apps/demo"

if [ -n "${DISPLAY:-}" ]; then
  exec "$demo" "$@"
fi

# Xvfb writes its display number to the file once it accepts connections.
number=$(mktemp)
Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp 3>"$number" 2>/dev/null &
xvfb=$!
trap 'kill "$xvfb" 2>/dev/null; rm -f "$number"' EXIT
for _ in $(seq 100); do
  [ -s "$number" ] && break
  kill -0 "$xvfb" 2>/dev/null || { echo "Xvfb did not start" >&2; exit 1; }
  sleep 0.05
done
[ -s "$number" ] || { echo "Xvfb did not start in time" >&2; exit 1; }

mkdir -p out
DISPLAY=":$(cat "$number")" "$demo" --tour --screenshot-dir out "$@"
