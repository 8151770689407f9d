# shellcheck shell=bash
# Sourced by the checks on the machine's registry. They run on other code pages too: "code_page" is its name then, and
# "words" the commands for sed that give the walks and the expected files names in it.
code_page=${code_page:-CP1252}
in_words() { sed "${words:-}" "$@"; }
without_time() { LC_ALL=C sed 's/"CreationDate"=".*"/"CreationDate"=""/'; }

# The store as the platform's own tool lists it: a sorted "key|" line for each key, "key|name=text" for each value.
store() {
    wine reg query 'HKLM\Software\Vrix' /s 2>/dev/null | iconv -f "$code_page" -t UTF-8 | tr -d '\r' | awk '
        /^HKEY_/ { key = substr($0, length("HKEY_LOCAL_MACHINE\\Software\\Vrix") + 1); print key "|"; next }
        match($0, /    REG_(EXPAND_)?SZ    ?/) {
            name = substr($0, 5, RSTART - 5)
            sub(/^\(.*\)$/, "(Default)", name)  # which the tool says in the language of the system
            print key "|" name "=" substr($0, RSTART + RLENGTH)
        }' | sort
}

values() { grep -v '|$'; }

empty_store() {
    wine reg delete 'HKLM\Software\Vrix' /f >/dev/null 2>&1 || true
    [ -z "$(store)" ]
}

merge() { wine regedit /S "$(windows_path "$1")"; }
