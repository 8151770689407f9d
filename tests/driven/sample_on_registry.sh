#!/usr/bin/env bash
# The sample walk on the machine's registry: what the platform's own tool reads there is the Product, and the settings
# file merged by the platform's own editor into an empty store gives it back. Libraries that somebody laid beside the
# 64-bit program are not loaded: with these the walk would end at its first dialog.
set -euo pipefail
. scripts/machine.sh
. scripts/wine.sh
. tests/driven/registry.sh
trap - EXIT
out=build/driven/registry
rm -rf "$out"
mkdir -p "$out/program"
cp "build/$preset/VrixToolkit.exe" "$out/program"
for library in comdlg32 comctl32; do
    [ "$preset" = win64 ] || break
    echo 'int planted;' | x86_64-w64-mingw32-gcc-posix -shared -x c - -o "$out/program/$library.dll"
done
empty_store
WINEDLLOVERRIDES="$WINEDLLOVERRIDES;comdlg32,comctl32=n,b" \
    drive tests/walks/sample.walk "$out/program/VrixToolkit.exe" "$out"

store >"$out/store"
time=$(sed -n 's/^.*|Creation Date=//p' "$out/store")
awk '/^\[]/ { next } /^\[/ { gsub(/[][]/, ""); key = "\\" $0; print key "|"; next } { print key "|" $0 }' \
    tests/expected/sample.tree | sed "s|Creation Date=.*|Creation Date=$time|" | sort | diff - "$out/store"

empty_store
merge "$out/sample.kls"
# The file has a section for SmartFields, and the merge makes its key, where the store has none.
store | grep -vxF '\Toolkit\SampleKey\SmartFields|' >"$out/merged"
sed 's/|Creation Date=/|CreationDate=/' "$out/store" | sort | diff - "$out/merged"
