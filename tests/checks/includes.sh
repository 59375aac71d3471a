#!/bin/bash
# Each folder includes what it may and nothing else.
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"
cd "$root" || exit 1

# may FOLDER HEADER…: the files of the folder include only headers like these.
may() {
    local folder=$1 file header allowed pattern
    shift
    files_like "$folder*.h" "$folder*.cpp" "$folder*.c"
    for file in "${files[@]}"; do
        # A pattern's star stands for folders too.
        [[ ${file%/*}/ == "$folder" ]] || continue
        while IFS= read -r header; do
            allowed=
            for pattern; do
                # shellcheck disable=SC2053 # a pattern is meant
                if [[ $header == $pattern ]]; then allowed=yes; fi
            done
            [[ $allowed ]] || found "$file may not include $header"
        done < <(sed -n 's/^ *# *include "\(.*\)".*/\1/p' "$file")
    done
}

# The platform's own headers, but not the stand-in's.
platform=(platform/{board,image,mapi,record,util}.h)
may platform/ "${platform[@]}"
may platform/host/ "${platform[@]}" 'platform/host/*'
may app/text/ "${platform[@]}" 'app/text/*'
may format/ "${platform[@]}" 'format/*' 'app/text/*'
may sections/ "${platform[@]}" 'sections/*' 'format/*' 'app/text/*'
may inspect/ "${platform[@]}" 'platform/host/*' 'app/*' 'sections/*' 'format/*' 'inspect/*'
may app/ "${platform[@]}" 'sections/*' 'format/*' 'app/*'

# Only the workstation stand-in knows of stores.
files_like 'app/*' 'format/*' 'sections/*' 'platform/*.h' 'platform/*.cpp'
for file in "${files[@]}"; do
    [[ $file == platform/host/* ]] || ! grep -qF TEXTCFG_STORE "$file" || found "$file knows of stores"
done
conclude
