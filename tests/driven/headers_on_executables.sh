#!/usr/bin/env bash
# What the linked programs say of themselves: kind and hardening, the libraries that they ask for beyond those that
# Windows takes from its own folder only, resources, size. They are stripped, so the libraries that they are made of tell
# of the guards: one without any is named.
facts() {
    objdump -p -h "$1" | awk '/file format/ { print $NF }
        /^(M[a-z]+)?Subsystem|^DllCharacteristics|^ +[0-9]+ \.r(src|eloc) .*\*/ { print $2 }
        /DLL Name/ && tolower($3) !~ /^(advapi|comdlg|gdi|kernel|ole|shell|user)32|^msvcrt/ { print $3 }'
    for library in "${1%/*}"/libvrix_*.a; do nm "$library" | grep -q '_stack_chk_fail$' || echo "$library"; done
    x86_64-w64-mingw32-windres -J coff -O rc "$1" | grep -oE \
        'GROUP_ICON|FILEVERSION .*|MANIFEST|PerMonitorV2|level=""\w+|Controls"" version=""6' | tr -d ' "'
    find "$1" \( -path '*64/VrixToolkit.exe' -size +1499999c -o -path '*64/vrix.exe' -size +1999999c \) -printf 'too large: %s bytes\n'
}
version=$(sed -n 's/^project(.* VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)
all=".rsrc .reloc GROUP_ICON FILEVERSION${version//./,},0 MANIFEST"
controls="MANIFEST Controlsversion=6"
programs=(build/win{64,32}/{VrixToolkit,VrixToolkitTrial,vrix}.exe)
stat -c '%n: %s bytes' "${programs[@]}"
diff <(for program in "${programs[@]}"; do facts "$program" | paste -sd' '; done) - <<END
pei-x86-64 6 1 00000002 00008160 $all level=requireAdministrator PerMonitorV2 $controls
pei-x86-64 6 1 00000002 00008160 $all level=asInvoker PerMonitorV2 $controls
pei-x86-64 6 1 00000003 00008160 $all level=asInvoker PerMonitorV2 $controls
pei-i386 6 1 00000002 00008140 $all level=requireAdministrator PerMonitorV2 $controls
pei-i386 6 1 00000002 00008140 $all level=asInvoker PerMonitorV2 $controls
pei-i386 6 1 00000003 00008140 $all level=asInvoker PerMonitorV2 $controls
END
