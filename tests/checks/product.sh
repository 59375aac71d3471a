#!/bin/bash
# What the switch can afford: the program's own code takes no memory from the heap, runs nothing before main, throws
# nothing, looks no type up at run time, and needs no C++ runtime library.
#
#     product.sh PROGRAM OBJECT…
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"

program=$1
shift
(($#)) || give_up "no objects to look at"

for object in "$@"; do
    name=${object##*/}
    symbols=$(nm "$object") || give_up "cannot read $object"
    undefined=$(nm --undefined-only "$object") || give_up "cannot read $object"
    sections=$(readelf -SW "$object") || give_up "cannot read $object"
    while read -r word; do
        found "$name: needs $word"
    done < <(awk '{ print $NF }' <<<"$undefined" |
        grep -E '^(malloc|calloc|realloc|reallocarray|free|strn?dup|_Zn[wa].*|_Zd[la].*|__cxa_.*|_Unwind.*|__gxx_personality.*|_ZSt.*|_ZNSt.*|_ZNKSt.*)$')
    while read -r word; do
        found "$name: has type information or a table of virtual functions, $word"
    done < <(awk '{ print $NF }' <<<"$symbols" | grep -E '^_ZT[VISTvh]')
    while read -r word; do
        found "$name: has a section $word"
    done < <(grep -oE '\.(init_array|ctors|preinit_array|fini_array|dtors|gcc_except_table)[^ ]*' <<<"$sections" | sort -u)
done

needed=$(readelf -dW "$program" | grep -F '(NEEDED)') || give_up "cannot read $program"
grep -qF '[libc.so' <<<"$needed" || found "the program does not need libc: is it the right one?"
while read -r line; do
    found "the program needs a library of the C++ runtime: $line"
done < <(grep -E 'libstdc\+\+|libgcc_s|libc\+\+' <<<"$needed")
conclude
