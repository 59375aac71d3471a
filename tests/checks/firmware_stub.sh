#!/bin/bash
# The program links with a firmware's own library, written in C, and renders what that library returns.
#
#     firmware_stub.sh SCRATCH_TREE C_COMPILER CXX_COMPILER SWITCH_TREE      SWITCH_TREE is what switch.sh left
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"

scratch=$1 cc=$2 cxx=$3 switch=$4
mkdir -p "$scratch" && cd "$scratch" || exit 1
warnings=(-Wall -Wextra -Wpedantic -Werror)

# Each header of the boundary compiles alone, in both languages.
for header in mapi util; do
    echo "#include \"platform/$header.h\"" >"$header.c"
    "$cc" -std=c11 "${warnings[@]}" -I"$root" -fsyntax-only "$header.c" || found "$header.h is not C"
    "$cxx" -std=c++20 "${warnings[@]}" -I"$root" -fsyntax-only -x c++ "$header.c" || found "$header.h is not C++"
done

tool=$switch/tool
# Nothing of the workstation's stand-in is in the tool, nor built with it.
! grep -qaF TEXTCFG_STORE "$tool/textcfg" || found "the tool holds the workstation's stand-in"
[[ ! -e $tool/platform/host ]] || found "the workstation's stand-in was built"

rm -f text
TEXTCFG_STORE=/nonexistent "$tool/textcfg" running_config -f text >out 2>err || give_up "status $?: $(cat out err)"
[[ ! -s out && ! -s err ]] || found "the tool spoke: $(cat out err)"
[[ $(head -n 2 text) == '# VERSION 5036 6000 V2.07stub0 MAC 00:1b:a2:0c:de:f0
configure' ]] || found "another header: $(head -n 2 text)"

text=$(cat text)
has() { [[ $'\n'$text$'\n' == *$'\n'"$1"$'\n'* ]] || found "the text lacks: $1"; }
has $'interface 28 \nshutdown\nexit\ninterface 1-27 \nno shutdown\nexit'
has $'interface 3,7\ndescription to the stub \nexit'

# The other selectors reach the library too: its startup configuration has no port shut down.
"$tool/textcfg" startup_config -f text >out 2>err || found "startup_config: status $?"
text=$(cat text)
has $'interface 1-28 \nno shutdown\nexit'
[[ $text != *"description to the stub"* ]] || found "the startup configuration holds descriptions of the running one"
conclude
