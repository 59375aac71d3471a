#!/bin/bash
# What bash offers behind textcfg and textcfg-store.
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"

make_scratch
cd "$scratch" || exit 1
mkdir here here/folder && cd here || exit 1
touch file.txt "with a blank.txt" -- -f.txt
. "$root/completions/textcfg.bash"
. "$root/completions/textcfg-store.bash"

# offers WORD…: sets COMPREPLY as bash does when the last of the words is to be completed.
offers() {
    local function
    COMP_WORDS=("$@")
    COMP_CWORD=$(($# - 1))
    function=$(complete -p "$1" | sed -n 's/.*-F \([^ ]*\) .*/\1/p')
    [[ -n $function ]] || give_up "no completion for $1"
    COMPREPLY=()
    "$function" "$1" "${COMP_WORDS[COMP_CWORD]}" "${COMP_WORDS[COMP_CWORD - 1]}" 2>"$scratch/complaints"
    [[ ! -s $scratch/complaints ]] || found "$*: $(cat "$scratch/complaints")"
}
# expect WORD… : OFFER…
expect() {
    local words=() offered
    while [[ $1 != : ]]; do
        words+=("$1")
        shift
    done
    shift
    offers "${words[@]}"
    offered=$(printf '%s\n' "${COMPREPLY[@]}" | sort)
    [[ $offered == "$(printf '%s\n' "$@" | sort)" ]] || found "${words[*]}: offered are $offered; expected: $*"
}

mapfile -t verbs < <(sed -n 's/^ *{"\([a-z_]*\)", MAPI_CONFIG_.*/\1/p' "$root/app/run.cpp")
((${#verbs[@]} == 16)) || give_up "${#verbs[@]} verbs in app/run.cpp"
expect textcfg "" : "${verbs[@]}"
expect textcfg running_config_d : running_config_delta running_config_delta_page
expect textcfg running_config "" : "${verbs[@]}"
expect textcfg - : -f -F
expect textcfg running_config -f : -f
expect textcfg -f "" : -f.txt file.txt folder "with a blank.txt"
expect textcfg running_config -F f : file.txt folder
expect textcfg -f -f : -f.txt
expect textcfg -f -f st : startup_config startup_config_delta startup_config_page startup_config_delta_page
expect textcfg -f file.txt def : default_config default_config_delta default_config_page default_config_delta_page
expect textcfg nothing_like_it : ""
expect textcfg-store "" : folder
expect textcfg-store - : --help
expect textcfg-store folder "" : ""
conclude
