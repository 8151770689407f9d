#!/usr/bin/env bash
# An existing Product on the machine's registry: two groups edited, exported, merged back, and deleted.
set -euo pipefail
. scripts/machine.sh
. scripts/wine.sh
. tests/driven/registry.sh
out=build/driven/edit-$code_page
rm -rf "$out"
mkdir -p "$out"
empty_store
in_words tests/expected/sample.kls | iconv -f UTF-8 -t "$code_page" >"$out/sample.kls"
merge "$out/sample.kls"
store >"$out/before"
in_words tests/walks/edit.walk >"$out/edit.walk"
drive "$out/edit.walk" "build/$preset/VrixToolkit.exe" "$out"
store >"$out/store"

# What was edited, and only that. An unnamed value stands behind the rewritten Topics' index and matrix.
diff "$out/before" "$out/store" >"$out/changes" && exit 1
in_words <<'END' | sort | diff - <(grep '^[<>]' "$out/changes" | sort)
< \Toolkit\SampleKey\Options|AllowUseAlternateCoverPage=0
< \Toolkit\SampleKey\Options|CoverPage2=
< \Toolkit\SampleKey\Options|CoverPage2Name=
< \Toolkit\SampleKey\Options|DefaultCoverPage=0
> \Toolkit\SampleKey\Dependencies\IndexTable|(Default)=
> \Toolkit\SampleKey\Dependencies\IndexTable|Tools & more=2
> \Toolkit\SampleKey\Dependencies\Matrix|(Default)=
> \Toolkit\SampleKey\Dependencies\Matrix|2=
> \Toolkit\SampleKey\Options|AllowUseAlternateCoverPage=1
> \Toolkit\SampleKey\Options|CoverPage2=\\Server\Docs\Cover2.doc
> \Toolkit\SampleKey\Options|CoverPage2Name=R&D
> \Toolkit\SampleKey\Options|DefaultCoverPage=1
> \Toolkit\SampleKey\Topics|Tools & more=C:\Docs\Tools.doc
END

# The exported file holds what the tool reads, but for the unnamed values, which shift what stands behind them.
iconv -f "$code_page" -t UTF-8 "$out/edited.kls" | tr -d '\r' | awk -F'"' '/^\[/ { key = substr($0, 34); sub(/]$/, "", key); next }
    /^"/ { text = $4; gsub(/\\\\/, "\\", text); print key "|" $2 "=" text }' | sort >"$out/exported"
grep -v Dependencies "$out/exported" | diff - <(values <"$out/store" | grep -v Dependencies)
grep -q 'IndexTable' "$out/exported"

empty_store
merge "$out/edited.kls"
store | values | grep -v Dependencies | diff - <(values <"$out/store" | grep -v Dependencies)

in_words tests/walks/delete.walk >"$out/delete.walk"
drive "$out/delete.walk" "build/$preset/VrixToolkit.exe" "$out/delete"
[ "$(store)" = '\Toolkit\Products|'$'\n''\Toolkit|' ]
