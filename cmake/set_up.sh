# shellcheck shell=bash disable=SC2034
# Sourced by the commands: puts Debian packages in place that aren't there yet.

# Stops the command with one line.
fail() {
    echo "$(basename "$0"): $1" >&2
    exit "${2:-1}"
}

# missingPackages PACKAGE...: those that aren't installed, one a line.
missingPackages() {
    local package
    for package in "$@"; do
        [[ $(dpkg-query -W -f='${db:Status-Abbrev}' "$package" 2>/dev/null) == ii* ]] || echo "$package"
    done
}

# setUpPackages PACKAGE...: at once and without the network when all are there.
setUpPackages() {
    local missing log asRoot=()
    command -v dpkg-query apt-get >/dev/null ||
        fail "this machine has no apt-get; what it needs of Debian: $*"
    mapfile -t missing < <(missingPackages "$@")
    ((${#missing[@]})) || return 0
    if ((EUID != 0)); then
        command -v sudo >/dev/null || fail "installing ${missing[*]} needs root or sudo"
        asRoot=(sudo)
    fi
    echo "Installing ${missing[*]} …" >&2
    log=$(mktemp)
    local install=("${asRoot[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -qq -y --no-install-recommends
        -o Dpkg::Options::=--force-unsafe-io
        "${missing[@]}")
    if ! "${install[@]}" >"$log" 2>&1 </dev/null; then
        # Package lists that are missing or old.
        if ! { "${asRoot[@]}" apt-get update -qq && "${install[@]}"; } >"$log" 2>&1 </dev/null; then
            cat "$log" >&2
            rm -f "$log"
            fail "could not install ${missing[*]}"
        fi
    fi
    rm -f "$log"
}

NATIVE_PACKAGES=(g++ cmake ninja-build ccache nlohmann-json3-dev libcli11-dev libgtest-dev python3)
# What plays the program itself: its cross compiler, Wine, and a display.
REAL_PACKAGES=(g++-mingw-w64-x86-64 googletest wine wine64 xvfb x11-utils xclip imagemagick)
# What the benchmarks measure with, and what they compare with.
BENCH_PACKAGES=(libbenchmark-dev libmsgpack-cxx-dev libflatbuffers-dev)
