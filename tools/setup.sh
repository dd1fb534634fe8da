# What ./play and ./check have in common; sourced at the repository's root.

# need PACKAGE...: installs those Debian packages that are missing.
need() {
  local missing=()
  for package in "$@"; do
    dpkg-query -W -f '${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null || ! { [ -t 0 ] || sudo -n true 2>/dev/null; }; then
      echo "Packages are missing and may not be installed from here; as root: apt-get install ${missing[*]}" >&2
      exit 1
    fi
    as_root=(sudo)
  fi
  echo "Installing ${missing[*]}"
  local log
  log=$(mktemp)
  if ! { "${as_root[@]}" apt-get update -qq &&
         "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
           "${missing[@]}"; } >"$log" 2>&1; then
    echo "apt-get could not install ${missing[*]}; what it said is in $log" >&2
    exit 1
  fi
  rm -f "$log"
}

# build PRESET: configures and builds; says nothing but what went wrong.
build() {
  local log
  log=$(mktemp)
  if ! { cmake --preset "$1" && cmake --build --preset "$1" -j "$(nproc)"; } >"$log" 2>&1; then
    cat "$log" >&2
    exit 1
  fi
  rm -f "$log"
}

# private_display SIZE: an X server of this script's own with a window manager, in DISPLAY until the script ends.
private_display() {
  local number
  trap 'kill $(jobs -p) 2>/dev/null' EXIT
  coproc XVFB { exec Xvfb -displayfd 1 -screen 0 "$1" -nolisten tcp 2>/dev/null; }
  read -r number <&"${XVFB[0]}"
  export DISPLAY=:$number
  openbox >/dev/null 2>&1 &
}
