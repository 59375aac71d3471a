#!/bin/bash
# The program stays within its budget on a switch: built for a 32-bit big-endian MIPS and linked with a firmware's
# library, here the stub, whose own bytes are taken off.
#
# The memory that it takes is measured here, on the workstation's program, against an empty C program.
#
#     footprint.sh SCRATCH_TREE C_COMPILER TEXTCFG
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"

readonly text_budget=$((96 * 1024)) bss_budget=$((820 * 1024)) peak_budget=2048

scratch=$1 cc=$2 program=$3
mkdir -p "$scratch" && cd "$scratch" || exit 1
rm -f libstub.a
if ! mips-linux-gnu-gcc -std=c11 -Os -fno-pie -mno-shared -mplt -I"$root" -c "$root/tests/firmware_stub/stub.c" -o stub.o ||
    ! mips-linux-gnu-ar rc libstub.a stub.o; then
    give_up "the library could not be built"
fi
log=$(cmake -S "$root" -B tool -G Ninja --toolchain "$root/cmake/mips-linux-gnu.cmake" -DCMAKE_BUILD_TYPE=Release \
    -DTEXTCFG_LTO=ON -DTEXTCFG_PLATFORM_LIBRARY="$scratch/libstub.a" 2>&1 && cmake --build tool 2>&1) || give_up "$log"
mips-linux-gnu-strip -o stripped tool/textcfg || give_up "the program could not be stripped"

# Text includes read-only data.
read -r text _ bss _ < <(mips-linux-gnu-size stripped | tail -n 1)
read -r stub_text _ < <(mips-linux-gnu-size stub.o | tail -n 1)
echo "text and read-only data $((text - stub_text)) of $text_budget bytes, bss $bss of $bss_budget bytes"
((text - stub_text <= text_budget)) || found "text and read-only data take $((text - stub_text)) bytes"
((bss <= bss_budget)) || found "bss takes $bss bytes"

# It is the program that it should be.
qemu-mips-static -L /usr/mips-linux-gnu ./stripped running_config -f text || found "it does not run: status $?"
[[ $(head -n 1 text) == '# VERSION 5036 6000 '* ]] || found "it writes another first line: $(head -n 1 text)"

"$cc" -O2 "$root/bench/peak.c" -o peak && "$cc" -O2 "$root/bench/empty.c" -o empty || give_up "peak.c or empty.c"
empty=$(./peak ./empty) || give_up "the empty program does not run"
peak=$(./peak "$program" running_config -f text) || give_up "the program does not run"
echo "peak resident memory $peak KiB, an empty program's $empty KiB, budget for the difference $peak_budget KiB"
((peak - empty <= peak_budget)) || found "it takes $((peak - empty)) KiB more than an empty program"
conclude
