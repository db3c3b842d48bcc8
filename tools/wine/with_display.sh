#!/usr/bin/env bash
# Runs a command with a display of its own that nobody sees: with_display.sh CMD...
set -euo pipefail
number=$(mktemp)
Xvfb -displayfd 3 -screen 0 1600x1000x24 -nolisten tcp -noreset 3>"$number" >/dev/null 2>&1 </dev/null &
display=$!
trap 'kill $display 2>/dev/null; rm -f "$number"' EXIT
for _ in $(seq 100); do
  [ -s "$number" ] && break
  kill -0 $display 2>/dev/null || { echo "Xvfb did not start" >&2; exit 1; }
  sleep 0.1
done
DISPLAY=:$(tr -d '[:space:]' <"$number")
export DISPLAY
"$@"
