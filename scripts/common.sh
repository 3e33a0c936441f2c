# shellcheck shell=bash
# What the commands share. Source it; it stays in the caller's folder.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# What a build and its tests need of Debian.
build_packages=(cmake ninja-build libexpat1-dev libgtest-dev)
if ! command -v c++ >/dev/null; then build_packages+=(g++); fi

# require <package>...: installs those that are missing, or names them and ends.
require() {
  local package missing=() as_root=()
  command -v dpkg-query >/dev/null || return 0
  for package; do
    [[ $(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) == installed ]] ||
      missing+=("$package")
  done
  [[ ${#missing[@]} -gt 0 ]] || return 0

  if [[ $EUID -ne 0 ]]; then
    if ! may_become_root; then
      echo "These packages are missing: ${missing[*]}" >&2
      echo "Install them as root: apt-get install ${missing[*]}" >&2
      exit 1
    fi
    as_root=(sudo)
  fi
  {
    "${as_root[@]}" apt-get update
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
      apt-get install --yes --no-install-recommends "${missing[@]}"
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
