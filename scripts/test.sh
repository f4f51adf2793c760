#!/usr/bin/env bash
# Installs dependencies, builds with the sanitizers and runs every test.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
cmake --preset debug-asan
cmake --build --preset debug-asan
ctest --preset debug-asan -j "$(nproc)"
