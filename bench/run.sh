#!/usr/bin/env bash
# Runs every benchmark of the build folder given (default: build) and prints the
# figures: the Google Benchmark executables first, then the timed scripts.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$(cd "${1:-build}" && pwd)
for exe in "$build"/bench/*; do
  [ -f "$exe" ] && [ -x "$exe" ] || continue
  echo "== $(basename "$exe")"
  "$exe" --benchmark_counters_tabular=true
done
for script in "$here"/*.sh; do
  [ "$(basename "$script")" = run.sh ] && continue
  echo "== $(basename "$script")"
  bash "$script" "$build"
done
