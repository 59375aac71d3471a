#!/bin/bash
# The program stays within its budget on a switch: built for a 32-bit big-endian MIPS and linked with a firmware's
# library, here the stub, whose own bytes are taken off.
#
# The memory that it takes is measured here, on the workstation's program, against an empty C program.
#
#     footprint.sh SCRATCH_TREE C_COMPILER TEXTCFG SWITCH_TREE      SWITCH_TREE is what switch.sh left for this target
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"

readonly text_budget=$((96 * 1024)) bss_budget=$((820 * 1024)) peak_budget=2048

scratch=$1 cc=$2 program=$3 switch=$4
mkdir -p "$scratch" && cd "$scratch" || exit 1
mips-linux-gnu-strip -o stripped "$switch/tool/textcfg" || give_up "the program could not be stripped"

# Text includes read-only data.
read -r text _ bss _ < <(mips-linux-gnu-size stripped | tail -n 1)
read -r stub_text _ < <(mips-linux-gnu-size "$switch/stub.o" | tail -n 1)
echo "text and read-only data $((text - stub_text)) of $text_budget bytes, bss $bss of $bss_budget bytes"
((text - stub_text <= text_budget)) || found "text and read-only data take $((text - stub_text)) bytes"
((bss <= bss_budget)) || found "bss takes $bss bytes"

# It is the program that it should be.
qemu-mips-static -L /usr/mips-linux-gnu ./stripped running_config -f text || found "it does not run: status $?"
[[ $(head -n 1 text) == '# VERSION 5036 6000 '* ]] || found "it writes another first line: $(head -n 1 text)"

for source in peak empty; do
    "$cc" -O2 "$root/bench/$source.c" -o "$source" || give_up "$source.c could not be built"
done
empty=$(./peak ./empty) || give_up "the empty program does not run"
peak=$(./peak "$program" running_config -f text) || give_up "the program does not run"
echo "peak resident memory $peak KiB, an empty program's $empty KiB, budget for the difference $peak_budget KiB"
((peak - empty <= peak_budget)) || found "it takes $((peak - empty)) KiB more than an empty program"
conclude
