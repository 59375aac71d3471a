#!/bin/bash
# clang-tidy has nothing to say about the code of the program, of its stand-in for a firmware and of textcfg-inspect.
#
#     tidy.sh BUILD_TREE CLANG_TREE    clang-tidy understands the options of the second
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"
cd "$root" || exit 1

[[ -f $2/compile_commands.json ]] || give_up "there is no $2: run script/build sanitize"
files_like 'app/*.cpp' 'format/*.cpp' 'sections/*.cpp' 'platform/*.cpp' 'inspect/*.cpp'
for file in "${files[@]}"; do
    grep -qF "$root/$file\"" "$1/compile_commands.json" || found "$file is not built"
done
printf '%s\0' "${files[@]}" | xargs -0 -n 1 -P "$(nproc)" clang-tidy-14 --quiet -p "$2" 2>&1 |
    grep -v '^[0-9]* warnings\? generated\.$'
((PIPESTATUS[1] == 0)) || found "in ${#files[@]} files"
conclude
