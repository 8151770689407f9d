#!/usr/bin/env bash
# The sample Product, made on the Trial program by mouse and again by keyboard alone, gives the settings file to the byte
# but for the time.
set -euo pipefail
. scripts/machine.sh
. scripts/wine.sh
without_time() { sed 's/"CreationDate"=".*"/"CreationDate"=""/' "$1"; }
for hands in mouse keyboard; do
    out=build/driven/trial-$hands
    rm -rf "$out"
    forget_trial
    drive tests/walks/sample.walk "build/$preset/VrixToolkitTrial.exe" "$out" "hands=$hands"
    diff <(without_time tests/expected/sample.kls) <(without_time "$out/sample.kls")
    grep -qE '"CreationDate"="[0-9/.-]+ [0-9:]+.*"' "$out/sample.kls"
done
