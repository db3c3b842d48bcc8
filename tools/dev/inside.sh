#!/usr/bin/env bash
# The commands of ./dev, run inside the tool environment. Called by ./dev with the command's name and arguments.
set -euo pipefail

repo=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
source "$repo/tools/dev/common.sh"

build() { # PRESET [TARGET...]
  local preset=$1 arguments=(--build "$repo/build/$1" --)
  shift
  [ $# -gt 0 ] && arguments=(--build "$repo/build/$preset" --target "$@" --)
  mkdir -p "$repo/build"
  if [ ! -f "$repo/build/$preset/build.ninja" ]; then
    (cd "$repo" && quietly "configuring $preset" "$repo/build/$preset.configure.log" cmake --preset "$preset") ||
      { tail -n 15 "$repo/build/$preset.configure.log" >&2; die "configuring failed; see build/$preset.configure.log"; }
  fi
  say "building $preset …"
  cmake "${arguments[@]}" >"$repo/build/$preset.build.log" 2>&1 </dev/null || {
    grep -m 40 -E 'error|FAILED|undefined|warning' "$repo/build/$preset.build.log" >&2 || true
    die "the build failed; see build/$preset.build.log"
  }
  # Who has to translate what, when the texts were compiled.
  grep '^texts: ' "$repo/build/$preset.build.log" >&2 || true
}

publish() { # puts the products into out/
  mkdir -p "$repo/out"
  local file
  for file in bin/VelquinSetup.exe bin/Velquin.exe installer/Velquin.msi; do
    cp -u "$repo/build/win64/$file" "$repo/out/"
  done
}

with_display() { "$repo/tools/wine/with_display.sh" "$@"; }

command_build() {
  build win64
  publish
  say "built:"
  (cd "$repo" && ls -l out/VelquinSetup.exe out/Velquin.exe out/Velquin.msi) >&2
}

command_run() {
  build win64
  publish
  with_display python3 "$repo/tools/demo/demo.py"
  if [ -n "${VELQUIN_DISPLAY:-}" ] && DISPLAY=$VELQUIN_DISPLAY XAUTHORITY=${VELQUIN_XAUTHORITY:-} timeout 10 xdpyinfo >/dev/null 2>&1; then
    say "the setup's dialog is on your screen, on a machine that is thrown away when you close it"
    DISPLAY=$VELQUIN_DISPLAY XAUTHORITY=${VELQUIN_XAUTHORITY:-} python3 "$repo/tools/demo/dialog.py"
  else
    with_display python3 "$repo/tools/demo/dialog.py" "$repo/out/dialog.png"
    say "there is no display to show the setup's dialog on; its picture: out/dialog.png"
  fi
}

command_test() {
  build native
  build win64
  publish
  # One run over the trees of both builds, so that there is one summary.
  mkdir -p "$repo/build/all"
  printf 'subdirs("%s" "%s")\n' "$repo/build/native" "$repo/build/win64" >"$repo/build/all/CTestTestfile.cmake"
  with_display python3 "$repo/tools/wine/with_machine.py" tests \
    ctest --test-dir "$repo/build/all" --parallel "$(nproc)" --output-on-failure --no-tests=error \
    --output-junit "$repo/build/tests.xml" ${1:+--tests-regex "$1"}
}

command_release() {
  python3 "$repo/tools/release/release.py" --check
  build win64
  publish
  build native-release manifest_check
  python3 "$repo/tools/release/release.py"
}

command_bench() {
  build native-release portable_bench
  build win64
  with_display python3 "$repo/bench/bench.py"
}

command_fuzz() {
  local seconds=${1:-20} target
  [[ $seconds =~ ^[0-9]+$ ]] || die "fuzz takes a number of seconds, not '$seconds'"
  build fuzz
  for target in "$repo"/build/fuzz/bin/fuzz_*; do
    local name
    name=$(basename "$target")
    mkdir -p "$repo/build/fuzz/corpus/$name"
    local seeds=()
    [ -d "$repo/fuzz/seeds/$name" ] && seeds=("$repo/fuzz/seeds/$name")
    quietly "$name, $seconds s" "$repo/build/fuzz/$name.log" "$target" -max_total_time="$seconds" -max_len=65536 -timeout=10 \
      -artifact_prefix="$repo/build/fuzz/$name-" "$repo/build/fuzz/corpus/$name" "${seeds[@]}" ||
      die "$name found a fault; see build/fuzz/$name.log"
    grep -E 'stat::number_of_executed_units|DONE' "$repo/build/fuzz/$name.log" | tail -n 1 >&2
  done
}

command_gallery() { # [FILE.json]
  mkdir -p "$repo/out"
  if [ $# -gt 0 ]; then
    build native-release skin_tool
    build win64
    # What the checker finds is said, and what the catalog gives is drawn all the same.
    local faultless=true
    "$repo/build/native-release/bin/skin_tool" check "$1" || faultless=false
    with_display python3 "$repo/tools/gallery/skins.py" "$repo/out/gallery" "$1"
    $faultless || die "the checker found faults in $1, see above"
    return
  fi
  "$repo/tools/gallery/gallery.sh" "$repo/out/gallery.png"
  build win64
  with_display python3 "$repo/tools/gallery/windows.py" "$repo/out/windows.png"
  with_display python3 "$repo/tools/gallery/skins.py" "$repo/out/gallery" "$repo/resources/skins"
  # The setup's windows as the tests expect them.
  montage "$repo"/tests/golden/dialog/*.png -background '#46484c' -fill '#e4e6ea' -label '%t' -tile 6x -geometry '345x>+8+8' \
    "$repo/out/gallery/dialogs.png"
  say "written: out/gallery.png, out/windows.png and the pictures in out/windows and out/gallery"
}

command_format() {
  cd "$repo"
  git ls-files -z --cached --others --exclude-standard '*.h' '*.cpp' |
    while IFS= read -r -d '' file; do if [ -f "$file" ]; then printf '%s\0' "$file"; fi; done |
    xargs -0 clang-format -i
}

# The checkout may belong to another user than root.
export GIT_CONFIG_COUNT=1 GIT_CONFIG_KEY_0=safe.directory GIT_CONFIG_VALUE_0=$repo

name=$1
shift
case $name in
  exec) exec "$@" ;;
  *) "command_$name" "$@" ;;
esac
