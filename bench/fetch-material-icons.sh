#!/usr/bin/env bash
# Fetches the Material icon SVGs (material-design-icons@3.0.1) into bench/cache/
# for the SVG benchmarks and the corpus check. Only the SVG files are unpacked;
# the tarball is deleted afterwards. Safe to run again: a finished cache is kept.
#
# Prints the folder that holds the icons: bench/cache/material-design-icons.
set -euo pipefail

here="$(cd "$(dirname "$0")" && pwd)"
cache="$here/cache"
target="$cache/material-design-icons"
stamp="$target/.complete"
package="material-design-icons@3.0.1"

if [ -f "$stamp" ]; then
  echo "$target"
  exit 0
fi

command -v npm >/dev/null 2>&1 || { echo "fetch-material-icons: npm is required" >&2; exit 1; }
mkdir -p "$cache"
work="$(mktemp -d "$cache/fetch.XXXXXX")"
trap 'rm -rf "$work"' EXIT

echo "fetch-material-icons: downloading $package" >&2
tarball="$(cd "$work" && npm pack --silent "$package" | tail -n 1)"
echo "fetch-material-icons: unpacking the SVG files" >&2
tar -xzf "$work/$tarball" -C "$work" --no-same-owner --wildcards '*.svg'

rm -rf "$target"
mv "$work/package" "$target"
count="$(find "$target" -name '*.svg' | wc -l)"
echo "fetch-material-icons: $count SVG files" >&2
touch "$stamp"
echo "$target"
