# Small helpers that every part of ./dev shares. Sourced, never run.

# say TEXT: one line about what is happening, on stderr, so that the output of `./dev exec` stays the command's own.
say() { printf '[dev] %s\n' "$*" >&2; }

# die TEXT: a one-line error that names the remedy; ends with 1.
die() {
  printf '[dev] error: %s\n' "$*" >&2
  exit 1
}

# quietly WHAT LOG CMD...: runs CMD with its output in LOG, says WHAT first and a sign of life every half minute. Returns
# CMD's exit code.
quietly() {
  local what=$1 log=$2 started=$SECONDS ticker code=0
  shift 2
  say "$what …"
  (while sleep 30 && kill -0 $$ 2>/dev/null; do say "  still at it ($((SECONDS - started)) s)"; done) &
  ticker=$!
  "$@" >"$log" 2>&1 </dev/null || code=$?
  kill "$ticker" 2>/dev/null
  wait "$ticker" 2>/dev/null || true
  [ "$code" -ne 0 ] || say "  done ($((SECONDS - started)) s)"
  return "$code"
}
