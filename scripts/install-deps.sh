#!/usr/bin/env bash
# Installs the Debian packages the build and the tests need; does nothing when all are present.
set -euo pipefail

packages=(
  cmake ninja-build g++ pkg-config git
  libcairo2-dev libpango1.0-dev fonts-dejavu-core
  libicu-dev nlohmann-json3-dev
  libx11-dev xvfb xdotool x11-apps
  libgtk-4-dev qt6-base-dev
  libgtest-dev libbenchmark-dev
  libsqlite3-dev libpq-dev postgresql fonts-ipafont-gothic
)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}"
sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
