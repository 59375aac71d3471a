#!/bin/bash
# The oldest compilers that docs/porting.md names accept the code of the program.
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"
cd "$root" || exit 1

named=$(sed -n 's/.*g++ \([0-9]*\) and [0-9]* and clang \([0-9]*\) and .*/g++-\1 clang++-\2/p' docs/porting.md)
[[ $named ]] || give_up "docs/porting.md names no compilers"
files_like 'app/*.cpp' 'format/*.cpp' 'sections/*.cpp'
for compiler in $named; do
    command -v "$compiler" >/dev/null || give_up "there is no $compiler"
    printf '%s\0' "${files[@]}" | xargs -0 -n 4 -P "$(nproc)" "$compiler" -std=c++20 -fsyntax-only -Wall -Wextra -Werror \
        -fno-exceptions -fno-rtti -DTEXTCFG_VERSION='""' -I. || found "$compiler refuses the code"
done
conclude
