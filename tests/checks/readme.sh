#!/bin/bash
# What README.md shows is so: its commands run, its excerpts are what the program writes, its links lead somewhere.
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"
cd "$root" || exit 1

make_scratch
unset TEXTCFG_STORE

# The commands, with folders of this check in place of those that they name.
commands=0
while IFS= read -r command; do
    commands=$((commands + 1))
    case $command in
    *script/test*) [[ -x $command ]] || found "there is no $command" ;; # the one runs this, the other takes long
    *)
        here=${command//\/tmp/$scratch}
        log=$(bash -c "${here//\/usr\/local/$scratch}" 2>&1 </dev/null) || found "$command: status $?: $log"
        ;;
    esac
done < <(sed -n 's/ *#.*//; s/^    \([a-zA-Z].*\)/\1/p' README.md)
((commands == 6)) || found "$commands commands, where 6 were expected"
for file in run.txt changes.txt bin/textcfg share/man/man1/textcfg.1; do
    [[ -s $scratch/$file ]] || found "the commands made no $file"
done
cmp -s "$scratch/run.txt" "$scratch/changes.txt" && found "both modes wrote the same"

# The excerpt: parts of the text, in its order, "..." standing for what was left out.
# shellcheck disable=SC2016 # Markdown's
excerpt=$(sed -n '/^```$/,/^```$/ { /^```$/d; p }' README.md)
[[ $excerpt == "# VERSION"* ]] || give_up "README.md shows no text"
rest=$'\n'$(<"$scratch/run.txt")$'\n'
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
done < <(sed -n 's/^ *{"\([a-z_]*\)", MAPI_CONFIG_.*/\1/p' app/run.cpp)

# The links, in all documents.
files_like 'README.md' 'CHANGELOG.md' 'docs/*.md'
for file in "${files[@]}"; do
    while IFS= read -r link; do
        [[ -e ${file%"${file##*/}"}$link ]] || found "$file: there is no $link"
    done < <(grep -oP '\]\(\K[^)#]+' "$file")
done
conclude
