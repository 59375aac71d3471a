#!/bin/bash
# The stub's utility operations write the same texts as those of the workstation, over the built-in store
# and for many sets of ports and addresses.
#
#     stub_utilities.sh PROGRAM PROGRAM_WITH_THE_STUB LISTS LISTS_OF_THE_STUB
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"

scratch=$(mktemp -d) || exit 1
trap 'rm -rf "$scratch"' EXIT
unset TEXTCFG_STORE

mapfile -t verbs < <(sed -n 's/^ *{"\([a-z_]*\)", MAPI_CONFIG_.*/\1/p' "$root/app/verbs.h")
((${#verbs[@]} == 16)) || give_up "${#verbs[@]} verbs in app/verbs.h"
for verb in "${verbs[@]}"; do
    "$1" "$verb" -f "$scratch/host" || found "$verb: status $?"
    "$2" "$verb" -f "$scratch/stub" || found "$verb with the stub's operations: status $?"
    [[ -s $scratch/host ]] || found "$verb: no text"
    difference=$(diff "$scratch/host" "$scratch/stub") || found "$verb: the stub writes another text: $difference"
done
# The texts hold what the two could write differently.
"$2" running_config -f "$scratch/stub" || give_up "status $?"
for kind in '[a-z] [0-9]*,[0-9]' '[0-9]-[0-9]' '[0-9a-f]::[0-9a-f]' '[0-9]\.[0-9]*\.[0-9]*\.[0-9]'; do
    grep -q "$kind" "$scratch/stub" || found "no line holds $kind"
done
"$3" >"$scratch/host" || found "the lists: status $?"
"$4" >"$scratch/stub" || found "the lists of the stub: status $?"
grep -qx 1,2,4-7 "$scratch/host" || found "the lists lack 1,2,4-7"
difference=$(diff "$scratch/host" "$scratch/stub" | head -n 4)
[[ ! $difference ]] || found "the stub writes other lists: $difference"
conclude
