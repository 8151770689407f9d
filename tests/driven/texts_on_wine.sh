#!/usr/bin/env bash
# Names and texts of many scripts, and unpaired surrogates, put into the registry by the platform's own tool: vrix
# lists, shows, exports, compares, applies, removes, backs up and restores them, and the tool reads back what it wrote.
# On a code page with one byte for a character, and on one with two.
set -euo pipefail
. scripts/machine.sh
. scripts/wine.sh
out=build/driven/texts
rm -rf "$out" "$WINEPREFIX"/drive_c/users/*/AppData/Local/'Vrix Toolkit'*
mkdir -p "$out"
vrix() { timeout 60 wine "build/$preset/vrix.exe" "$@" </dev/null | tr -d '\r'; }
store() { wine reg export 'HKLM\Software\Vrix' "$(windows_path "$out/$1")" /y >/dev/null 2>&1; }
wipe() { wine reg delete 'HKLM\Software\Vrix' /f >/dev/null 2>&1 || true; }

# "D83D" as an unpaired surrogate, by hand: no tool writes one.
python3 - "$out/odd.reg" <<'END'
import sys
root = r"HKEY_LOCAL_MACHINE\Software\Vrix\Toolkit"
text = f"""Windows Registry Editor Version 5.00

[{root}\\Products]
"予定表"="Ключ"
"half \ud83d"="half\ud83d"

[{root}\\Ключ]

[{root}\\Ключ\\Topics]
"Введение"="C:\\\\Документы\\\\安全.doc"
"安全"="C:\\\\\ud83d.doc"
"A\u2011B"="best fit"
"A-B"="exact"
"??"="question"

[{root}\\Ключ\\Options]
"UserDefined1"="한글 \ud83d"
"DefaultCourseName"="Ωmega 𝄞"

[{root}\\Ключ\\Ключ]
"я"=dword:00000001

[{root}\\half\ud83d]

[{root}\\half\ud83d\\Topics]
"\ude00"="x"

"""
open(sys.argv[1], "wb").write(b"\xff\xfe" + text.replace("\n", "\r\n").encode("utf-16-le", "surrogatepass"))
END

for locale in C ja_JP; do
    use_locale "$locale.UTF-8" 2>/dev/null
    rm -rf "$WINEPREFIX"/drive_c/users/*/AppData/Local/'Vrix Toolkit'*
    wipe
    wine reg import "$(windows_path "$out/odd.reg")" >/dev/null 2>&1
    store whole.reg
    vrix list | grep -E '^予定表 +Ключ +toolkit +5$' >/dev/null
    vrix show 予定表 | grep -E '^  Введение +C:\\Документы\\安全.doc$' >/dev/null
    { vrix check || true; } | grep '^[a-z]* half-character' >/dev/null
    vrix list --json >"$out/list.json"
    rm -rf "$out/all"
    vrix export --all "$out/all" --format json >/dev/null
    [ "$(find "$out/all" -name '*.json' | wc -l)" = 2 ]
    for file in "$out"/list.json "$out"/all/*.json; do python3 -m json.tool "$file" >/dev/null; done
    [ "$(vrix apply "$out/all/*.json" | grep -c ': nothing to change$')" = 2 ]

    vrix dsc test --input '{"key":"Ключ"}' | grep '"_inDesiredState":true' >/dev/null

    # Back from JSON, and from the backup that was made before the removal. Names are found in any case.
    vrix remove --yes КЛЮЧ >/dev/null
    [ "$(vrix list | grep -c Ключ)" = 0 ]
    vrix apply "$out/all/*.json" | grep 'changes made' >/dev/null
    store applied.reg
    cmp "$out/whole.reg" "$out/applied.reg"
    [ "$(vrix apply "$out/all/*.json" | grep -c ': nothing to change$')" = 2 ]
    vrix remove --yes ключ >/dev/null
    wipe
    vrix restore latest >/dev/null
    store restored.reg
    cmp "$out/whole.reg" "$out/restored.reg"

    # A settings file holds what its code page has, and is read by the one that is named.
    vrix export 予定表 "$out/utf8.kls" --code-page 65001 >/dev/null 2>&1 && exit 1  # for its half characters
    vrix show 予定表 --json | python3 -c '
import json, sys
product = json.load(sys.stdin)
product["options"]["UserDefined1"] = "한글"
product["topics"] = [topic for topic in product["topics"] if topic["name"] != "安全"]
json.dump(product, sys.stdout)' >"$out/whole.json"
    vrix apply "$out/whole.json" >/dev/null
    vrix export 予定表 "$out/utf8.kls" --code-page 65001 >/dev/null
    vrix remove --yes Ключ >/dev/null
    vrix apply "$out/utf8.kls" --code-page 65001 >/dev/null
    vrix show 予定表 | grep -E '^  Введение +C:\\Документы\\安全.doc$' >/dev/null
    [ "$(vrix apply "$out/utf8.kls" --code-page 65001 | grep -c ': nothing to change$')" = 1 ]
    code=0
    vrix export 予定表 "$out/no.kls" >"$out/said" 2>&1 || code=$?
    [ "$code" = 5 ] && grep 'U+' "$out/said" >/dev/null && [ ! -e "$out/no.kls" ]
done
