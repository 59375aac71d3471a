#!/bin/bash
# Nothing in the files that only made sense where they were written: no home folders, no blanks at the end of a line,
# no tabs in the code. No words that people do not say: "after" and "the same" are plain, and a thing "is" somewhere.
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"
cd "$root" || exit 1

# Prints the lines of `files` that match, each a finding.
no_line() {
    local what=$1 pattern=$2 line
    while IFS= read -r line; do
        found "$what: $line"
    done < <(grep -InP -H -e "$pattern" -- "${files[@]}")
}

files_like '*'
no_line "home folder" '/hom[e]/|/roo[t]/'

files_like 'README.md' 'app/*' 'bench/*' 'cmake/*' 'docs/*' 'format/*' 'inspect/*' 'packaging/*' \
    'platform/*' 'sections/*' 'script/*' 'tests/*.cpp' 'tests/*.h' 'tests/*.c' 'tests/*.sh' '*CMakeLists.txt'
no_line "word" '\b(behin[d]|alik[e])\b|\bstand[s]\b(?!-| for\b)'

files_like '*.h' '*.cpp' '*.c' '*.sh' '*.cmake' '*CMakeLists.txt' 'script/*' '.ci/*' '.clang-*'
no_line "trailing blank" '[ \t]+$'

files_like '*.h' '*.cpp' '*.c'
no_line "tab" '\t'
no_line "carriage return" '\r'

# A file that can be read at a time. The record and the order of the text are one table each.
too_long() {
    local most=$1 file lines
    for file in "${files[@]}"; do
        [[ $file != platform/image.h && $file != app/order.h ]] || continue
        lines=$(wc -l <"$file")
        ((lines <= most)) || found "$file has $lines lines, more than $most"
    done
}
files_like 'app/*' 'bench/*.c*' 'format/*' 'inspect/*' 'platform/*' 'sections/*'
too_long 600
files_like 'tests/*.cpp' 'tests/*.h'
too_long 900
conclude
