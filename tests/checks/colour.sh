#!/bin/bash
# textcfg-inspect uses colours on a terminal, and not in a file, with NO_COLOR or on a terminal without them.
#
#     colour.sh TEXTCFG_INSPECT
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"

inspect=$(realpath -- "$1") || give_up "no program"
make_scratch
cd "$scratch" || exit 1
unset NO_COLOR
export TERM=xterm
escape=$'\x1b['

# on_terminal WORD…: what a terminal is given.
on_terminal() { script -qec "$(printf '%q ' "$@")" /dev/null </dev/null | tr -d '\r'; }
for words in 'check builtin:running' 'diff builtin:default builtin:running'; do
    # shellcheck disable=SC2086 # words
    {
        "$inspect" $words >plain
        on_terminal "$inspect" $words >coloured
        NO_COLOR=1 on_terminal "$inspect" $words >no_color
        NO_COLOR='' on_terminal "$inspect" $words >empty
        TERM=dumb on_terminal "$inspect" $words >without
    }
    [[ -s plain ]] || found "$words: printed nothing"
    ! grep -qF "$escape" plain || found "$words: colours in a file"
    grep -qF "$escape" coloured || found "$words: no colours on a terminal"
    cmp -s coloured empty || found "$words: an empty NO_COLOR counts"
    sed 's/\x1b\[[0-9]*m//g' coloured | cmp -s - plain || found "$words: more than colours is different on a terminal"
    cmp -s no_color plain || found "$words: NO_COLOR does not count"
    cmp -s without plain || found "$words: colours on a terminal that has none"
done
# Text is never coloured: it is the switch's.
"$inspect" text builtin:running >plain
on_terminal "$inspect" text builtin:running | cmp -s - plain || found "a terminal is given another text"
conclude
