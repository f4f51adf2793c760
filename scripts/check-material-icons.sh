#!/usr/bin/env bash
# Runs `qxassets svg check --json` over every SVG file of the Material icon
# collection (fetched once into bench/cache/ by bench/fetch-material-icons.sh),
# with a qxassets built with AddressSanitizer and UndefinedBehaviorSanitizer,
# draws every production icon at 48x48, and prints how many files got each
# verdict.
#
# Fails when qxassets crashes, exits with a code other than 0, 1 or 2, or a
# sanitizer reports anything. Set QXASSETS to check another build of the tool.
set -euo pipefail
cd "$(dirname "$0")/.."

icons="$(bench/fetch-material-icons.sh)"
if [ -z "${QXASSETS:-}" ]; then
  cmake --preset debug-asan >/dev/null
  cmake --build --preset debug-asan -j2 --target qxassets
  QXASSETS=build/debug-asan/apps/qxassets/qxassets
fi

# A sanitizer report aborts, so it can't pass for one of the tool's own codes.
export ASAN_OPTIONS="detect_leaks=1:abort_on_error=1"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1:abort_on_error=1"

out="$(mktemp -d)"
trap 'rm -rf "$out"' EXIT

mapfile -d '' files < <(find "$icons" -name '*.svg' -print0 | sort -z)
echo "check-material-icons: ${#files[@]} files under $icons" >&2

batch=200
status=0
for ((i = 0; i < ${#files[@]}; i += batch)); do
  n=$((i / batch))
  rc=0
  "$QXASSETS" svg check --json "${files[@]:i:batch}" >"$out/$n.json" 2>"$out/$n.err" || rc=$?
  if [ "$rc" -gt 2 ] || grep -qE 'Sanitizer|runtime error' "$out/$n.err"; then
    echo "check-material-icons: qxassets failed (exit code $rc) on files $i to $((i + batch - 1)):" >&2
    cat "$out/$n.err" >&2
    status=1
  fi
done

# Drawing what was read must not crash either: every production icon, at the
# thumbnail size, in batches like the check.
mapfile -d '' production < <(find "$icons" -path '*/svg/production/*.svg' -print0 | sort -z)
for ((i = 0; i < ${#production[@]}; i += batch)); do
  rc=0
  "$QXASSETS" svg render -o "$out/png/" --size 48x48 "${production[@]:i:batch}" 2>"$out/render.err" || rc=$?
  if [ "$rc" -gt 1 ] || grep -qE 'Sanitizer|runtime error' "$out/render.err"; then
    echo "check-material-icons: qxassets svg render failed (exit code $rc) on production files $i to $((i + batch - 1)):" >&2
    cat "$out/render.err" >&2
    status=1
  fi
done
echo "Rendered ${#production[@]} production icons at 48x48 into $(find "$out/png" -name "*.png" | wc -l) PNG files (an icon name can recur in two categories)"

echo "Verdicts:"
jq -r '.[].verdict' "$out"/*.json | sort | uniq -c | sort -rn
failed="$(jq -r '.[] | select(.verdict == "Failed") | .file' "$out"/*.json)"
if [ -n "$failed" ]; then
  echo "Failed files:"
  echo "$failed" | sed "s|^$icons/|  |"
fi
exit "$status"
