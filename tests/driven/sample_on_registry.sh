#!/usr/bin/env bash
# The sample walk on the machine's registry: what the platform's own tool reads there is the Product, and the settings
# file merged by the platform's own editor into an empty store gives it back. Libraries that somebody laid beside the
# 64-bit program are not loaded: with these the walk would end at its first dialog.
set -euo pipefail
. scripts/machine.sh
. scripts/wine.sh
. tests/driven/registry.sh
out=build/driven/registry-$code_page
rm -rf "$out"
mkdir -p "$out/program"
cp "build/$preset/VrixToolkit.exe" "$out/program"
for library in comdlg32 comctl32; do
    [ "$preset" = win64 ] || break
    echo 'int planted;' | x86_64-w64-mingw32-gcc-posix -shared -x c - -o "$out/program/$library.dll"
done
empty_store
in_words tests/walks/sample.walk >"$out/sample.walk"
WINEDLLOVERRIDES="$WINEDLLOVERRIDES;comdlg32,comctl32=n,b" \
    drive "$out/sample.walk" "$out/program/VrixToolkit.exe" "$out/$(in_words <<<Docs)"

store >"$out/store"
time=$(sed -n 's/^.*|Creation Date=//p' "$out/store")
awk '/^\[]/ { next } /^\[/ { gsub(/[][]/, ""); key = "\\" $0; print key "|"; next } { print key "|" $0 }' \
    <(in_words tests/expected/sample.tree) | sed "s|Creation Date=.*|Creation Date=$time|" | sort | diff - "$out/store"

sample=$out/$(in_words <<<Docs)/sample.kls
diff <(in_words tests/expected/sample.kls | iconv -f UTF-8 -t "$code_page" | without_time) <(without_time <"$sample")
empty_store
merge "$sample"
# The file has a section for SmartFields, and the merge makes its key, where the store has none.
store | grep -vxF "$(in_words <<<'\Toolkit\SampleKey\SmartFields|')" >"$out/merged"
sed 's/|Creation Date=/|CreationDate=/' "$out/store" | sort | diff - "$out/merged"
