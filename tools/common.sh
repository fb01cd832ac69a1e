# shellcheck shell=bash
# What ./run, ./test and the tools share; sourced, never started. The caller has set -euo pipefail.

kestrel=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$kestrel" || exit 1
export LC_ALL=C.UTF-8 # file names and sources are Japanese
umask 022             # an ordinary user must be able to read what root built
jobs=$(nproc)

say() { printf '%s\n' "$*"; }
fail() {
    printf '%s\n' "$*" >&2
    exit 1
}

# Runs a command as root: directly, or through sudo, which may ask for a password only where a person can answer.
as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    elif ! command -v sudo >/dev/null; then
        fail "Needs root, and there is no sudo: $*"
    elif [ -t 0 ]; then
        sudo "$@"
    else
        sudo -n "$@"
    fi
}

# preset [cmake variables]: writes the build files; quick when they are there already.
configure() {
    cmake --preset "$@" >"build/configure-$1.log" 2>&1 || { cat "build/configure-$1.log" >&2; return 1; }
}

# preset target...: builds, saying nothing but what went wrong.
build() {
    local preset=$1
    shift
    cmake --build --preset "$preset" -j "$jobs" --target "$@"
}
