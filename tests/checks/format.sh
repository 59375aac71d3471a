#!/bin/bash
# The code is as clang-format would write it.
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"

files_like '*.h' '*.cpp' '*.c'
cd "$root" || exit 1
clang-format-14 --dry-run -Werror --ferror-limit=1 "${files[@]}" || found "clang-format-14 -i puts these in order"
conclude
