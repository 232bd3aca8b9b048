# shellcheck shell=bash
# Shared by the scripts of this folder: where the project is, what it needs, how it is built.
# To be sourced, not run.
set -euo pipefail

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)

# What a build and the tests need, and what lint needs beside it, by the names of the Debian packages.
# shellcheck disable=SC2034 # read by the scripts that source this file
build_packages=(g++ cmake ninja-build python3 libgtest-dev libcli11-dev nlohmann-json3-dev libfmt-dev
    python3-ezdxf libfreetype-dev fonts-dejavu-core fonts-droid-fallback python3-fonttools
    libbenchmark-dev libgeos++-dev gdal-bin nodejs npm chromium chromium-driver
    python3-selenium)
# shellcheck disable=SC2034 # read by the scripts that source this file
lint_packages=(clang-format clang-tidy shellcheck doxygen)
# shellcheck disable=SC2034 # read by the scripts that source this file
fuzz_packages=(clang libclang-rt-14-dev)
# shellcheck disable=SC2034 # read by the scripts that source this file
soak_packages=(valgrind)
# shellcheck disable=SC2034 # read by the scripts that source this file
coverage_packages=(gcovr)
# shellcheck disable=SC2034 # read by the scripts that source this file
mutation_packages=(python3-clang-14 libclang-common-14-dev)

die() {
    printf '%s: %s\n' "$(basename -- "$0")" "$1" >&2
    exit 1
}

has_header() {
    printf '#if !__has_include(<%s>)\n#error missing\n#endif\n' "$1" |
        g++ -std=c++20 -E -x c++ - >/dev/null 2>&1
}

has_python_module() {
    local python=/usr/bin/python3
    [ -x "$python" ] || python=python3
    "$python" -c 'import importlib.util, sys; sys.exit(importlib.util.find_spec(sys.argv[1]) is None)' \
        "$1" >/dev/null 2>&1
}

has_font() {
    [ -n "$(find /usr/share/fonts /usr/local/share/fonts -name "$1" -print -quit 2>/dev/null)" ]
}

# Tells whether what a package brings is there, whoever installed it.
package_present() {
    if command -v dpkg-query >/dev/null &&
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]; then
        return 0
    fi
    case $1 in
    ninja-build) command -v ninja >/dev/null ;;
    libgtest-dev) has_header gtest/gtest.h ;;
    libcli11-dev) has_header CLI/CLI.hpp ;;
    nlohmann-json3-dev) has_header nlohmann/json.hpp ;;
    libfmt-dev) has_header fmt/format.h ;;
    python3-ezdxf) has_python_module ezdxf ;;
    libfreetype-dev) has_header freetype2/ft2build.h ;;
    fonts-dejavu-core) has_font DejaVuSans.ttf ;;
    fonts-droid-fallback) has_font DroidSansFallbackFull.ttf ;;
    python3-fonttools) has_python_module fontTools ;;
    libbenchmark-dev) has_header benchmark/benchmark.h ;;
    libgeos++-dev) has_header geos/index/strtree/TemplateSTRtree.h ;;
    libclang-rt-14-dev) [ -e "$(clang --print-resource-dir 2>/dev/null)/lib/linux/libclang_rt.fuzzer-x86_64.a" ] ;;
    python3-clang-14) has_python_module clang ;;
    libclang-common-14-dev) [ -d /usr/lib/llvm-14/lib/clang ] ;;
    gdal-bin) command -v ogrinfo >/dev/null ;;
    chromium) command -v chromium >/dev/null || command -v chromium-browser >/dev/null ;;
    chromium-driver) command -v chromedriver >/dev/null ;;
    python3-selenium) has_python_module selenium ;;
    nodejs) command -v node >/dev/null ;;
    *) command -v "$1" >/dev/null ;;
    esac
}

# Runs a command quietly and shows what it printed when it fails.
quietly() {
    local log
    log=$(mktemp)
    if "$@" >"$log" 2>&1; then
        rm -f "$log"
        return 0
    fi
    cat "$log" >&2
    rm -f "$log"
    return 1
}

# Installs the packages given that are missing. Where that cannot be done, one line says what to install.
need_packages() {
    local package missing=() as_root=()
    for package in "$@"; do
        package_present "$package" || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    if [ "$(id -u)" -ne 0 ]; then
        as_root=(sudo)
    fi
    if ! command -v apt-get >/dev/null || { [ ${#as_root[@]} -gt 0 ] && ! command -v sudo >/dev/null; }; then
        die "please install (names of the Debian packages): ${missing[*]}"
    fi
    printf 'Installing %s\n' "${missing[*]}" >&2
    quietly "${as_root[@]}" apt-get update ||
        die "apt-get update failed; please install: ${missing[*]}"
    quietly "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y --no-install-recommends "${missing[@]}" ||
        die "apt-get install failed; please install: ${missing[*]}"
}

# configure PRESET
configure() {
    cd -- "$root"
    quietly cmake --preset "$1" || die "configuring the $1 build failed"
}

# build PRESET [TARGET...]: everything, or the targets named. What was built already is left alone.
build() {
    local preset=$1 target arguments=()
    shift
    for target in "$@"; do
        arguments+=(--target "$target")
    done
    configure "$preset"
    cmake --build --preset "$preset" "${arguments[@]}" || die "the $preset build failed"
}
