# shellcheck shell=bash
# Sourced by the scripts at the root: what they say, and what the machine must have.

say() { printf '%s\n' "$*"; }

fail() {
    printf '%s\n' "$*" >&2
    exit 1
}

# as_root COMMAND ...: runs it as root.
as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    else
        command -v sudo >/dev/null || fail "Please run as root: $*"
        sudo "$@"
    fi
}

# need PACKAGE ...: installs the Debian packages that are missing, and says which.
need() {
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    command -v apt-get >/dev/null || fail "This machine has no apt-get. Please install by hand: ${missing[*]}"
    say "Installing what this machine lacks: ${missing[*]}"
    mkdir -p build/logs
    {
        as_root apt-get update &&
            as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "${missing[@]}"
    } >build/logs/install.log 2>&1 </dev/null ||
        fail "The packages could not be installed; build/logs/install.log says why. They are: ${missing[*]}"
}

# timed NAME COMMAND ...: runs it, and keeps how long that took for the summary.
timed() {
    local begin=$EPOCHREALTIME status=0
    "${@:2}" || status=$?
    LC_ALL=C awk -v begin="${begin/,/.}" -v end="${EPOCHREALTIME/,/.}" -v name="$1" \
        'BEGIN { printf "%7.1f  %s\n", end - begin, name }' >>"$times"
    return "$status"
}

# What took how long. Some of it ran beside other things.
times=build/logs/times
forget_times() { mkdir -p build/logs && : >"$times"; }
say_times() { say "Seconds that it took, $SECONDS in all:" && cat "$times"; }

# build PRESET LOG [CMAKE-OPTION ...] -- TARGET ...: configures and builds; false when either fails. It gives way to
# whatever runs beside it.
build() {
    local preset=$1 log=build/logs/$2 options=()
    shift 2
    while [ "$1" != -- ]; do
        options+=("$1")
        shift
    done
    shift
    mkdir -p build/logs
    { cmake --preset "$preset" "${options[@]}" && nice cmake --build --preset "$preset" --target "$@"; } >"$log" 2>&1
}
