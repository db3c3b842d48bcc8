#!/usr/bin/env bash
# Draws the product's pictures onto one sheet, on light and on dark ground and in the sizes in which they appear.
# usage: gallery.sh OUTPUT.png
set -euo pipefail
output=$1
resources=$(cd "$(dirname "$0")/../../resources" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

draw() { rsvg-convert -w "$2" -h "$2" -o "$3" "$resources/$1"; }

rows=()
for ground in '#f3f3f3' '#202020'; do
  name=${ground#\#}
  icons=()
  for size in 16 20 24 32 40 48 64 128 256; do
    source=icons/velquin.svg
    [ "$size" -lt 32 ] && source=icons/velquin-small.svg
    draw $source "$size" "$work/icon-$size.png"
    icons+=("$work/icon-$size.png")
  done
  montage "${icons[@]}" -background "$ground" -tile x1 -geometry +12+12 -gravity center "$work/icons-$name.png"
  rows+=("$work/icons-$name.png")
  for size in 24 48 128; do
    buttons=()
    for button in "$resources"/buttons/*.svg; do
      picture=$work/$(basename "$button" .svg)-$size.png
      draw "buttons/$(basename "$button")" "$size" "$picture"
      buttons+=("$picture")
    done
    montage "${buttons[@]}" -background "$ground" -tile x1 -geometry +12+12 "$work/buttons-$name-$size.png"
    rows+=("$work/buttons-$name-$size.png")
  done
done
convert "${rows[@]}" -background '#808080' -append "$output"
