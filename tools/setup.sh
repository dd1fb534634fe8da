# shellcheck shell=bash disable=SC2034,SC2154 # What is set here is read where this is sourced, and the other way.
# What ./play, ./check and packaging/deb have in common: packages, builds, steps that show how far they are, and an
# end for all that was started. Sourced at the repository's root; `steps` is how many times `run` will be called.

step=0
job= # The process group of the step that runs.
began=$SECONDS
# Whatever a step starts inherits TMPDIR: by that it is found and ended, and what it leaves there goes too.
TMPDIR=$(mktemp -d "${TMPDIR:-/tmp}/tolvane.XXXXXX")
export TMPDIR
trap end_everything EXIT
trap 'exit 129' HUP
trap 'echo; exit 130' INT
trap 'exit 143' TERM

# Packages by use.
program_packages=(g++ cmake ninja-build qt6-base-dev libxcb1-dev libpulse-dev libsndfile1-dev)
player_packages=(fonts-liberation)
package_packages=(build-essential debhelper)

as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo -n)

end_everything() {
  local started
  export -n TMPDIR
  disown -a # No word of each that is killed.
  [ -z "$job" ] || kill -KILL -- "-$job" 2>/dev/null
  for _ in {1..50}; do
    mapfile -t started < <(grep -lzs "^TMPDIR=$TMPDIR" /proc/[0-9]*/environ | tr -dc '0-9\n')
    [ ${#started[@]} -gt 0 ] || break
    "${as_root[@]}" kill -KILL "${started[@]}" 2>/dev/null
  done
  rm -rf "$TMPDIR"
}

# passed SINCE: sets `time` to how long that is ago, in words.
passed() {
  local seconds=$((SECONDS - $1))
  time="$seconds s"
  [ "$seconds" -lt 60 ] || time="$((seconds / 60)) min $((seconds % 60)) s"
}

# say TEXT: on a terminal in place of the line before, in a log on a line of its own.
say() {
  if [ -t 1 ]; then printf '\r\e[K%.79s' "$1"; else echo "$1"; fi
}

# how_far LOG: sets `far` to what the last line that counts says, of ninja, ctest, tools/lint or apt-get. By way of a
# file, as a signal that comes while bash 5.2 reads a command substitution spoils the trap.
how_far() {
  tail -c 4000 "$1" | sed -nE '
    s|^\[([0-9]+)/([0-9]+)\].*|: \1 of \2|p
    s|^ *([0-9]+)/([0-9]+) Test .*|: \1 of \2|p
    s|^[dp][lm]status:[^:]*:([0-9]+)[^:]*:(.*)|: \2, \1 %|p' | tail -n 1 >"$TMPDIR/far"
  read -r far <"$TMPDIR/far" || far=
}

# run WHAT COMMAND...: one step; its output goes to a log, of which the end is shown when it fails.
run() {
  local what=$1 log from=$SECONDS told=$SECONDS
  shift
  step=$((step + 1))
  log=build/log/${what// /_}
  mkdir -p build/log
  say "[$step/$steps] $what"
  set -m # A group of its own, which can be ended as one.
  "$@" >"$log" 2>&1 </dev/null &
  job=$!
  set +m
  while kill -0 "$job" 2>/dev/null; do
    sleep 0.2
    if [ -t 1 ] || [ $((SECONDS - told)) -ge 30 ]; then
      told=$SECONDS
      how_far "$log"
      passed "$from"
      say "[$step/$steps] $what$far, $time"
    fi
  done
  if ! wait "$job"; then
    job=
    passed "$from"
    say "[$step/$steps] $what: failed after $time. The end of $log:"
    echo
    tail -n 30 "$log"
    exit 1
  fi
  job=
  passed "$from"
  say "[$step/$steps] $what: done in $time"
  [ ! -t 1 ] || echo
}

# need PACKAGE...: installs those Debian packages that are missing.
need() {
  local missing=() package installed
  installed=$(dpkg-query -W -f '${Package}=${db:Status-Status}\n' "$@" 2>/dev/null || true)
  for package in "$@"; do
    grep -qx "$package=installed" <<<"$installed" || missing+=("$package")
  done
  if [ ${#missing[@]} -eq 0 ]; then
    run "Looking for the packages it needs" true
    return
  fi
  if [ "$(id -u)" -ne 0 ] && ! { command -v sudo >/dev/null && { sudo -n true 2>/dev/null || { [ -t 0 ] && sudo -v; }; }; }
  then
    echo "Packages are missing and may not be installed from here; as root: apt-get install ${missing[*]}" >&2
    exit 1
  fi
  run "Installing ${#missing[@]} packages" install_packages "${missing[@]}"
}

install_packages() {
  # How far it is goes through a descriptor of its own, which dpkg keeps from the packages' scripts: they print as well.
  local apt=(env DEBIAN_FRONTEND=noninteractive "TMPDIR=$TMPDIR"
    sh -c 'exec apt-get -qq -y -o APT::Status-Fd=3 -o Dpkg::Use-Pty=0 "$@" 3>&1' apt-get)
  # An earlier run may have been ended in the middle of an installation.
  "${as_root[@]}" dpkg --configure -a || true
  "${as_root[@]}" "${apt[@]}" update
  "${as_root[@]}" "${apt[@]}" --fix-broken install --no-install-recommends
  "${as_root[@]}" "${apt[@]}" install --no-install-recommends "$@"
}

# build PRESET: configures and builds.
build() {
  local folder=build/$1 fresh=()
  # A folder of before 1.1 was made for another build tool.
  grep -qs 'CMAKE_GENERATOR:INTERNAL=Unix' "$folder/CMakeCache.txt" && fresh=(--fresh)
  cmake --preset "$1" "${fresh[@]}"
  cmake --build --preset "$1" -j "$(nproc)"
}

# private_display SIZE: an X server of this script's own with a window manager, in DISPLAY until the script ends.
private_display() {
  local number
  coproc XVFB { exec Xvfb -displayfd 1 -screen 0 "$1" -nolisten tcp 2>/dev/null; }
  read -r number <&"${XVFB[0]}"
  export DISPLAY=:$number
  openbox >/dev/null 2>&1 &
}
