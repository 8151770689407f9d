# shellcheck shell=bash
# Sourced by ./test and scripts/x86 after wine.sh: what passed and what failed, and the last line that says how many.

passed=0
failed=0
good() { passed=$((passed + 1)); say "  passed: $1"; }
bad() { failed=$((failed + 1)); say "  FAILED: $1"; }

# gtest NAME COMMAND ...: runs a test program and adds up its tests.
gtest() {
    local name=$1 log=build/logs/$1.log ok lost
    shift
    say "Running $name"
    timeout 900 "$@" >"$log" 2>&1 </dev/null
    ok=$(grep -c '^\[       OK \]' "$log")
    lost=$(grep -cE '^\[  FAILED  \] .*\([0-9]+ ms\)' "$log")
    passed=$((passed + ok))
    failed=$((failed + lost))
    say "  $ok passed, $lost failed"
    grep -E '^\[  FAILED  \]' "$log"
    grep -q '^\[==========\] .* ran\.' "$log" || { tail -n 20 "$log"; bad "$name did not come to its end (build/logs/$name.log)"; }
}

# driven CHECK ...: runs checks that work the programs from outside.
driven() {
    local check log
    for check in "$@"; do
        log=build/logs/$(basename "$check")-$preset.log
        if bash "$check" >"$log" 2>&1 </dev/null; then
            good "$(basename "$check")"
        else
            tail -n 40 "$log"
            bad "$(basename "$check") ($log)"
        fi
    done
}

# The last line. False when anything failed, or nothing ran.
total() {
    say "$passed passed, $failed failed"
    [ "$failed" -eq 0 ] && [ "$passed" -gt 0 ]
}
