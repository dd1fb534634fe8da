# shellcheck shell=bash disable=SC2034,SC2154 # What is set here is read where this is sourced, and the other way.
# What ./play, ./check and packaging/deb have in common: packages, builds, steps that show how far they are, and an
# end for all that was started. Sourced at the repository's root; `steps` is how many times `run` will be called.

# Packages by use.
program_packages=(g++ cmake ninja-build qt6-base-dev libxcb1-dev libpulse-dev libsndfile1-dev)
player_packages=(fonts-liberation)
package_packages=(build-essential debhelper)

as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo -n)

step=0
began=$SECONDS
again="" newline=$'\n' # In a log every word is a line; on a terminal it takes the place of the one before.
[ ! -t 1 ] || again=$'\r\e[K' newline=""
groups=() # The process groups that were started.
scratch=$(mktemp -d "${TMPDIR:-/tmp}/tolvane.XXXXXX")
trap end_everything EXIT
trap 'exit 130' INT

# start COMMAND...: starts it in the background, in a process group of its own, which can be ended as one.
start() {
  set -m
  TMPDIR=$scratch "$@" </dev/null &
  set +m
  groups+=("-$!")
}

end_everything() {
  set +e
  disown -a # No word of each that is ended.
  local signal
  for signal in TERM KILL; do
    [ ${#groups[@]} -eq 0 ] || "${as_root[@]}" kill -$signal -- "${groups[@]}" || kill -$signal -- "${groups[@]}"
    for _ in {1..20}; do ! kill -0 -- "${groups[@]}" || sleep 0.1; done
  done 2>/dev/null
  rm -rf "$scratch"
}

# passed SINCE: sets `time` to how long that is ago, in words.
passed() {
  local seconds=$((SECONDS - $1))
  time="$seconds s"
  [ "$seconds" -lt 60 ] || time="$((seconds / 60)) min $((seconds % 60)) s"
}

# how_far LOG: what the last line that counts says, of ninja, ctest, tools/lint or apt-get.
how_far() {
  tail -c 4000 "$1" | sed -nE '
    s|^\[([0-9]+)/([0-9]+)\].*|: \1 of \2|p
    s|^ *([0-9]+)/([0-9]+) Test .*|: \1 of \2|p
    s|^[dp][lm]status:[^:]*:([0-9]+)[^:]*:(.*)|: \1 %, \2|p' | tail -n 1 | cut -c 1-40 | tr -d '\n'
}

# run WHAT COMMAND...: one step; its output goes to a log, of which the end is shown when it fails.
run() {
  local what="[$((step += 1))/$steps] $1" log=build/log/${1// /_} from=$SECONDS told=$SECONDS
  shift
  printf %s "$again$what$newline"
  start "$@" >"$log" 2>&1
  while kill -0 $! 2>/dev/null; do
    sleep 0.2
    if [ -t 1 ] || [ $((SECONDS - told)) -ge 30 ]; then
      told=$SECONDS
      passed "$from"
      printf %s "$again$what, $time"
      how_far "$log"
      printf %s "$newline"
    fi
  done
  passed "$from"
  if ! wait $!; then
    echo "$again$what: failed after $time. The end of $log:"
    tail -n 30 "$log"
    exit 1
  fi
  echo "$again$what: done in $time"
}

# need SIZES PACKAGE...: installs those Debian packages that are missing; SIZES is what that takes at most.
need() {
  local missing=() package installed sizes=$1
  shift
  installed=$(dpkg-query -W -f '${Package}=${db:Status-Status}\n' "$@" 2>/dev/null || true)
  for package in "$@"; do
    grep -qx "$package=installed" <<<"$installed" || missing+=("$package")
  done
  if [ ${#missing[@]} -eq 0 ]; then
    steps=$((steps - 1))
    return
  fi
  echo "Packages are missing: ${missing[*]}"
  echo "Debian has them; that takes the network, root or sudo, and on a bare system $sizes."
  if [ "$(id -u)" -ne 0 ] && ! { command -v sudo >/dev/null && { sudo -n true 2>/dev/null || { [ -t 0 ] && sudo -v; }; }; }
  then
    echo "They may not be installed from here; as root: apt-get install ${missing[*]}" >&2
    exit 1
  fi
  run "Installing packages" install_packages "${missing[@]}"
}

install_packages() {
  # How far it is goes through a descriptor of its own, which dpkg keeps from the packages' scripts: they print as well.
  local apt=(env DEBIAN_FRONTEND=noninteractive
    sh -c 'exec apt-get -qq -y -o APT::Status-Fd=3 -o Dpkg::Use-Pty=0 "$@" 3>&1' apt-get)
  # An earlier run may have been ended in the middle of an installation.
  "${as_root[@]}" dpkg --configure -a || true
  "${as_root[@]}" "${apt[@]}" update
  "${as_root[@]}" "${apt[@]}" --fix-broken install --no-install-recommends
  "${as_root[@]}" "${apt[@]}" install --no-install-recommends "$@"
}

# build PRESET: configures and builds; afresh where the folder has been moved since, or was made in another way.
build() {
  cmake --preset "$1" || { rm -r "build/$1" && cmake --preset "$1"; }
  cmake --build --preset "$1" -j "$(nproc)"
}

if ! mkdir -p build/log 2>/dev/null || [ -n "$(find build ! -type l ! -writable -print -quit)" ]; then
  echo "The folder build is another user's: sudo rm -r build, or copy the sources to a folder of your own." >&2
  exit 1
fi
