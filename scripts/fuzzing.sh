# shellcheck shell=bash
# Sourced by what runs the fuzzers.

fuzz_targets() { ls fuzz/corpus; }

# crashes FOLDER TARGET: how many failing inputs are there.
crashes() { find "$1" -maxdepth 1 -type f -name "$2-*" | wc -l; }

# fuzz TARGET CRASHES FOUND OPTION ...: runs one target from the folder FOUND, which takes new inputs, and from its
# corpus. Its files go to a folder of its own. False when an input fails; it is in the folder CRASHES then.
fuzz() {
    local target=$1 crashes=$2 found=$3 own=$PWD/build/fuzz/files/$1 same=()
    shift 3
    mkdir -p "$own" build/logs
    # A seed gives the same inputs only without address randomization.
    setarch -R true 2>/dev/null && same=(setarch -R)
    TMPDIR=$own VRIX_TARGET=$target "${same[@]}" build/fuzz/fuzz/vrix_fuzz -reload=0 -rss_limit_mb=4096 \
        -print_final_stats=1 \
        -artifact_prefix="$crashes/$target-" "$@" "$found" "fuzz/corpus/$target" \
        >"build/logs/fuzz-$target.log" 2>&1 </dev/null
}
