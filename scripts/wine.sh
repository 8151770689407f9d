# shellcheck shell=bash
# Sourced by the scripts that run Windows programs: a Wine of this folder's own, and a virtual display.

# The build whose programs are run, win64 or win32.
export preset=${preset:-win64}

# Neither a debugger that waits for someone, nor entries in the user's own menus.
export WINEDEBUG=-all WINEARCH=$preset WINEDLLOVERRIDES='winedbg.exe=d;winemenubuilder.exe=d;mscoree=d;mshtml=d'

# The path as a Windows program sees it.
windows_path() {
    local path
    path=$(realpath -m "$1")
    printf 'Z:%s' "${path//\//\\}"
}

# use_locale NAME: Wine takes the code page from the locale's name. The locale itself need not be on the machine.
use_locale() {
    mkdir -p build/locale
    ln -sfn /usr/lib/locale/C.utf8 "build/locale/$1"
    export LOCPATH=$PWD/build/locale
    export LC_ALL=$1
}

# use_wine FOLDER [LIKE]: makes Wine's settings in the folder, anew if they are broken, as a copy if there are some.
use_wine() {
    WINEPREFIX=$(realpath -m "$1")
    export WINEPREFIX
    local try
    [ ! -f "${2:-}/ready" ] || [ -f "$WINEPREFIX/ready" ] || cp -a "$2" "$WINEPREFIX"
    for try in 1 2 3; do
        if [ -f "$WINEPREFIX/ready" ] && timeout 60 wine cmd /c exit >/dev/null 2>&1; then return 0; fi
        timeout 10 wineserver -k >/dev/null 2>&1 || true
        rm -rf "$WINEPREFIX"
        mkdir -p "$WINEPREFIX"
        timeout 180 wineboot -i >"$WINEPREFIX/log" 2>&1 </dev/null && timeout 60 wineserver -w || continue
        cp /usr/share/wine/fonts/*.ttf "$WINEPREFIX/drive_c/windows/Fonts/"  # Wine does not find them where they lie
        : >"$WINEPREFIX/ready"
    done
    fail "Wine could not be set up in $1 (try $try): $(tail -n 3 "$WINEPREFIX/log")"
}

# Windows of all programs lie on one desktop of Wine's own, which gives them frames and keeps track of the focus.
use_wine_desktop() {
    wine reg add 'HKCU\Software\Wine\Explorer' /v Desktop /d Default /f >/dev/null 2>&1
    wine reg add 'HKCU\Software\Wine\Explorer\Desktops' /v Default /d 2560x1700 /f >/dev/null 2>&1
    # Access keys are underlined only while Alt is held, as Windows has it.
    wine reg add 'HKCU\Control Panel\Desktop' /v UserPreferencesMask /t REG_BINARY /d 1000028012000000 /f >/dev/null 2>&1
    wineserver -w
}

# Starts a virtual display, and ends it and Wine with the shell.
start_display() {
    local pipe
    trap end_wine EXIT
    pipe=$(mktemp -u)
    mkfifo "$pipe"
    Xvfb -displayfd 3 -screen 0 2560x1700x24 -nolisten tcp 3>"$pipe" >/dev/null 2>&1 </dev/null &
    display_process=$!
    local number
    read -r -t 30 number <"$pipe" || number=
    rm -f "$pipe"
    [ -n "$number" ] || fail "The virtual display did not start."
    export DISPLAY=:$number
}

end_wine() {
    [ -z "${WINEPREFIX:-}" ] || timeout 20 wineserver -k >/dev/null 2>&1 || true
    [ -z "${display_process:-}" ] || kill "$display_process" 2>/dev/null || true
}

# forget_trial: removes the Trial program's store.
forget_trial() { rm -rf "$WINEPREFIX"/drive_c/users/*/AppData/Local/'Vrix Toolkit Trial'; }

# drive WALK PROGRAM FOLDER [NAME=VALUE ...]: works the program's windows as the walk says; pictures and files go into
# the folder.
drive() {
    local folder
    folder=$(windows_path "$3")
    mkdir -p "$3"
    timeout 300 wine "build/$preset/tools/driver/vrix_driver.exe" "$1" "program=$(windows_path "$2")" \
        "pictures=$folder\\" "folder=$folder\\" "${@:4}" </dev/null
}
