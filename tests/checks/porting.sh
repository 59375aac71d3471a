#!/bin/bash
# The commands of docs/porting.md run as they are written, in a copy of the tree, and its program that saves the images
# of a switch makes a store from which the workstation's program writes the switch's text.
#
#     porting.sh SCRATCH_TREE C_COMPILER TEXTCFG
# shellcheck disable=SC2016 # Markdown's
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"

scratch=$1 cc=$2 program=$3
document=$root/docs/porting.md
if command -v ccache >/dev/null; then export CMAKE_C_COMPILER_LAUNCHER=ccache CMAKE_CXX_COMPILER_LAUNCHER=ccache; fi
unset TEXTCFG_STORE

rm -rf "$scratch"
mkdir -p "$scratch/tree" "$scratch/store" || exit 1
files_like '*'
(cd "$root" && cp --parents -- "${files[@]}" "$scratch/tree") || give_up "the tree could not be copied"

# ---- The commands, in their order.
cd "$scratch/tree" || exit 1
commands=0
while IFS= read -r command; do
    commands=$((commands + 1))
    log=$(bash -c "$command" 2>&1 </dev/null) || give_up "$command: status $?: $log"
done < <(sed '/^```/,/^```/d' "$document" | sed -n 's/^    \([a-z].*\)/\1/p')
((commands == 21)) || found "$commands commands, where 21 were expected"
[[ $(cd build/rootfs && find . -type f) == ./bin/textcfg ]] || found "installed: $(find build/rootfs)"
[[ $(grep -cx '\[.*\]' <<<"$log") == 108 ]] || found "the last command switches no trace on"
[[ $(head -n 1 build/running.txt) == '# VERSION 5036 6000 V2.07stub0 MAC 00:1b:a2:0c:de:f0' ]] ||
    found "another first line: $(head -n 1 build/running.txt)"
[[ $(head -n 1 build/page.txt) == configure ]] || found "the library wrote another page: $(head -n 1 build/page.txt)"

# ---- The program that saves the images.
cd "$scratch/store" || exit 1
sed -n '/^```c$/,/^```$/ { /^```/d; p }' "$document" >../save.c
lines=$(sed -n '/^int main/,/^}/p' ../save.c | wc -l)
((lines > 0 && lines <= 10)) || found "the program's main has $lines lines"
"$cc" -std=gnu11 -Wall -Wextra -Wpedantic -Werror -I"$root" ../save.c "$root/tests/firmware_stub/stub.c" -o ../save ||
    give_up "the program that saves the images could not be built"
../save || found "the program that saves the images: status $?"
echo active_bank=2 >platform.conf
TEXTCFG_STORE=$scratch/store "$program" running_config -f ../running.txt || found "the saved store is refused"
cmp ../running.txt ../tree/build/running.txt || found "the saved store gives another text"

# ---- Each operation of the headers is explained.
while IFS= read -r operation; do
    grep -qF "\`$operation\`" "$document" || found "docs/porting.md does not explain $operation"
done < <(sed -n 's/^[a-z][^(]*[ *]\([a-zA-Z_0-9]*\)(.*/\1/p' "$root/platform/mapi.h" "$root/platform/util.h" | grep -v '^__' | sort -u)
conclude
