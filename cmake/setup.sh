# Shared by ./run, ./test and .ci/run, which source it: what the machine must have, and the configured build folder.
# Works as root, and as a user with sudo; only the installation of packages asks for either.
# shellcheck shell=bash

# What a build needs, and what the tests need beside it, as Debian packages.
# shellcheck disable=SC2034  # used by the scripts that source this file
BUILD_PACKAGES=(g++ cmake ninja-build libcli11-dev nlohmann-json3-dev)
TEST_PACKAGES=(libgtest-dev python3 proj-bin proj-data libproj-dev libgeographiclib-dev libbenchmark-dev)

say() { printf '%s\n' "$*" >&2; }
die() {
    say "$*"
    exit 1
}

cores() { nproc 2>/dev/null || echo 2; }

header_exists() { [[ -e /usr/include/$1 || -e /usr/local/include/$1 ]]; }

# Whether what a package brings is there, wherever it came from.
package_present() {
    case $1 in
        ninja-build) command -v ninja ;;
        proj-bin) command -v projinfo ;;
        proj-data) [[ -e /usr/share/proj/nad83 || -e /usr/local/share/proj/nad83 ]] ;;
        libcli11-dev) header_exists CLI/CLI.hpp ;;
        nlohmann-json3-dev) header_exists nlohmann/json.hpp ;;
        libgtest-dev) header_exists gtest/gtest.h ;;
        libproj-dev) header_exists proj.h ;;
        libbenchmark-dev) header_exists benchmark/benchmark.h ;;
        libgeographiclib-dev) header_exists GeographicLib/Config.h ;;
        lib*) dpkg-query -W -f '${Status}' "$1" 2>/dev/null | grep -q '^install ok installed$' ;;
        *) command -v "$1" ;;
    esac >/dev/null 2>&1
}

# Prints those of the packages that are missing, one a line.
missing_packages() {
    local package
    for package in "$@"; do
        package_present "$package" || printf '%s\n' "$package"
    done
}

# require_packages PACKAGE...: installs what is missing, or names it and ends the script.
require_packages() {
    local missing log
    local as_root=()
    mapfile -t missing < <(missing_packages "$@")
    ((${#missing[@]})) || return 0
    command -v apt-get >/dev/null ||
        die "These packages are missing, and there is no apt-get to install them: ${missing[*]}"
    if ((EUID != 0)); then
        command -v sudo >/dev/null ||
            die "These packages are missing; install them as root (there is no sudo here): ${missing[*]}"
        as_root=(sudo)
    fi
    say "Installing: ${missing[*]}"
    log=$(mktemp)
    local apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -y -q -o DPkg::Lock::Timeout=300)
    "${apt[@]}" update >"$log" 2>&1 || say "apt-get update failed; going on with the package lists that are there."
    "${apt[@]}" install --no-install-recommends "${missing[@]}" >>"$log" 2>&1 </dev/null || cat "$log" >&2
    rm -f "$log"
    mapfile -t missing < <(missing_packages "$@")
    ((${#missing[@]} == 0)) || die "These packages are missing and could not be installed: ${missing[*]}"
}

# The value of an entry of the cache of a build folder; empty where there is none.
cached() { sed -n "s/^$2:[A-Z]*=//p" "$1/CMakeCache.txt" 2>/dev/null; }

# configure FOLDER PRESET TESTS: configures the folder unless that was done the same way before. TESTS is ON, OFF, or
# KEEP to leave tests configured that are there.
configure() {
    local folder=$1 preset=$2 tests=$3 launcher=
    local source=$PWD fresh=()
    command -v ccache >/dev/null && launcher=ccache
    if [[ $tests == KEEP ]]; then
        tests=OFF
        if [[ $(cached "$folder" TARVEK_TESTS) == ON && -z $(missing_packages "${TEST_PACKAGES[@]}") ]]; then tests=ON; fi
    fi
    if [[ -e $folder/build.ninja && $(cached "$folder" CMAKE_HOME_DIRECTORY) == "$source" &&
        $(cached "$folder" CMAKE_CXX_COMPILER_LAUNCHER) == "$launcher" &&
        $(cached "$folder" TARVEK_TESTS) == "$tests" ]]; then
        return 0
    fi
    # A folder that was configured elsewhere (a moved checkout), or not to the end, starts anew.
    [[ -e $folder/build.ninja && $(cached "$folder" CMAKE_HOME_DIRECTORY) == "$source" ]] || fresh=(--fresh)
    cmake --preset "$preset" "${fresh[@]}" -DTARVEK_TESTS="$tests" -DCMAKE_CXX_COMPILER_LAUNCHER="$launcher"
}
