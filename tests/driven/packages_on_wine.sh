#!/usr/bin/env bash
# The MSI of one width through a life on a machine, by the commands that the guide tells, with the packages that
# packages_on_this_machine.sh left.
set -euo pipefail
. scripts/machine.sh
. scripts/wine.sh
out=$PWD/build/driven/packages
version=$(sed -n 's/^project(.* VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)
width=x64 name='Vrix Toolkit'
[ "$preset" = win64 ] || width=x86 name='Vrix Toolkit (32-bit)'
app='C:\Program Files\Vrix Toolkit' home="$WINEPREFIX/drive_c/Program Files/Vrix Toolkit"
files=$out/VrixToolkit-$version-$width

# All files and keys of the machine, but for the installer's own roots, and the values where a package may leave any.
state() {
    timeout 60 wineserver -k && timeout 60 wineserver -w
    find "$WINEPREFIX/drive_c" -name windows -prune -o ! -path '*/Temp*' -print | sort
    awk '/Installer.*\\(Features|Products|Components|UpgradeCodes)\]/ { next }
        /^\[/ { sub(/ [0-9]+$/, ""); all = /Uninstall|Environment|Vrix/; print } /^["@]/ && all' "$WINEPREFIX"/*.reg
}
# expect CODE TASK [FOLDER VERSION]: the guide's command for a task, where the package lies, gives that exit code, of
# which this side sees the last eight bits.
expect() {
    local code=0 command
    command=$(sed -n "s/^| $2 | \`\(.*\)\` |$/\1/p" docs/guide.md | sed "s/VERSION-x64/${4:-$version}-$width/")
    (cd "${3:-build/packages}" && timeout 120 wine ${command:?}) || code=$?
    echo "$code: $command"
    [ "$code" -eq $(($1 & 255)) ]
}
# while_running PROGRAM: nothing is installed or removed.
while_running() {
    wine "$1" &
    for ((i = 0; i < 30; ++i)); do ! grep -qsF "${1##*[/\\]}" /proc/[0-9]*/maps || break; sleep 1; done
    expect 1602 'install and write a log'
    expect 1602 remove
    tr -d '\0' <"$WINEPREFIX/drive_c/windows/temp/vrix.log" | grep -F "${1##*[/\\]} is running. Nothing was changed."
    wine taskkill /f /im "${1##*[/\\]}" && wait
}

expect 0 remove || true  # what a run that was cut off has left
forget_trial
wine reg add 'HKLM\Software\Vrix\Toolkit' /v Kept /d here /f
state >"$out/before"
expect 0 'install, upgrade' "$out/older" 1.0.0
expect 0 'install, upgrade'
expect 1603 'install, upgrade' "$out/older" 1.0.0
echo spoilt >"$home/VrixToolkit.exe" && rm "$home/Guide.html"
expect 0 repair
diff -r "$files" "$home"
wine reg query 'HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall' /s | tr -d '\r' |
    sed -nE 's/^ +(Display(Name|Version)|InstallLocation|Publisher|No\w+) +\S+ +/\1=/p' | sed 's/\\$//' | sort >"$out/entry"
diff "$out/entry" - < <(printf '%s\n' "DisplayName=Vrix Administrative Toolkit ($width)" "DisplayVersion=$version" \
    "InstallLocation=$app" NoModify=0x1 Publisher=Vrix)
find "$WINEPREFIX" -path "*/Programs/$name/*.lnk" -exec cat {} + | grep -aoE 'Toolkit.(VrixToolkit(Trial)?\.exe|Guide\.html)' |
    sort -u | wc -l | grep -x 3
while_running "$app\\VrixToolkit.exe"
while_running "$files/VrixToolkitTrial.exe"
expect 0 remove
ls "$WINEPREFIX"/drive_c/users/*/AppData/Local/*/store.journal && forget_trial
state | diff "$out/before" -
expect 0 'install into another folder' "$out/older" 1.0.0
expect 0 'install, upgrade'  # goes there
diff -r "$files" "$WINEPREFIX/drive_c/VrixToolkit"
expect 0 remove
state | diff "$out/before" -
