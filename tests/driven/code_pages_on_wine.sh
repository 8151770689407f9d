#!/usr/bin/env bash
# Names that the code page lacks; then the sample and the edit walk where Windows has two bytes for a character. Their
# names and paths have characters whose trail byte is a backslash, a bar, a bracket, a capital letter or the first byte
# of another, and half-width letters. On 932 and 65001 the pages' face over the store of UTF-8 is held against the
# narrow calls, as on 1252 by the tests themselves.
set -uo pipefail
. scripts/wine.sh
out=build/driven/names docs=$WINEPREFIX/drive_c/Docs
rm -rf "$out" "$docs"
use_locale C.UTF-8
mkdir -p "$docs" && : >"$docs/予定.doc"
drive tests/walks/names.walk build/win64/VrixToolkit.exe "$out" || failed=' CP1252'
rm -rf "$docs"
tests=build/win64/tests/vrix_tests
cp $tests.exe $tests-utf8.exe
cat >$tests-utf8.exe.manifest <<'END'
<assembly xmlns="urn:schemas-microsoft-com:asm.v1" manifestVersion="1.0">
  <assemblyIdentity type="win32" name="Vrix.Tests" version="1.0.0.0"/>
  <application xmlns="urn:schemas-microsoft-com:asm.v3"><windowsSettings>
    <activeCodePage xmlns="http://schemas.microsoft.com/SMI/2019/WindowsSettings">UTF-8</activeCodePage>
  </windowsSettings></application>
</assembly>
END
# face PROGRAM CODE-PAGE
face() {
    timeout 300 wine "$1" --gtest_filter='MachineRegistry.*' | tee "$out/said"
    grep -q "code page $2" "$out/said" && grep -q 'PASSED' "$out/said" && ! grep -q 'FAILED' "$out/said"
}
face $tests-utf8.exe 65001 || failed="${failed:-} 65001"
while read -r locale code_page docs rigging safety sample; do
    use_locale "$locale.UTF-8"
    export code_page words="s/Docs/$docs/g; s/Rigging/$rigging/g; s/Safety/$safety/g; s/Sample/$sample/g; s/End\.doc/$docs/g
        s/Tools/$docs/g; s/R&D/$rigging\&$docs/g; s/Server/$safety/g"
    [ "$code_page" != CP932 ] || face $tests.exe 932 || failed="${failed:-} face"
    timeout 300 wine $tests.exe --gtest_filter='*OfCharactersOfAnySize' &&
        bash tests/driven/sample_on_registry.sh && bash tests/driven/edit_on_registry.sh ||
        failed="${failed:-} $code_page"
done <<END
ja_JP CP932 予定表 ポンプｶﾅ 暸アゼ 漢字
zh_CN CP936 日乗 東億 遊傾 汉字
ko_KR CP949 똀 쁀셱 좥 한글
zh_TW CP950 成功 四院 服加 圖表
END
[ -z "${failed:-}" ] || { echo "Failed on$failed."; exit 1; }
