# shellcheck shell=bash
# What the commands share. Source it; it stays in the caller's folder.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# What a build and its tests need of Debian.
build_packages=(cmake ninja-build libexpat1-dev libgtest-dev)
if ! command -v c++ >/dev/null; then build_packages+=(g++); fi

# require <package>...: installs those that are missing, or names them and ends.
require() {
  local package missing=()
  command -v dpkg-query >/dev/null || return 0
  for package; do
    [[ $(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) == installed ]] ||
      missing+=("$package")
  done
  [[ ${#missing[@]} -eq 0 ]] || apt_install "${missing[@]}" || exit 1
}

# The same for what a build needs. Brings the parser up to what the distribution offers: documents can
# crash or stall the one that was first shipped.
require_build() {
  require "${build_packages[@]}"
  if command -v dpkg-query >/dev/null && ! parser_is_current; then
    apt_install libexpat1-dev || true  # the build refuses a parser that is not safe
  fi
}

parser_is_current() {
  local installed offered
  grep -qs XML_SetReparseDeferralEnabled /usr/include/expat.h || return 1
  installed=$(dpkg-query -W -f '${Version}' libexpat1-dev)
  offered=$(LC_ALL=C apt-cache policy libexpat1-dev | sed -n 's/^ *Candidate: //p')
  dpkg --compare-versions "$installed" ge "$offered"
}

# apt_install <package>...: installs or upgrades them, where that is allowed.
apt_install() {
  local as_root=()
  if [[ $EUID -ne 0 ]]; then
    if ! may_become_root; then
      echo "Missing or out of date: $*" >&2
      echo "Install as root: apt-get update && apt-get install $*" >&2
      return 1
    fi
    as_root=(sudo)
  fi
  {
    "${as_root[@]}" apt-get update &&
      "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install --yes --no-install-recommends "$@"
  } >&2
}

may_become_root() {
  command -v sudo >/dev/null || return 1
  sudo -n true 2>/dev/null || { [[ -t 0 ]] && sudo -v; }
}

# build <preset> [<target>]: configures and builds.
build() {
  (
    cd "$root" && cmake --preset "$1" && cmake --build --preset "$1" ${2:+--target "$2"}
  ) >&2
}
