#!/usr/bin/env bash
# Names that the code page lacks; then the sample and the edit walk where Windows has two bytes for a character. Their
# names and paths have characters whose second byte is a backslash, a bar, a bracket, a capital letter or the first byte
# of another, and half-width letters.
set -uo pipefail
. scripts/wine.sh
out=build/driven/names docs=$WINEPREFIX/drive_c/Docs
rm -rf "$out" "$docs"
use_locale C.UTF-8
mkdir -p "$docs" && : >"$docs/予定.doc"
drive tests/walks/names.walk build/win64/VrixToolkit.exe "$out" || failed=' CP1252'
rm -rf "$docs"
while read -r locale code_page docs rigging safety sample; do
    use_locale "$locale.UTF-8"
    export code_page words="s/Docs/$docs/g; s/Rigging/$rigging/g; s/Safety/$safety/g; s/Sample/$sample/g; s/End\.doc/$docs/g
        s/Tools/$docs/g; s/R&D/$rigging\&$docs/g; s/Server/$safety/g"
    timeout 300 wine build/win64/tests/vrix_tests.exe --gtest_filter='*OfCharactersOfAnySize' &&
        bash tests/driven/sample_on_registry.sh && bash tests/driven/edit_on_registry.sh ||
        failed="${failed:-} $code_page"
done <<END
ja_JP CP932 予定表 ポンプｶﾅ 暸アゼ 漢字
zh_CN CP936 日乗 東億 遊傾 汉字
ko_KR CP949 똀 쁀셱 좥 한글
zh_TW CP950 成功 四院 服加 圖表
END
[ -z "${failed:-}" ] || { echo "Failed on$failed."; exit 1; }
