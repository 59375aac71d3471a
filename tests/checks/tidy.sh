#!/bin/bash
# clang-tidy has nothing to say about the code of the program, of its stand-in for a firmware and of textcfg-inspect.
#
#     tidy.sh BUILD_TREE CLANG_TREE    clang-tidy understands the options of the second
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"
cd "$root" || exit 1

[[ -f $2/compile_commands.json ]] || give_up "there is no $2: run script/build sanitize"
files_like 'app/*.cpp' 'format/*.cpp' 'sections/*.cpp' 'platform/*.cpp' 'inspect/*.cpp'
parts=("$2"/inspect/CMakeFiles/*/Unity/*.cxx) # each includes several files
alone=()
for file in "${files[@]}"; do
    grep -qF "$root/$file\"" "${parts[@]}" && continue
    grep -qF "$root/$file\"" "$1/compile_commands.json" || found "$file is not built"
    alone+=("$file")
done
files=("${parts[@]}" "${alone[@]}")

# What inspect/.clang-tidy says, as the parts are elsewhere.
checks_of_parts="$(sed -n 's/^Checks: //p' inspect/.clang-tidy),-bugprone-suspicious-include"
filter_of_parts=$(sed -n "s/^HeaderFilterRegex: '\(.*\)h\\$'/\1(h|cpp)\$/p" .clang-tidy)
[[ $checks_of_parts == -* && $filter_of_parts ]] || give_up "the configuration of clang-tidy is not as expected"
# shellcheck disable=SC2317 # xargs calls it
tidy() {
    local options=()
    [[ $2 != *.cxx ]] || options=(--checks="$checks_of_parts" --header-filter="$filter_of_parts")
    clang-tidy-14 --quiet -p "$1" "${options[@]}" "$2" 2>&1
}
export -f tidy
export checks_of_parts filter_of_parts
# shellcheck disable=SC2016 # expanded by the shell that is started
printf '%s\0' "${files[@]}" | xargs -0 -n 1 -P "$(nproc)" bash -c 'tidy "$0" "$1"' "$2" |
    grep -v '^[0-9]* warnings\? generated\.$'
((PIPESTATUS[1] == 0)) || found "in ${#files[@]} files"
conclude
