# shellcheck shell=bash
# What ./run, ./test and the tools share; sourced, never started. The caller has set -euo pipefail.

kestrel=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$kestrel" || exit 1
export LC_ALL=C.UTF-8 # file names and sources are Japanese
umask 022             # an ordinary user must be able to read what root built
jobs=$(nproc)

say() { printf '%s\n' "$*"; }
fail() {
    say "$*" >&2
    exit 1
}

can_be_root() { [ "$(id -u)" = 0 ] || command -v sudo >/dev/null; }

# Runs a command as root: directly, or through sudo, which may ask for a password only where a person can answer.
as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    elif [ -t 0 ]; then
        sudo "$@"
    else
        sudo -n "$@"
    fi
}

# title command...: a line while the command works; what it wrote only when it fails.
quietly() {
    local title=$1 began=$SECONDS log
    shift
    mkdir -p build
    log=$(mktemp build/step.XXXXXX)
    printf '%s... ' "$title"
    if ! "$@" >"$log" 2>&1; then
        say failed
        cat "$log" >&2
        rm -f "$log"
        fail "$title: failed"
    fi
    rm -f "$log"
    say "$((SECONDS - began)) s"
}

configure() { cmake --preset "$1"; }

build() { # preset target...
    local preset=$1
    shift
    cmake --build --preset "$preset" -j "$jobs" --target "$@"
}
