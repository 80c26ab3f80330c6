#!/usr/bin/env bash
# Start-up time of the desktop program: from launch to the input window shown, without
# the splash's own timers (500 ms, seven frames of 100 ms, then 1000 ms). The program,
# started with MORVANE_STARTUP_BENCH set, skips the splash, prints the milliseconds from
# its start to the input window shown and ends. The script runs it several times and
# prints each run, with the wall time of the whole process from launch to exit, and the
# medians. $1 is the build folder (default: build); STARTUP_RUNS sets the runs (5).
set -euo pipefail
build=$(cd "${1:-build}" && pwd)
program="$build/shell/morvane"
runs=${STARTUP_RUNS:-5}
if [ ! -x "$program" ]; then
  echo "startup_bench: $program not found; build with MORVANE_BUILD_SHELL=ON" >&2
  exit 1
fi

measure() {
  local internal=() wall=()
  for _ in $(seq "$runs"); do
    local start end line
    start=$(date +%s%N)
    line=$(MORVANE_STARTUP_BENCH=1 "$program" 2>/dev/null | grep 'main window shown after')
    end=$(date +%s%N)
    internal+=("$(echo "$line" | awk '{print $(NF-1)}')")
    wall+=("$(( (end - start) / 1000000 ))")
    echo "run ${#wall[@]}: main window shown after ${internal[-1]} ms; process ${wall[-1]} ms"
  done
  median() { printf '%s\n' "$@" | sort -n | awk '{a[NR]=$1} END {print a[int((NR+1)/2)]}'; }
  echo "median: main window shown after $(median "${internal[@]}") ms;" \
       "process from launch to exit $(median "${wall[@]}") ms ($runs runs, $1)"
}

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  measure "current display"
elif command -v xvfb-run >/dev/null; then
  # The script again, inside a virtual X server, where it finds a display.
  exec xvfb-run -a -s "-screen 0 1280x800x24" bash "$0" "$build"
else
  QT_QPA_PLATFORM=offscreen measure "offscreen platform"
fi
