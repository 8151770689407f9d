#!/usr/bin/env bash
# The same walk on the machine's registry: what the platform's own tool reads there is the Product, and the settings
# file merged by the platform's own editor into an empty store gives it back.
set -euo pipefail
. scripts/machine.sh
. scripts/wine.sh
trap - EXIT
out=build/driven/registry
rm -rf "$out"
wine reg delete 'HKLM\Software\Vrix' /f >/dev/null 2>&1 || true
drive tests/walks/sample.walk build/win64/VrixToolkit.exe "$out"

# The store as the tool lists it, a sorted "key|name=text" line for each value.
store() {
    wine reg query 'HKLM\Software\Vrix' /s 2>/dev/null | tr -d '\r' | awk '
        /^HKEY_/ { key = substr($0, length("HKEY_LOCAL_MACHINE\\Software\\Vrix") + 1); print key "|"; next }
        match($0, /    REG_(EXPAND_)?SZ    ?/) {
            print key "|" substr($0, 5, RSTART - 5) "=" substr($0, RSTART + RLENGTH)
        }' | sort
}
store >"$out/store"
time=$(sed -n 's/^.*|Creation Date=//p' "$out/store")
awk '/^\[]/ { next } /^\[/ { gsub(/[][]/, ""); key = "\\" $0; print key "|"; next } { print key "|" $0 }' \
    tests/expected/sample.tree | sed "s|Creation Date=.*|Creation Date=$time|" | sort | diff - "$out/store"

wine reg delete 'HKLM\Software\Vrix' /f >/dev/null 2>&1 || true
[ -z "$(store)" ]
wine regedit /S "$(windows_path "$out/sample.kls")"
# The file has a section for SmartFields, and the merge makes its key, where the store has none.
store | grep -vxF '\Toolkit\SampleKey\SmartFields|' >"$out/merged"
sed 's/|Creation Date=/|CreationDate=/' "$out/store" | sort | diff - "$out/merged"
