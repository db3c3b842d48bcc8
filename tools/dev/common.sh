# Small helpers that every part of ./dev shares. Sourced, never run.

# say TEXT: one line about what is happening, on stderr, so that the output of `./dev exec` stays the command's own.
say() { printf '[dev] %s\n' "$*" >&2; }

# die TEXT: a one-line error that names the remedy; ends with 1.
die() {
  printf '[dev] error: %s\n' "$*" >&2
  exit 1
}

# A line every half minute until it is ended or this script is gone: an interrupt reaches the script, but not what it
# started in the background. The pauses hold no pipe and no lock of ours.
tick() { # START, in SECONDS
  local pause=''
  trap 'kill $pause 2>/dev/null; exit 0' TERM
  while kill -0 $$ 2>/dev/null; do
    sleep 30 >/dev/null 2>&1 </dev/null &
    pause=$!
    wait "$pause" || true
    kill -0 $$ 2>/dev/null && say "  still at it ($((SECONDS - $1)) s)"
  done
}

# quietly WHAT LOG CMD...: runs CMD with its output in LOG, says WHAT first and a sign of life every half minute. Returns
# CMD's exit code.
quietly() {
  local what=$1 log=$2 started=$SECONDS ticker code=0
  shift 2
  say "$what …"
  tick "$started" 9>&- &
  ticker=$!
  "$@" >"$log" 2>&1 </dev/null || code=$?
  kill "$ticker" 2>/dev/null || true
  wait "$ticker" 2>/dev/null || true
  [ "$code" -ne 0 ] || say "  done ($((SECONDS - started)) s)"
  return "$code"
}
