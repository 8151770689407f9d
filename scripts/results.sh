# shellcheck shell=bash
# Sourced by ./test and scripts/x86 after wine.sh: what passed and what failed, and the last line that says how many.
# Things that run beside each other write their results into one file, a line each.

results=build/logs/results
forget_results() { mkdir -p build/logs && : >"$results"; }
result() { printf '%s\n' "$1" >>"$results"; }
good() { result passed; say "  passed: $1"; }
bad() { result failed; say "  FAILED: $1"; }

# gtest NAME COMMAND ...: runs a test program and adds up its tests.
gtest() {
    local name=$1 log=build/logs/$1.log
    shift
    timeout 900 "$@" >"$log" 2>&1 </dev/null
    sed -nE 's/^\[       OK \].*/passed/p; s/^\[  FAILED  \] .*\([0-9]+ ms\)/failed/p' "$log" >>"$results"
    say "  $name: $(grep -c '^\[       OK \]' "$log") passed
$(grep -E '^\[  FAILED  \]' "$log")"
    grep -q '^\[==========\] .* ran\.' "$log" || bad "$name did not come to its end ($log)
$(tail -n 20 "$log")"
}

# driven CHECK ...: runs checks that work the programs from outside.
driven() {
    local check name log
    for check in "$@"; do
        name=$(basename "$check")
        log=build/logs/$name-$preset.log
        if timed "$name" bash "$check" >"$log" 2>&1 </dev/null; then
            good "$name"
        else
            bad "$name ($log)
$(tail -n 40 "$log")"
        fi
    done
}

# beside FOLDER COMMAND ...: runs it in the background, with a display and a Wine of its own.
beside() {
    (
        start_display
        use_wine "$1" build/wine
        use_wine_desktop
        "${@:2}"
    ) &
}

# The last line. False when anything failed, or nothing ran.
total() {
    local passed failed
    passed=$(grep -c passed "$results")
    failed=$(grep -c failed "$results")
    say "$passed passed, $failed failed"
    [ "$failed" -eq 0 ] && [ "$passed" -gt 0 ]
}
