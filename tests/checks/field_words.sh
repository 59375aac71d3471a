#!/bin/bash
# The names, words and units of the list of fields are for a workstation: the programs for a switch hold none of them.
#
#     field_words.sh FIELDS INSPECT PROGRAM…      the built textcfg-fields and textcfg-inspect; the programs
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"

fields=$1 inspect=$2
shift 2
make_scratch

"$fields" | python3 -c '
import json, sys

def texts(value):
    if isinstance(value, dict):
        for key, inner in value.items():
            if key in ("unit", "note", "otherwise") and inner:
                yield inner
            elif key == "words":
                yield from (word for _, word in inner)
            else:
                yield from texts(inner)
    elif isinstance(value, list):
        for inner in value:
            yield from texts(inner)

print("\n".join(sorted(set(texts(json.load(sys.stdin))))))' >"$scratch/words" || give_up "the list of fields cannot be read"

# Words that the program itself has, such as the rates of storms and the weekdays.
sources=("$root"/{app,app/text,format,platform/host,sections}/*.cpp)
cat "${sources[@]}" | grep -oE '"[^"]*"' | tr -d '"' | sort -u >"$scratch/own"
grep -vxFf "$scratch/own" "$scratch/words" | awk 'length > 3' >"$scratch/foreign"
count=$(wc -l <"$scratch/foreign")
((count > 30)) || give_up "only $count words to look for"

# words_in FILE: those that it holds.
words_in() { strings -a -n 4 "$1" | grep -xFf "$scratch/foreign" | sort -u; }

(($(words_in "$inspect" | wc -l) * 2 > count)) || found "textcfg-inspect does not hold the words, so this looks for the wrong ones"
for program; do
    [[ -f $program ]] || give_up "$program is not there"
    while IFS= read -r word; do found "$program holds the word \"$word\" of the list of fields"; done < <(words_in "$program")
done
conclude
