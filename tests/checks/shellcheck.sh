#!/bin/bash
# The scripts pass shellcheck, and can be run.
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"
cd "$root" || exit 1

files_like '*'
scripts=()
for file in "${files[@]}"; do
    first=
    IFS= read -r first <"$file" 2>/dev/null
    [[ $first =~ ^'#!'.*[/\ ](ba)?sh( |$) || $file == *.sh ]] && scripts+=("$file")
done
((${#scripts[@]})) || give_up "there are no scripts"
shellcheck --external-sources --source-path=SCRIPTDIR "${scripts[@]}" || found "in ${#scripts[@]} scripts"

for file in "${scripts[@]}"; do
    [[ -x $file || $file == tests/checks/common.sh ]] || found "$file cannot be executed"
done
conclude
