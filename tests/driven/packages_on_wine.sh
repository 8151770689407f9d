#!/usr/bin/env bash
# The packages as one command leaves them: the programs in them as they were built, the same bytes again, and the
# 64-bit setup through a life on a machine. The 32-bit one cannot run here, where Wine has 64 bits only.
set -euo pipefail
. scripts/wine.sh
trap - EXIT
out=build/driven/packages
rm -rf "$out" && mkdir -p "$out"
./package
version=$(sed -n 's/^project(.* VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)

# Made again from copies of another time, in another folder, with other rights.
for kind in win64,x64 win32,x86; do
    copy=$out/VrixToolkit-$version-${kind#*,}
    cmake -E chdir "$out" cmake -E tar xf "$PWD/build/packages/${copy##*/}.zip" --touch && chmod 600 "$copy"/*
    cmp <(cat build/"${kind%,*}"/VrixToolkit{,Trial}.exe) <(cat "$copy"/VrixToolkit{,Trial}.exe)
    TZ=Asia/Tokyo packaging/pack "$version" "${kind#*,}" "$copy" "$out/again"
done
diff -r build/packages "$out/again"
[ "$(objdump -f build/packages/*.exe | awk '/format/ { print $NF }' | paste -sd' ')" = 'pei-x86-64 pei-i386' ]

# All files and keys of the machine, and the values where a setup may leave any.
state() {
    timeout 60 wineserver -w
    find "$WINEPREFIX"/drive_c/{Program*,users} ! -path '*/Temp*' | sort
    awk '/^\[/ { sub(/ [0-9]+$/, ""); all = /Uninstall|Environment|Vrix/; print } /^["@]/ && all' "$WINEPREFIX"/*.reg
}
setup() { timeout 120 wine "build/packages/VrixToolkit-$version-x64-setup.exe" /S; }
app='C:\Program Files\Vrix Toolkit' home="$WINEPREFIX/drive_c/Program Files/Vrix Toolkit"
menu="$WINEPREFIX/drive_c/ProgramData/Microsoft/Windows/Start Menu/Programs/Vrix Toolkit"
entry='HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\Vrix Toolkit'
# What a run that failed may have left.
rm -rf "$home" "$menu" && { wine reg delete "$entry" /f || true; }

wine reg add 'HKLM\Software\Vrix\Toolkit' /v Kept /d here /f
state >"$out/before"
setup
echo older >"$home/VrixToolkit.exe"
setup
diff -r -x uninstall.exe "$out/VrixToolkit-$version-x64" "$home"
wine reg query "$entry" | sed -nE 's/\r//; s/0x...$/n/; s/^ +(\S+) +\S+ +/\1=/p' | sort | paste -sd'|||\n' >"$out/entry"
diff "$out/entry" - <<END
DisplayIcon=$app\VrixToolkit.exe|DisplayName=Vrix Administrative Toolkit (x64)|DisplayVersion=$version|EstimatedSize=n
InstallLocation=$app|NoModify=0x1|NoRepair=0x1|Publisher=Vrix
QuietUninstallString="$app\uninstall.exe" /S|UninstallString="$app\uninstall.exe"
END
[ "$(cat "$menu"/*.lnk | grep -aoE 'Toolkit.VrixToolkit(Trial)?\.exe' | sort -u | wc -l)" = 2 ]
printf '%s\n' 'start {program}' 'page main "Please Select A Task:"' 'press "Exit"' end >"$out/start.walk"
drive "$out/start.walk" "$home/VrixToolkit.exe" "$out"
wine "$app\\uninstall.exe" /S
state | diff "$out/before" -
