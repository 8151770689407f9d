#!/usr/bin/env bash
# An existing Product on the machine's registry: two groups edited, exported, merged back, and deleted.
set -euo pipefail
. scripts/machine.sh
. scripts/wine.sh
. tests/driven/registry.sh
trap - EXIT
out=build/driven/edit
rm -rf "$out"
mkdir -p "$out"
empty_store
merge tests/expected/sample.kls
store >"$out/before"
drive tests/walks/edit.walk "build/$preset/VrixToolkit.exe" "$out"
store >"$out/store"

# What was edited, and only that. An unnamed value stands behind the rewritten Topics' index and matrix.
product='\Toolkit\SampleKey'
diff "$out/before" "$out/store" >"$out/changes" && exit 1
diff - <(grep '^[<>]' "$out/changes" | sort) <<END
< $product\Options|AllowUseAlternateCoverPage=0
< $product\Options|CoverPage2=
< $product\Options|CoverPage2Name=
< $product\Options|DefaultCoverPage=0
> $product\Dependencies\IndexTable|(Default)=
> $product\Dependencies\IndexTable|Tools & more=2
> $product\Dependencies\Matrix|(Default)=
> $product\Dependencies\Matrix|2=
> $product\Options|AllowUseAlternateCoverPage=1
> $product\Options|CoverPage2=\\\\Server\Docs\Cover2.doc
> $product\Options|CoverPage2Name=R&D
> $product\Options|DefaultCoverPage=1
> $product\Topics|Tools & more=C:\Docs\Tools.doc
END

# The exported file holds what the tool reads, but for the unnamed values, which shift what stands behind them.
tr -d '\r' <"$out/edited.kls" | awk -F'"' '/^\[/ { key = substr($0, 34); sub(/]$/, "", key); next }
    /^"/ { text = $4; gsub(/\\\\/, "\\", text); print key "|" $2 "=" text }' | sort >"$out/exported"
grep -v Dependencies "$out/exported" | diff - <(values <"$out/store" | grep -v Dependencies)
grep -q 'IndexTable' "$out/exported"

empty_store
merge "$out/edited.kls"
store | values | grep -v Dependencies | diff - <(values <"$out/store" | grep -v Dependencies)

drive tests/walks/delete.walk "build/$preset/VrixToolkit.exe" "$out/delete"
[ "$(store)" = '\Toolkit\Products|'$'\n''\Toolkit|' ]
