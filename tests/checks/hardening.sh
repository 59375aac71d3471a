#!/bin/bash
# The workstation's programs are hardened, the program for a switch is small instead, and what is counted is neither.
#
#     hardening.sh TEXTCFG TEXTCFG_STORE TEXTCFG_INSPECT SWITCH_TREE
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"

# look_at PROGRAM: sets `found_options` to what the program has.
look_at() {
    local dynamic symbols header
    dynamic=$(readelf -dW "$1") || give_up "cannot read $1"
    symbols=$(readelf --dyn-syms -W "$1") || give_up "cannot read $1"
    header=$(readelf -hlW "$1") || give_up "cannot read $1"
    found_options=
    if grep -qE 'Type: +DYN' <<<"$header"; then found_options+=" pie"; fi
    if grep -qF GNU_RELRO <<<"$header"; then found_options+=" relro"; fi
    if grep -qE 'BIND_NOW|FLAGS.*NOW' <<<"$dynamic"; then found_options+=" now"; fi
    if grep -qF __stack_chk_fail <<<"$symbols"; then found_options+=" protector"; fi
    if grep -qE ' __[a-z]+_chk@' <<<"$symbols"; then found_options+=" fortify"; fi
}
expect() {
    look_at "$1"
    [[ $found_options == "$2" ]] || found "${1##*/}: found$found_options; expected$2"
}
expect "$1" " pie relro now protector fortify"
expect "$2" " pie relro now protector fortify"
expect "$3" " pie relro now protector fortify"
expect "$4/tool/textcfg" ""

# The measurements are made without.
python3 - "$root/CMakePresets.json" <<'PYTHON' || found "the preset bench is hardened"
import json
import sys

with open(sys.argv[1], encoding="utf-8") as file:
    presets = {preset["name"]: preset for preset in json.load(file)["configurePresets"]}
sys.exit(presets["bench"]["cacheVariables"].get("TEXTCFG_HARDEN") != "OFF")
PYTHON
conclude
