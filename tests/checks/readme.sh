#!/bin/bash
# What README.md shows is so: its commands run, its excerpts are what the program writes, its links lead somewhere.
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"
cd "$root" || exit 1

make_scratch
unset TEXTCFG_STORE

# The commands, with this check's home folder, an installation folder of its own in place of /usr/local, and a list of
# installed files that is not the user's.
for tree in release inspect; do
    "$root/script/build" "$tree" >"$scratch/log" 2>&1 </dev/null || give_up "no program: $(cat "$scratch/log")"
done
mkdir "$scratch/tree"
cp "$root/build/inspect/cmake_install.cmake" "$scratch/tree/"
commands=0
while IFS= read -r command; do
    commands=$((commands + 1))
    case $command in
    script/test*) [[ -x ${command%% *} ]] || found "there is no $command" ;; # the one runs this, the others take long
    *)
        here=${command//\/usr\/local/$scratch/installed}
        here=${here/--install build\/inspect/--install $scratch/tree}
        here=${here/script\/uninstall build\/inspect/script/uninstall $scratch/tree}
        expected=0
        [[ $command != "script/inspect diff "* ]] || expected=1 # as README.md says
        status=0
        log=$(HOME=$scratch/user bash -c "$here" 2>&1 </dev/null) || status=$?
        ((status == expected)) || found "$command: status $status: $log"
        [[ $command != "cmake --install"* || -x $scratch/installed/bin/textcfg-inspect ]] || found "$command installed nothing"
        ;;
    esac
done < <(sed -n 's/ *#.*//; s/^    \([a-zA-Z].*\)/\1/p' README.md)
((commands == 13)) || found "$commands commands, where 13 were expected"
for file in run.txt changes.txt store/running.img; do
    [[ -s $scratch/user/textcfg/$file ]] || found "the commands made no $file"
done
[[ $(stat -c %a "$scratch/user/textcfg") == 700 ]] || found "others can read the texts of the commands"
[[ -z $(ls -A "$scratch/installed" 2>/dev/null) ]] || found "script/uninstall left $(find "$scratch/installed")"
cmp -s "$scratch/user/textcfg/run.txt" "$scratch/user/textcfg/changes.txt" && found "both modes wrote the same"

# The excerpt: parts of the text, in its order, with "..." for what was left out.
# shellcheck disable=SC2016 # Markdown's
excerpt=$(sed -n '/^```$/,/^```$/ { /^```$/d; p }' README.md)
[[ $excerpt == "# VERSION"* ]] || give_up "README.md shows no text"
rest=$'\n'$(<"$scratch/user/textcfg/run.txt")$'\n'
while IFS= read -r -d $'\x01' part; do
    if [[ $rest == *$'\n'"$part"$'\n'* ]]; then
        rest=$'\n'${rest#*$'\n'"$part"}
    else
        found "not in the text, or not in this order: $part"
    fi
done < <(sed ':a; N; $!ba; s/\n\.\.\.\n/\x01/g; s/$/\x01/' <<<"$excerpt")

# The table of the verbs.
while IFS= read -r verb; do
    grep -qF "\`$verb\`" README.md || found "README.md does not name $verb"
done < <(verbs_of_program)

# The terms are the same everywhere, and can be found.
terms=$(sed -n '/^License:/,$ { /^License:/d; s/^ //p }' packaging/copyright)
[[ $terms == "All rights reserved."* ]] || give_up "packaging/copyright has no terms"
[[ $(sed '1,2d' LICENSE) == "$terms" ]] || found "LICENSE has other terms than packaging/copyright"
grep -qF '[LICENSE](LICENSE)' README.md || found "README.md does not mention LICENSE"
grep -qF '[copyright](copyright)' packaging/README.md || found "the installed README.md does not mention its terms"
for file in README.md packaging/README.md; do
    grep -qx '## Bugs' "$file" || found "$file does not say where to report a bug"
    [[ $(grep -m 2 '^## ' "$file" | head -n 1) == "## Traps" ]] || found "$file does not begin with the traps"
done
# What both say is the same.
verbs_of() { sed -n '/^## Verbs$/,/^## /p' "$1" | grep '^|'; }
[[ $(verbs_of README.md) == "$(verbs_of packaging/README.md)" ]] || found "the READMEs differ in their verbs"

# The links, in all documents.
files_like 'README.md' 'CHANGELOG.md' 'docs/*.md'
for file in "${files[@]}"; do
    while IFS= read -r link; do
        [[ -e ${file%"${file##*/}"}$link ]] || found "$file: there is no $link"
    done < <(grep -oP '\]\(\K[^)#]+' "$file")
done
conclude
