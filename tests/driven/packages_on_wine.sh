#!/usr/bin/env bash
# Setup and MSI of one width through a life on a machine, with the packages that packages_on_this_machine.sh left.
set -euo pipefail
. scripts/machine.sh
. scripts/wine.sh
out=build/driven/packages
version=$(sed -n 's/^project(.* VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)
width=x64 name='Vrix Toolkit'
[ "$preset" = win64 ] || width=x86 name='Vrix Toolkit (32-bit)'
app='C:\Program Files\Vrix Toolkit' home="$WINEPREFIX/drive_c/Program Files/Vrix Toolkit"
now=build/packages/VrixToolkit-$version-$width older=$out/older/VrixToolkit-1.0.0-$width
printf 'start /wait "" "%s\\uninstall.exe" /S _?=%s\r\nexit %%errorlevel%%\r\n' "$app" "$app" >"$out/remove.bat"

# All files and keys of the machine, but for the installer's own roots, and the values where a package may leave any.
state() {
    timeout 60 wineserver -k && timeout 60 wineserver -w
    find "$WINEPREFIX"/drive_c/{Program*,users} ! -path '*/Temp*' | sort
    awk '/Installer.*\\(Features|Products|Components|UpgradeCodes)\]/ { next }
        /^\[/ { sub(/ [0-9]+$/, ""); all = /Uninstall|Environment|Vrix/; print } /^["@]/ && all' "$WINEPREFIX"/*.reg
}
setup() { timeout 120 wine "$1-setup.exe" /S "/LOG=$(windows_path "$out/log")"; }
msi() { timeout 120 wine msiexec /i "$(windows_path "$1.msi")" /qn "${@:2}"; }
remove_setup() { timeout 120 wine cmd /c "$(windows_path "$out/remove.bat")" && rm "$home/uninstall.exe" && rmdir "$home"; }
remove_msi() { timeout 120 wine msiexec /x "$(windows_path "$now.msi")" /qn; }
# expect CODE COMMAND ...: of an exit code, this side sees the last eight bits.
expect() {
    local code=0
    "${@:2}" || code=$?
    echo "$code: ${*:2}"
    [ "$code" -eq $(($1 & 255)) ]
}
runs() { grep -qsF "$home/VrixToolkit.exe" /proc/[0-9]*/maps; }

# life KIND NEWER BUSY OTHER CODE: with the codes of a refusal because of a newer one and of a running program, and the
# code of the other kind, which refuses too.
life() {
    state >"$out/before"
    expect 0 "$1" "$older"
    expect 0 "$1" "$now"
    expect "$2" "$1" "$older"
    expect "$5" "$4" "$now"
    echo spoilt >"$home/VrixToolkit.exe" && rm "$home/Guide.html"
    expect 0 "$1" "$now" REINSTALL=ALL REINSTALLMODE=amus
    diff -r -x uninstall.exe "$out/VrixToolkit-$version-$width" "$home"
    wine reg query 'HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall' /s | tr -d '\r' |
        sed -nE 's/^ +(Display(Name|Version)|InstallLocation|Publisher|No\w+) +\S+ +/\1=/p' | sed 's/\\$//' | sort >"$out/entry"
    diff "$out/entry" - < <(printf '%s\n' "DisplayName=Vrix Administrative Toolkit ($width)" "DisplayVersion=$version" \
        "InstallLocation=$app" NoModify=0x1 $([ "$1" = msi ] || echo NoRepair=0x1) Publisher=Vrix)
    find "$WINEPREFIX" -path "*/Programs/$name/*.lnk" -exec cat {} + | grep -aoE 'Toolkit.(VrixToolkit(Trial)?\.exe|Guide\.html)' |
        sort -u | wc -l | grep -x 3
    wine "$app\\VrixToolkit.exe" &
    for ((i = 0; i < 30; ++i)); do ! runs || break; sleep 1; done
    expect "$3" "$1" "$now"
    expect "$3" "remove_$1"
    wine taskkill /f /im VrixToolkit.exe && wait
    expect 0 "remove_$1"
    state | diff "$out/before" -
}
wine reg add 'HKLM\Software\Vrix\Toolkit' /v Kept /d here /f
life setup 1638 1618 msi 1603
life msi 1603 1602 setup 1638
