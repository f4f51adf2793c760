#!/usr/bin/env bash
# Installs everything the product and its tests need on a Debian 12 machine.
# Safe to run again: apt skips what is already there.
set -euo pipefail

packages=(
  build-essential cmake ninja-build pkg-config git
  googletest libgtest-dev libgmock-dev libbenchmark-dev
  nlohmann-json3-dev libpugixml-dev libstb-dev zlib1g-dev libpng-dev
  libcairo2-dev librsvg2-dev librlottie-dev
  qt6-base-dev
)
# npm fetches the icon corpus for tests and benchmarks; the machine's own Node.js
# may already provide it.
command -v npm >/dev/null 2>&1 || packages+=(npm)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done

if [ ${#missing[@]} -eq 0 ]; then
  echo "install-deps: all packages present"
  exit 0
fi

SUDO=""
[ "$(id -u)" -eq 0 ] || SUDO="sudo"
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
