#!/usr/bin/env bash
# Runs a command inside a tool root. Called as the first process of a new mount and process namespace (see
# environment.sh), so every mount below ends with it.
# usage: enter_root.sh ROOT CHECKOUT FOLDER CMD...   CHECKOUT '/' binds nothing
set -euo pipefail
root=$1 checkout=$2 folder=$3
shift 3

mount -t proc proc "$root/proc"
mount -t sysfs -o ro sysfs "$root/sys" # without it Wine cannot count processors
mount --rbind /dev "$root/dev"
mount -t tmpfs -o mode=1777 tmpfs "$root/tmp" # displays and Wine's services of one run never meet those of another
mkdir -p -m 1777 "$root/tmp/.X11-unix"
if [ -f /etc/resolv.conf ]; then
  touch "$root/etc/resolv.conf"
  mount --bind "$(readlink -f /etc/resolv.conf)" "$root/etc/resolv.conf"
fi
if [ "$checkout" != / ]; then
  mkdir -p "$root$checkout"
  mount --bind "$checkout" "$root$checkout"
fi

# The user's own display, for what shall be seen: its socket and its key, under names that nothing else uses.
if [[ ${VELQUIN_DISPLAY:-} =~ ^:([0-9]+)(\.[0-9]+)?$ ]] && [ -S "/tmp/.X11-unix/X${BASH_REMATCH[1]}" ]; then
  socket=/tmp/.X11-unix/X${BASH_REMATCH[1]}
  touch "$root$socket"
  mount --bind "$socket" "$root$socket"
  if [ -f "${XAUTHORITY:-${HOME:-/root}/.Xauthority}" ]; then
    cp "${XAUTHORITY:-${HOME:-/root}/.Xauthority}" "$root/tmp/display-key"
    export VELQUIN_XAUTHORITY=/tmp/display-key
  fi
else
  unset VELQUIN_DISPLAY
fi

unset XAUTHORITY DISPLAY WAYLAND_DISPLAY XDG_RUNTIME_DIR XDG_CACHE_HOME XDG_CONFIG_HOME XDG_DATA_HOME TMPDIR PYTHONPATH LD_LIBRARY_PATH
while IFS='=' read -r name _; do case $name in WINE*) unset "$name" ;; esac; done < <(env)
export HOME=/root LC_ALL=C.UTF-8 PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin
# shellcheck disable=SC2016
chroot "$root" sh -c 'cd "$1" && shift && exec "$@"' sh "$folder" "$@"
