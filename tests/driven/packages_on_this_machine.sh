#!/usr/bin/env bash
# The packages as one command leaves them: the programs in them as they were built, the same bytes again, what they tell
# of others' parts, and signatures on all that Windows runs. Older ones are left for the check under Wine.
set -euo pipefail
out=$PWD/build/driven/packages
rm -rf "$out" && mkdir -p "$out"
export SOURCE_DATE_EPOCH=1700000000
./package
version=$(sed -n 's/^project(.* VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)

openssl req -x509 -newkey rsa:2048 -nodes -keyout "$out/key" -out "$out/cert" -subj /CN=Test -days 2 \
    -addext extendedKeyUsage=codeSigning
printf '#!/bin/sh\nosslsigncode sign -certs %s/cert -key %s/key -in "$1" -out "$1.signed" && mv "$1.signed" "$1" && basename "$1" >>%s/order\n' \
    "$out" "$out" "$out" >"$out/sign" && chmod +x "$out/sign"

for kind in win64,x64 win32,x86; do
    preset=${kind%,*} width=${kind#*,}
    # Made again from copies of another time, in another folder, with other rights.
    copy=$out/VrixToolkit-$version-$width
    cmake -E chdir "$out" cmake -E tar xf "$PWD/build/packages/${copy##*/}.zip" --touch && chmod 600 "$copy"/*
    cmp <(cat "build/$preset"/{VrixToolkit,VrixToolkitTrial,vrix}.exe) <(cat "$copy"/{VrixToolkit,VrixToolkitTrial,vrix}.exe)
    again=("$width" "$out/again" "build/$preset/libvrix_guard.dll" "$copy"/{*.exe,*.json,Notices.txt})
    TZ=Asia/Tokyo packaging/pack "$version" "${again[@]}"
    packaging/pack 1.0.0 "$width" "$out/older" "${again[@]:2}"
    SIGN=$out/sign packaging/pack "$version" "$width" "$out/signed" "${again[@]:2}"
    cmake -E chdir "$out/signed" cmake -E tar xf "${copy##*/}.zip"
    for file in "$out/signed/${copy##*/}"{.msi,/*.exe}; do osslsigncode verify -CAfile "$out/cert" -in "$file"; done
    [ "$(LC_ALL=C ls "$copy" | paste -sd' ')" = \
        'Guide.html Notices.txt README.txt VrixToolkit.exe VrixToolkitTrial.exe vrix.dsc.resource.json vrix.exe' ]
    python3 -c 'import json, sys; assert json.load(sys.stdin)["version"] == sys.argv[1]' "$version" <"$copy/vrix.dsc.resource.json"
    python3 -c 'import json, sys; print(*[part["name"] for part in json.load(sys.stdin)["packages"]])' \
        <"build/packages/${copy##*/}.spdx.json" | grep -x 'VrixToolkit cli11 gcc-mingw-w64 mingw-w64 nlohmann-json3'
    # The folder's rights, which Wine does not set, and where the links start.
    table() { msiinfo export "build/packages/${copy##*/}.msi" "$1" | tr -d '\r' | tail -n +4; }
    table MsiLockPermissionsEx | diff - <(printf 'folder\tINSTALLDIR\tCreateFolder\t%s\t\n' \
        'O:BAD:P(A;OICI;FA;;;SY)(A;OICI;FA;;;BA)(A;OICI;FRFX;;;BU)')
    table CreateFolder | grep -P '^INSTALLDIR\tfolder$'
    table Shortcut | cut -f 12 | sort | diff - <(printf '%s\n' '' INSTALLDIR INSTALLDIR)
done
diff -r -x '*.json' build/packages "$out/again"
head -n 5 "$out/order" | diff - <(printf '%s\n' VrixToolkit.exe VrixToolkitTrial.exe vrix.exe guard.dll \
    "VrixToolkit-$version-x64.msi")
