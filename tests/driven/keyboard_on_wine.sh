#!/usr/bin/env bash
# Everything that the keys do, with 41 Topics on the Trial program, the mouse left alone.
set -euo pipefail
. scripts/machine.sh
. scripts/wine.sh
out=build/driven/keyboard
rm -rf "$out"
mkdir -p "$out"
forget_trial
topics=41
for ((n = 2; n <= topics; n++)); do
    printf '%s\n' 'focus "Topic Name:"' "write \"Topic $n\"" 'key Tab' "write \"C:\\Topics\\$n.doc\"" 'key Enter' \
        "expect \"Topic:\" \"Topic $n\""
done >"$out/topics"
for button in 'P Product Settings' 'C Cover Pages' 'S Content Summary' 'T Table of Contents' 'L Conclusion' 'O Topics' \
    'R Topic Order' 'D Dependencies' 'U User Defined Fields' 'F SmartFields' 'M Document Control' 'E Export Settings'; do
    printf '%s\n' "key Alt+${button%% *}" 'key Alt+X' "focus \"${button#* }\""
done >"$out/buttons"
rows="\"Topic $topics\"$(printf ' "Topic %s"' $(seq 2 $((topics - 1)))) \"Topic 1\""
sed -e "/^@topics@$/{r $out/topics
d}" -e "/^@buttons@$/{r $out/buttons
d}" -e "s/@rows@/$rows/" tests/walks/keyboard.walk >"$out/keyboard.walk"
version=$(sed -n 's/^project(.* VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)
drive "$out/keyboard.walk" "build/$preset/VrixToolkitTrial.exe" "$out" hands=keyboard "version=$version" \
    "product=Forty Topics, under a name so long that the confirmation of its deletion cannot do without another line for it" \
    "store=C:\\users\\$(id -un)\\AppData\\Local\\Vrix Toolkit Trial\\store.journal"

# What there is to read, with texts that are too long for their place.
forget_trial
name=$(printf 'A name that nobody would type twice %.0s' 1 2 3 4 5)
drive tests/walks/reading.walk "build/$preset/VrixToolkitTrial.exe" "$out/reading" "name=${name% }"
