#!/bin/bash
# What bash offers after textcfg, textcfg-store and textcfg-inspect.
#
#     completion.sh TEXTCFG_INSPECT
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"

inspect=$(realpath -- "$1") || give_up "no program"
make_scratch
cd "$scratch" || exit 1
mkdir here here/folder && cd here || exit 1
touch file.txt "with a blank.txt" -- -f.txt
. "$root/completions/textcfg.bash"
. "$root/completions/textcfg-store.bash"
. "$root/completions/textcfg-inspect.bash"

# offers WORD…: sets COMPREPLY as bash does when the last of the words is to be completed.
offers() {
    local function
    COMP_WORDS=("$@")
    COMP_CWORD=$(($# - 1))
    COMP_LINE=$*
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

mapfile -t verbs < <(verbs_of_program)
((${#verbs[@]} == 16)) || give_up "${#verbs[@]} verbs in app/verbs.h"
expect textcfg "" : "${verbs[@]}"
expect textcfg running_config_d : running_config_delta running_config_delta_page
expect textcfg - : -f -F
expect textcfg nothing_like_it : ""
# After a verb an option and no second verb, after an option with its file a verb and no second option.
expect textcfg running_config "" : -f
expect textcfg running_config s : ""
expect textcfg running_config - : -f -F
expect textcfg running_config -f : -f
expect textcfg -f -f st : startup_config startup_config_delta startup_config_page startup_config_delta_page
expect textcfg -f file.txt def : default_config default_config_delta default_config_page default_config_delta_page
expect textcfg -f file.txt "" : "${verbs[@]}"
expect textcfg -f file.txt - : ""
# After three words nothing.
expect textcfg running_config -f file.txt "" : ""
expect textcfg running_config -f file.txt - : ""
expect textcfg -f file.txt running_config "" : ""
expect textcfg -f file.txt -f "" : ""
expect textcfg-store - : -h --help --version
expect textcfg-store folder "" : ""

# Every command and option of textcfg-inspect, as it names them itself.
options_in() { grep -oE '^  (-[a-z]|--[a-z0-9-]+)( |$)' | tr -d ' '; }
mapfile -t commands < <("$inspect" --help | sed -n '/^Subcommands:/,$ s/^  \([a-z]*\) .*/\1/p')
((${#commands[@]} >= 5)) || give_up "textcfg-inspect --help shows the commands ${commands[*]}"
expect textcfg-inspect "" : "${commands[@]}"
mapfile -t options < <("$inspect" --help | options_in)
expect textcfg-inspect - : "${options[@]}"
for command in "${commands[@]}"; do
    mapfile -t options < <("$inspect" "$command" --help | options_in)
    ((${#options[@]} >= 3)) || give_up "textcfg-inspect $command --help shows the options ${options[*]}"
    expect textcfg-inspect "$command" - : "${options[@]}"
done
expect textcfg-inspect nonsense "" : ""
mapfile -t rules < <("$inspect" check --list | cut -d ' ' -f 1)
((${#rules[@]} >= 20)) || give_up "textcfg-inspect check --list shows the rules ${rules[*]}"
PATH=${inspect%/*}:$PATH expect textcfg-inspect check --ignore "" : "${rules[@]}"

# Files and folders are bash's own, so the key is pressed in an interactive shell.
command -v python3 >/dev/null || give_up "there is no python3"
# tab LINE EXPECTED…: pairs of a line and what the tab key makes of it.
tab() {
    local lines=() expected=() i
    while (($#)); do
        lines+=("$1")
        expected+=("$2")
        shift 2
    done
    mapfile -t made < <(HOME=$scratch/here "$root/tests/checks/press_tab.py" \
        ". '$root/completions/textcfg.bash'; . '$root/completions/textcfg-store.bash';
            . '$root/completions/textcfg-inspect.bash'; D=folder" "${lines[@]}")
    for i in "${!lines[@]}"; do
        [[ ${made[i]-} == "${expected[i]}" ]] || found "${lines[i]}<TAB>: expected ${expected[i]}; found: ${made[i]-}"
    done
}
touch folder/inside.txt colon:there
mkdir folder/deeper
# shellcheck disable=SC2016,SC2088 # the shell that is tested expands them
tab 'textcfg running_config -f fi' 'textcfg running_config -f file.txt ' \
    'textcfg running_config -F fo' 'textcfg running_config -F folder/' \
    'textcfg -f wi' 'textcfg -f with\ a\ blank.txt ' \
    'textcfg -f -f' 'textcfg -f -f.txt ' \
    'textcfg -f ~/fi' 'textcfg -f ~/file.txt ' \
    'textcfg -f $D/in' 'textcfg -f $D/inside.txt ' \
    'textcfg -f $HOME/fi' 'textcfg -f $HOME/file.txt ' \
    'textcfg running_config fi' 'textcfg running_config fi' \
    'textcfg running_config -f x fi' 'textcfg running_config -f x fi' \
    'textcfg startup_config_delta_' 'textcfg startup_config_delta_page ' \
    'textcfg-store f' 'textcfg-store folder/' \
    'textcfg-store ~/fo' 'textcfg-store ~/folder/' \
    'textcfg-store $D/' 'textcfg-store $D/deeper/' \
    'textcfg-store folder f' 'textcfg-store folder f' \
    'textcfg-store --h' 'textcfg-store --help ' \
    'textcfg-inspect sh' 'textcfg-inspect show ' \
    'textcfg-inspect show --ch' 'textcfg-inspect show --changed ' \
    'textcfg-inspect show fi' 'textcfg-inspect show file.txt ' \
    'textcfg-inspect show wi' 'textcfg-inspect show with\ a\ blank.txt ' \
    'textcfg-inspect show ~/fi' 'textcfg-inspect show ~/file.txt ' \
    'textcfg-inspect show $D/in' 'textcfg-inspect show $D/inside.txt ' \
    'textcfg-inspect show folder:r' 'textcfg-inspect show folder:running ' \
    'textcfg-inspect show folder/:c' 'textcfg-inspect show folder/:customer_default ' \
    'textcfg-inspect show ~/folder:d' 'textcfg-inspect show ~/folder:default ' \
    'textcfg-inspect show $D:s' 'textcfg-inspect show $D:startup ' \
    'textcfg-inspect show "with a:s' 'textcfg-inspect show "with a:startup" ' \
    'textcfg-inspect show bu' 'textcfg-inspect show builtin:' \
    'textcfg-inspect show builtin:r' 'textcfg-inspect show builtin:running ' \
    'textcfg-inspect show colon:t' 'textcfg-inspect show colon:there ' \
    'textcfg-inspect show folder:running fi' 'textcfg-inspect show folder:running fi' \
    'textcfg-inspect show file.txt fi' 'textcfg-inspect show file.txt fi' \
    'textcfg-inspect diff folder:running fi' 'textcfg-inspect diff folder:running file.txt ' \
    'textcfg-inspect diff folder:startup folder:r' 'textcfg-inspect diff folder:startup folder:running ' \
    'textcfg-inspect diff file.txt file.txt fi' 'textcfg-inspect diff file.txt file.txt fi' \
    'textcfg-inspect check file.txt file.txt fi' 'textcfg-inspect check file.txt file.txt file.txt ' \
    'textcfg-inspect text file.txt --board bu' 'textcfg-inspect text file.txt --board builtin:board ' \
    'textcfg-inspect text file.txt --default=builtin:s' 'textcfg-inspect text file.txt --default=builtin:startup ' \
    'textcfg-inspect text --default fo' 'textcfg-inspect text --default folder/' \
    'textcfg-inspect text --md5 y' 'textcfg-inspect text --md5 yes ' \
    'textcfg-inspect text --md5=n' 'textcfg-inspect text --md5=no ' \
    'textcfg-inspect text --bank fi' 'textcfg-inspect text --bank fi' \
    'textcfg-inspect mask folder -o fo' 'textcfg-inspect mask folder -o folder/' \
    'textcfg-inspect show -- fi' 'textcfg-inspect show -- file.txt '
conclude
