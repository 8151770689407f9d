#!/usr/bin/env bash
# The sample Product, made on the Trial program, gives the settings file to the byte but for the time.
set -euo pipefail
. scripts/machine.sh
. scripts/wine.sh
trap - EXIT
out=build/driven/trial
rm -rf "$out"
forget_trial
drive tests/walks/sample.walk build/win64/VrixToolkitTrial.exe "$out"
same_but_time() { diff <(sed 's/"CreationDate"=".*"/"CreationDate"=""/' "$1") <(sed 's/"CreationDate"=".*"/"CreationDate"=""/' "$2"); }
same_but_time tests/expected/sample.kls "$out/sample.kls"
grep -qE '"CreationDate"="[0-9/.-]+ [0-9:]+.*"' "$out/sample.kls"
