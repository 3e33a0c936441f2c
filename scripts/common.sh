# shellcheck shell=bash
# What the commands share. Source it; it stays in the caller's folder.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# What to build. CI chooses the preset in which warnings are errors.
preset=${VANTRY_PRESET:-release}

# What a build and its tests need of Debian.
build_packages=(
  cmake ninja-build libcli11-dev libexpat1-dev libgtest-dev nlohmann-json3-dev zlib1g-dev
)
if ! command -v c++ >/dev/null; then build_packages+=(g++); fi

# What the tests need besides: the tools that make and check manual pages, what the recipes of
# docs/many-files.md run in, shells, and what reads schemas.
test_packages=(
  lowdown mandoc valgrind
  make parallel
  fish zsh
  jing libxml2-utils python3-jsonschema
)

# What the page that shows plots needs besides.
page_packages=(nodejs npm)

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

# The same for a build and its tests.
require_tests() {
  require_build
  require "${test_packages[@]}"
}

# The same for the page. A node from elsewhere will do.
require_page() {
  if ! command -v node >/dev/null || ! command -v npm >/dev/null; then
    require "${page_packages[@]}"
  fi
}

# The browser that the tests of the page open, and the font that their pictures are drawn with.
require_browser() {
  require chromium fonts-dejavu-core
}

parser_is_current() {
  local installed offered
  grep -qs XML_SetReparseDeferralEnabled /usr/include/expat.h || return 1
  installed=$(dpkg-query -W -f '${Version}' libexpat1-dev)
  offered=$(LC_ALL=C apt-cache policy libexpat1-dev | sed -n 's/^ *Candidate: //p')
  dpkg --compare-versions "$installed" ge "$offered"
}

# apt_install <package>...: installs or upgrades them, where that is allowed. Prints what apt-get says
# only if it fails.
apt_install() {
  local as_root=() said
  if [[ $EUID -ne 0 ]]; then
    if ! may_become_root; then
      echo "Missing or out of date: $*" >&2
      echo "Install as root: apt-get update && apt-get install $*" >&2
      return 1
    fi
    as_root=(sudo)
  fi
  echo "Installing $*" >&2
  if ! said=$({
    "${as_root[@]}" apt-get update &&
      "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install --yes --no-install-recommends "$@"
  } 2>&1); then
    echo "$said" >&2
    return 1
  fi
}

may_become_root() {
  command -v sudo >/dev/null || return 1
  sudo -n true 2>/dev/null || { [[ -t 0 ]] && sudo -v; }
}

# build <target>: configures and builds. Prints nothing if there is nothing to do.
build() {
  (
    cd "$root" && cmake --preset "$preset" >/dev/null &&
      cmake --build --preset "$preset" --target "$1" |
      sed -u '/Re-checking globbed directories/d; /^ninja: no work to do/d'
  ) >&2
}

# run_tests [<argument of ctest>...]: runs them, and prints those that fail as they do, a line
# for each folder of tests, and the summary. ctest keeps the output of all of them.
run_tests() {
  local log=build/$preset/Testing/Temporary/LastTest.log
  (
    cd "$root" && ctest --preset "$preset" "$@" | awk -v log_file="$log" '
      / +Start +[0-9]+: / { next }
      / Test +#[0-9]+: .* sec *$/ {
        match($0, /#[0-9]+: [^.]+/)
        folder = substr($0, RSTART, RLENGTH)
        sub(/.* /, "", folder)
        if (!(folder in tests)) folders[++count] = folder
        ++tests[folder]
        seconds[folder] += $(NF - 1)
        if (/ Passed +[0-9.]+ sec *$/) next
        ++failed[folder]
      }
      / tests passed, / {
        for (i = 1; i <= count; ++i) {
          folder = folders[i]
          printf "%-10s %5d tests %4d failed %8.1f s\n", folder, tests[folder], failed[folder],
                 seconds[folder]
        }
        print "All output is in " log_file
      }
      { print; fflush() }
    '
  )
}
