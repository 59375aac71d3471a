#!/bin/bash
# Each line of the text is in the sources of the sections once: at most 8 % of the literals repeat another one, or repeat
# it with other blanks at the end. The forms of the two modes next to each other are one, and "exit" and the heads of
# interface blocks do not count.
#
#     literals.sh PROGRAM      the built textcfg-commands
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"

most=8

read -r literals repeats < <("$1" --repeats "$root/sections")
((literals > 400)) || give_up "only ${literals:-0} literals in the sources of the sections"
share=$((repeats * 1000 / literals))
echo "$repeats of $literals literals repeat another one: $((share / 10)).$((share % 10)) %"
((share <= most * 10)) || found "at most $most % may"

# The count notices a repetition.
make_scratch
cp "$root"/sections/*.cpp "$scratch"
cat >>"$scratch/system.cpp" <<'CODE'
static void writeTwice() { append("syslog\n"), append({"no ntp server1 \n", "no ntp server1\n"}), append("terminal  \n"); }
CODE
read -r more repeated < <("$1" --repeats "$scratch")
((more == literals + 4 && repeated == repeats + 2)) ||
    found "of 4 more literals, 2 of them repetitions, $((more - literals)) and $((repeated - repeats)) were counted"
conclude
