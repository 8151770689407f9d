#!/usr/bin/env bash
# The command line beside the real windows: what the Toolkit makes, vrix sees, exports to the same bytes, removes and
# brings back, on the registry, in its 32-bit view, on the Trial's store and on a backup. What the Toolkit edits, vrix
# undoes.
set -euo pipefail
. scripts/machine.sh
. scripts/wine.sh
. tests/driven/registry.sh
out=build/driven/vrix
rm -rf "$out" "$WINEPREFIX"/drive_c/users/*/AppData/Local/'Vrix Toolkit'*
mkdir -p "$out"
vrix() { timeout 60 wine "build/$preset/vrix.exe" "$@" </dev/null | tr -d '\r'; }
# is CODE ARGUMENT ...: vrix answers by that code.
is() {
    local code=0
    vrix "${@:2}" >"$out/said" 2>&1 || code=$?
    [ "$code" = "$1" ] || { echo "$code, not $1: vrix ${*:2}"; cat "$out/said"; return 1; }
}
narrow() { wine reg query 'HKLM\Software\WOW6432Node\Vrix\Toolkit' /s 2>/dev/null | grep -c REG_SZ || true; }

empty_store
wine reg delete 'HKLM\Software\WOW6432Node\Vrix' /f >/dev/null 2>&1 || true
drive tests/walks/sample.walk "build/$preset/VrixToolkit.exe" "$out"
store >"$out/before"
vrix list | tee "$out/list" | grep -E '^Sample Manual  SampleKey  toolkit  2 ' >/dev/null
[ "$(wc -l <"$out/list")" = 2 ]
vrix show 'Sample Manual' | grep -E '^  Rigging +\\\\Server\\Docs\\Rigging.doc +needs Safety$' >/dev/null
[ "$(vrix check)" = 'Nothing was found.' ]
# Wine lists values by their names, so the order of Topics is another than in the file.
is 1 compare SampleKey "$out/sample.kls"
[ -z "$(vrix compare SampleKey "$out/sample.kls" | grep -vE '^(topics|dependencies)$|^  . order')" ]

# The hub's export of such a Product leaves the date of creation empty, so JSON gives that back.
vrix export SampleKey "$out/kept.json"
vrix export SampleKey "$out/kept.kls"
for form in json kls; do
    is 2 remove SampleKey
    vrix remove --yes toolkit:SampleKey >/dev/null
    [ "$(store)" = '\Toolkit\Products|'$'\n''\Toolkit|' ]
    vrix apply "$out/kept.$form" >/dev/null
    [ "$form" = kls ] || store | diff "$out/before" -
done
store | diff <(grep -v 'Creation Date' "$out/before") -
vrix apply "$out/kept*.json" >/dev/null
store | diff "$out/before" -
vrix apply "$out/kept*.json" | grep ': nothing to change$' >/dev/null

# The hub's export, and a backup of the Toolkit's own.
drive tests/walks/edit.walk "build/$preset/VrixToolkit.exe" "$out"
vrix export SampleKey "$out/seen.kls"
cmp "$out/seen.kls" "$out/edited.kls"
is 1 compare SampleKey "$out/kept.json"
is 0 --store latest compare SampleKey "$out/kept.json"
backup=$(vrix backups --json | sed -n 's/^    "file": "\(.*\)",$/\1/p' | head -n 1 | sed 's/\\\\/\\/g')
vrix --store "$backup" export SampleKey "$out/backup.json"
cmp "$out/kept.json" "$out/backup.json"
vrix restore latest >/dev/null
store | diff "$out/before" -

# What the code page lacks is shown and kept, and no settings file is made of it.
LC_ALL=C.UTF-8 wine reg add 'HKLM\Software\Vrix\Toolkit\SampleKey\Options' /v UserDefined1 /d 'Ω' /f >/dev/null
vrix show SampleKey --json | grep '"UserDefined1": "Ω"' >/dev/null
is 5 export SampleKey "$out/odd.kls"
grep 'UserDefined1.*U+03A9' "$out/said" >/dev/null
[ ! -e "$out/odd.kls" ]
vrix apply "$out/kept.json" >/dev/null
store | diff "$out/before" -

# Other stores.
[ "$(narrow)" = 0 ]
vrix --view 32 apply "$out/kept.kls" >/dev/null
[ "$(narrow)" = 95 ]
is 1 check
grep '^note other-view: ' "$out/said" >/dev/null
vrix --view 32 export SampleKey "$out/narrow.kls"
cmp "$out/kept.kls" "$out/narrow.kls"
vrix --view 32 remove --yes SampleKey >/dev/null
[ "$(narrow)" = 0 ]
vrix --trial apply "$out/kept.json" >/dev/null
vrix --trial export SampleKey "$out/trial.json"
cmp "$out/kept.json" "$out/trial.json"
[ "$(vrix backups --trial | grep -c '0 Products')" = 1 ]
vrix --trial remove --yes SampleKey >/dev/null
[ "$(vrix --trial list)" = 'The store has no Products.' ]
