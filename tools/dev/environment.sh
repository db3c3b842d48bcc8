# The tool environment: Debian 13's packages, either those of this system (Debian 13 or newer) or those of a Debian 13
# tool root that debootstrap makes in the user's cache folder. Sourced by ./dev; the public functions are
# environment_ensure and environment_enter.
#
# A tool root is entered in a private mount and process namespace: the checkout is bound at its own path, nothing stays
# mounted afterwards, removing the tool root can never reach the checkout, and whatever a command leaves running
# (a display, Wine's services) ends with it.

tool_suite=trixie
tool_suite_version=13
tool_space_mib=7000 # what a finished tool root and its making need, with some room
tool_mark=/etc/velquin-tool-root

package_list() { sed -e 's/#.*//' -e '/^[[:space:]]*$/d' "$repo/tools/dev/packages.txt"; }

# The hash names a tool root: another package list, suite or way of making one is another root.
package_hash() { (echo "$tool_suite 1" && package_list) | sha256sum | cut -c1-12; }

is_inside_tool_root() { [ -f "$tool_mark" ]; }

debian_version() { # prints the major version of this Debian, 0 for anything else
  local id='' version=''
  [ -r /etc/os-release ] && {
    id=$(. /etc/os-release && echo "${ID:-}")
    version=$(. /etc/os-release && echo "${VERSION_ID:-}")
  }
  [ "$id" = debian ] || { echo 0; return; }
  # Testing and unstable have no VERSION_ID: they are newer than any release.
  echo "${version:-99}"
}

environment_ensure() {
  [ "$(uname -m)" = x86_64 ] || die "unsupported system: $(uname -m). The tools need an x86-64 machine."
  [ "$(id -u)" = 0 ] || die "not root. Run it as root: sudo ./dev (packages and mounts need it)."
  if is_inside_tool_root; then
    [ "$(cat "$tool_mark")" = "$(package_hash)" ] ||
      die "the package list changed since this tool root was made. Leave it and run ./dev outside."
    environment_kind=here
    return
  fi
  local version
  version=$(debian_version)
  if [ "$version" -ge "$tool_suite_version" ]; then
    environment_kind=here
    ensure_system_packages
  elif [ "$version" -ge 12 ]; then
    environment_kind=root
    unshare --mount --pid --fork --kill-child --propagation private true 2>/dev/null ||
      die "this system does not allow private mounts. In a container, give it that right (--privileged), or use Debian 13."
    tool_cache=${XDG_CACHE_HOME:-${HOME:-/root}/.cache}/velquin-setup
    tool_root=$tool_cache/tool-root-$(package_hash)
    ensure_tool_root
  else
    die "unsupported system. ./dev needs Debian 12 or newer (found: $(. /etc/os-release 2>/dev/null && echo "${PRETTY_NAME:-unknown}"))."
  fi
}

# Installs packages with apt-get; refreshes the package lists only when the first try fails. $1 is a log file.
install_packages() {
  local log=$1
  shift
  export DEBIAN_FRONTEND=noninteractive
  dpkg --configure -a >"$log" 2>&1 </dev/null # what an interrupted run has left half-done
  apt-get install -y --no-install-recommends "$@" >>"$log" 2>&1 </dev/null ||
    { apt-get -o APT::Update::Error-Mode=any update >>"$log" 2>&1 </dev/null &&
      apt-get install -y --no-install-recommends "$@" >>"$log" 2>&1 </dev/null; }
}

explain_package_failure() { # $1 the log
  if grep -qE 'No space left|enough free space' "$1"; then
    die "no disk space while installing packages. Free some and run ./dev again (log: $1)."
  elif grep -qE "resolve|Could not connect|Failed to fetch|Unable to connect|Network is unreachable|Couldn't download|Failed getting release file" "$1"; then
    die "no network: the Debian mirror cannot be reached. Check the connection and the apt sources, then run ./dev again (log: $1)."
  fi
  tail -n 8 "$1" >&2
  die "installing packages failed. See $1, mend its cause and run ./dev again."
}

ensure_system_packages() {
  local cache=${XDG_CACHE_HOME:-${HOME:-/root}/.cache}/velquin-setup missing=() name log
  local -A installed=()
  while read -r name; do installed[$name]=1; done < <(dpkg-query -W -f '${db:Status-Abbrev} ${binary:Package}\n' 2>/dev/null |
    awk '$1 == "ii" { sub(/:.*/, "", $2); print $2 }')
  while read -r name; do [ -n "${installed[$name]:-}" ] || missing+=("$name"); done < <(package_list)
  [ ${#missing[@]} -eq 0 ] && return
  mkdir -p "$cache" 2>/dev/null || die "cannot make $cache. Set XDG_CACHE_HOME to a folder that can be written."
  log=$cache/packages.log
  if [ ${#missing[@]} -gt 20 ]; then require_space /usr "Free some"; fi
  say "installing ${#missing[@]} packages of this system (log: $log)"
  quietly "apt-get" "$log.out" install_packages "$log" "${missing[@]}" || explain_package_failure "$log"
}

require_space() { # $1 a folder that exists, $2 the remedy
  local free
  free=$(df -Pm "$1" | awk 'NR == 2 { print $4 }')
  [ "$free" -ge "$tool_space_mib" ] ||
    die "no disk space: the tools need $tool_space_mib MiB and $1 has $free MiB. $2."
}

# A finished root carries its mark; one without it is half-made and is made anew. The lock keeps a second ./dev waiting.
ensure_tool_root() {
  [ -f "$tool_root$tool_mark" ] && return
  mkdir -p "$tool_cache" 2>/dev/null || die "cannot make $tool_cache. Set XDG_CACHE_HOME to a folder that can be written."
  exec 9>"$tool_cache/lock"
  flock -n 9 || { say "another ./dev is making the tool root; waiting for it …"; flock 9; }
  if [ ! -f "$tool_root$tool_mark" ]; then
    if [ -e "$tool_root" ]; then
      say "the tool root is half-made; making it anew"
      rm -rf --one-file-system "$tool_root" || die "cannot remove the half-made tool root $tool_root. Remove it and run ./dev again."
    fi
    require_space "$tool_cache" "Free some, or set XDG_CACHE_HOME to a larger disk"
    make_tool_root
  fi
  exec 9>&-
}

host_mirror() { # the mirror of this system, so that a local one is used where there is one
  apt-get indextargets --format '$(REPO_URI) $(RELEASE)' 'Created-By: Packages' 2>/dev/null |
    awk '$2 !~ /security|updates|backports/ && $1 ~ /\/debian\/?$/ { print $1; exit }'
}

make_tool_root() {
  local log=$tool_cache/tool-root.log mirror
  say "making a Debian $tool_suite_version tool root, once; about five minutes and 5 GB ($tool_root)"
  if ! command -v debootstrap >/dev/null; then
    quietly "installing debootstrap" "$log.out" install_packages "$log" debootstrap || explain_package_failure "$log"
  fi
  # debootstrap mounts things in the root: privately, so that an interrupted run leaves nothing mounted.
  local bootstrap=(unshare --mount --propagation private --fork --kill-child debootstrap --variant=minbase "$tool_suite" "$tool_root")
  mirror=$(host_mirror || true)
  quietly "base system" "$log" "${bootstrap[@]}" ${mirror:+"$mirror"} ||
    quietly "base system, from the default mirror" "$log" "${bootstrap[@]}" ||
    explain_package_failure "$log"
  printf '127.0.0.1 localhost\n' >"$tool_root/etc/hosts" # debootstrap leaves none
  printf '#!/bin/sh\nexit 101\n' >"$tool_root/usr/sbin/policy-rc.d"
  chmod +x "$tool_root/usr/sbin/policy-rc.d"
  # shellcheck disable=SC2046
  quietly "compilers, Wine, fonts and the rest" "$log" enter_root "$tool_root" / / \
    sh -c 'DEBIAN_FRONTEND=noninteractive apt-get -y --no-install-recommends install "$@" && apt-get clean' sh $(package_list) ||
    explain_package_failure "$log"
  package_hash >"$tool_root$tool_mark"
  local other
  for other in "$tool_cache"/tool-root-????????????; do
    [ "$other" = "$tool_root" ] || say "an older tool root is no longer needed and can be removed: $other"
  done
}

# enter_root ROOT CHECKOUT FOLDER CMD...: runs CMD in ROOT with CHECKOUT bound at its own path ('/' for none).
enter_root() {
  unshare --mount --pid --fork --kill-child --propagation private bash "$repo/tools/dev/enter_root.sh" "$@"
}

environment_enter() { # CMD...: runs it among the tools, in the current folder where that belongs to the checkout
  local folder
  folder=$(pwd -P)
  export VELQUIN_DISPLAY=${DISPLAY:-} VELQUIN_XAUTHORITY=${XAUTHORITY:-}
  if [ "$environment_kind" = here ]; then
    exec "$@"
  fi
  case $folder/ in
    "$repo"/*) ;;
    *) [ "$2" = exec ] && say "only the checkout is there among the tools; running in $repo"
       folder=$repo ;;
  esac
  enter_root "$tool_root" "$repo" "$folder" "$@"
}
