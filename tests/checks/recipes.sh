#!/bin/bash
# The commands of docs/recipes.md, or of another document, run as written, one after the other, and print what the
# document says.
#
#     recipes.sh TEXTCFG_INSPECT [DOCUMENT]
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"

inspect=$(realpath -- "$1") || give_up "no program"
document=docs/${2-recipes}.md
make_scratch
"$root/script/build" release >"$scratch/log" 2>&1 </dev/null ||
    give_up "no program: $(cat "$scratch/log")"
export PATH=$root/build/release:$root/build/release/platform/host:${inspect%/*}:$PATH
unset TEXTCFG_STORE
# git asks who commits, and looks for settings.
export HOME=$scratch GIT_CONFIG_NOSYSTEM=1 GIT_AUTHOR_NAME=a GIT_AUTHOR_EMAIL=a GIT_COMMITTER_NAME=a \
    GIT_COMMITTER_EMAIL=a LC_ALL=C
mkdir "$scratch/here"
cd "$scratch/here" || exit 1

blocks=0
# run COMMANDS OUTPUT: a block, and what the document shows after it.
run() {
    local output
    blocks=$((blocks + 1))
    output=$(bash -euc "$1" 2>&1 </dev/null) || found "status $? of:"$'\n'"$1"
    [[ $output == "$2" ]] || found "these print:"$'\n'"$output"$'\n'"and not:"$'\n'"$2"$'\n'"$1"
}
kind='' commands='' output=''
while IFS= read -r line; do
    case $kind$line in
    '```sh')
        [[ -z $commands ]] || run "$commands" "$output"
        kind=sh commands='' output=''
        ;;
    '```text') kind=text ;;
    '```'*) found "a block that is neither commands nor what they print: $line" ;;
    sh'```' | text'```') kind='' ;;
    sh*) commands+=$line$'\n' ;;
    text*) output+=${output:+$'\n'}$line ;;
    esac
done <"$root/$document"
[[ -z $commands ]] || run "$commands" "$output"
((blocks >= 10)) || found "only $blocks blocks of commands in $document"
for text in texts/*.txt; do
    [[ -s $text ]] || found "$document wrote nothing to $text"
done

secrets=(keep-it-safe dot1x-secret public private monitoring provisioning emergency correct-horse battery-staple look-only
    first-week radius-secret tacacs-secret)
if [[ $document == docs/dump.md ]]; then
    # Nothing that is to be passed on contains a secret of the example, and the example has them all.
    textcfg-inspect text dump >all.txt || found "no text: status $?"
    for image in default startup running customer_default; do textcfg-inspect text "dump:$image" >>all.txt; done
    [[ -d texts/public ]] || give_up "$document made no texts/public"
    for secret in "${secrets[@]}"; do
        grep -qF -- "$secret" all.txt || found "the example has no secret $secret"
        [[ $secret == @(public|private|monitoring|provisioning|emergency) ]] || # words that other lines have too
            if grep -rlF -- "$secret" texts/public texts/public.txt; then found "there is the secret $secret"; fi
    done
    if grep -nE '^(password|(no )?snmp-server community|community|dot1x secret|user (radius|tacacs) secret) [^*]' \
        texts/public.txt; then found "texts/public.txt shows secrets"; fi
    conclude
fi
for text in changes unsaved startup running access-3 access-4 masked found {all,history}/access-3 all/access-4; do
    [[ -s texts/$text.txt ]] || found "the recipes wrote no texts/$text.txt"
done
[[ $(git -C texts/history log --oneline | wc -l) == 2 ]] || found "the history has not two commits"
cmp -s texts/history/access-3.txt <(git -C texts/history show HEAD:access-3.txt) || found "git changed the text"

# No secret of the example is left in the masked text, and all of them were in the plain one.
for secret in "${secrets[@]}"; do
    grep -qF -- "$secret" texts/running.txt || found "the example has no secret $secret"
    if grep -E "^(password|(no )?snmp-server community|community|archive|dot1x|user (radius|tacacs))\b.*$secret" \
        texts/masked.txt; then found "the masked text contains $secret"; fi
done
[[ $(wc -l <texts/masked.txt) == $(wc -l <texts/running.txt) ]] || found "the masked text has other lines"

# Every line that the sources write with a secret is in the table.
while IFS= read -r words; do
    grep -qF "\`$words …\`" "$root/docs/recipes.md" || grep -qF "\`$words ftp …\`" "$root/docs/recipes.md" ||
        found "the table of secrets has no line $words"
done < <(sed -nE 's/.*append\("([a-z0-9 -]+) %s\\n", ([a-z]*\.(secret|community)|user\.password(Md5)?|community\.name)\).*/\1/p' \
    "$root"/sections/*.cpp | sort -u)
conclude
