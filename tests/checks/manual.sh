#!/bin/bash
# The manual pages are in order and describe every verb, message and exit status of the programs, and none that they do
# not have; messages appear as users see them. The examples run as written.
#
#     manual.sh TEXTCFG_INSPECT
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"
inspect=$(realpath -- "$1") || give_up "no program"
cd "$root" || exit 1

pages=(docs/*.[1-8])
for page in "${pages[@]}"; do
    warnings=$(mandoc -T lint -W warning "$page" 2>&1) || found "$page: $warnings"
    if grep -nE '%[a-z]|%l?l?[du]' "$page"; then found "$page shows a format of C"; fi
done

make_scratch

# The text of a page on one line, whatever stood in bold.
text_of() { mandoc -T ascii -O width=1000 "$1" | sed 's/.\x08//g' | tr -s ' \t\n' ' '; }

# The messages of sources, a line each: what is between quotes and is more than a word. Of a text of several lines
# that says how a program is called, the first one.
messages_of() {
    # shellcheck disable=SC2016 # Perl's
    perl -0777 -ne '
        s{//[^\n]*}{}g; s{^#.*}{}mg; s{static_assert\(.*?\);}{}gs; s{"\s*\n\s*"}{}g;
        while (/(\w+) =\s*"((?:[^"\\]|\\.)*)"|"((?:[^"\\]|\\.)*)"/g) {
            my ($name, $text) = ($1 // "", $2 // $3);
            my @lines = split /\\n/, $text;
            @lines = ($lines[0]) if $name eq "usage" && $lines[0] =~ /^Usage: \w/;
            for (@lines) {
                s/\\"/"/g; s/^\s+|\s+$//g; s/\s+/ /g;
                print "$_\n" if /\S \S/ || /^Usage/;
            }
        }' "$@" | sort -u
}
# as_pattern: the messages that it reads, as regular expressions for what users see.
as_pattern() {
    # shellcheck disable=SC2016 # Perl's
    perl -ne 'chomp; s/([^\w\s%])/\\$1/g; s/%s/.+?/g; s/%(?:l*|z)[du]/-?\\d+/g; print "$_\n"'
}
# holds PAGE SOURCE…: every message of the sources is in the page, as users see it.
holds() {
    local page=$1 text message
    shift
    text=$(text_of "$page")
    messages_of "$@" | as_pattern >"$scratch/patterns"
    for source in "$@"; do [[ -n $(messages_of "$source") ]] || give_up "no message in $source"; done
    while IFS= read -r message; do
        # What is composed of nothing but other parts would be found anywhere.
        grep -qP -e "$message" <<<"$text" || found "$page does not describe the message $message"
    done <"$scratch/patterns"
    # What the page shows as a message is one. A message that is composed of others is known by what it ends with.
    grep -vP '^\S*\.\+\?(\\: \S*\.\+\?)*$' "$scratch/patterns" >"$scratch/whole"
    while IFS= read -r message; do
        MESSAGE=$message perl -ne 'chomp; $known = 1 if $ENV{MESSAGE} =~ /^(?:.*: )?$_$/; END { exit !$known }' \
            "$scratch/whole" || found "$page describes a message that does not exist: $message"
    done < <(sed -n '/^\.Sh DIAGNOSTICS/,/^\.Sh SEE/ { s/""/\x01/g; s/^\.\(It\|Dq\|It Dq\) "\([^"]*\)".*/\2/p }' "$page" |
        tr '\1' '"' | grep ' ')
}
holds docs/textcfg.1 app/run.cpp platform/host/mapi.cpp platform/host/password_md5.cpp platform/host/store.cpp
holds docs/textcfg-store.1 platform/host/store_export.cpp

# items_are PAGE MACRO WORD…: the words are the items of that kind in the page, and no others.
items_are() {
    local page=$1 macro=$2 difference
    shift 2
    (($#)) || give_up "nothing to look for in $page"
    difference=$(diff <(printf '%s\n' "$@" | sort -u) <(sed -n "s/^\\.It $macro//p" "$page" | sort -u)) ||
        found "$page, items $macro: $difference"
}
mapfile -t verbs < <(verbs_of_program)
items_are docs/textcfg.1 'Cm ' "${verbs[@]}"

# textcfg-inspect names its commands and options itself.
page=docs/textcfg-inspect.1
section() { sed -n "/^\\.$2\$/,/^\\.S[hs] /p" "$1"; }
mapfile -t commands < <("$inspect" --help | sed -n '/^Subcommands:/,$ s/^  \([a-z]*\) .*/\1/p')
((${#commands[@]} >= 5)) || give_up "textcfg-inspect --help shows the commands ${commands[*]}"
difference=$(diff <(printf '%s\n' "${commands[@]}" | sort) \
    <(section $page 'Ss Commands' | sed -n 's/^\.It Cm //p' | sort)) || found "$page, commands: $difference"
options=$(for command in '' "${commands[@]}"; do
    # shellcheck disable=SC2086 # none is no word
    "$inspect" $command --help
done | grep -oE '^  (-[a-z]|--[a-z0-9-]+)( |$)' | tr -d ' ' | sort -u)
difference=$(diff <(echo "$options") \
    <(section $page 'Ss Options' | sed -nE 's/^\.It Fl ([^ ]*).*/-\1/p' | sort -u)) || found "$page, options: $difference"

# Its messages: each that the page shows is printed by one of these, and what these print is in the page.
mkdir "$scratch/messages" "$scratch/messages/alone"
"$root/script/build" release >"$scratch/log" 2>&1 </dev/null || give_up "no program: $(cat "$scratch/log")"
"$root/build/release/platform/host/textcfg-store" "$scratch/messages/store" || give_up "no store"
cp "$scratch/messages/store/running.img" "$scratch/messages/alone/found.img"
head -c 100 "$scratch/messages/store/running.img" >"$scratch/messages/short.img"
# prints STATUS WORD…
prints() {
    local expected=$1 status=0
    shift
    "$inspect" "$@" >out 2>>messages || status=$?
    ((status == expected)) || found "textcfg-inspect $*: status $status, not $expected"
}
shown() { sed -n '/^\.Sh DIAGNOSTICS/,/^\.Sh SEE/ { s/""/"/g; s/^\.It "\(.*\)"$/\1/p }' "$root/$page"; }
difference=$(cd "$scratch/messages" &&
    prints 2 && prints 2 nonsense && prints 2 show && prints 2 show store --nonsense && prints 2 text store --md5 maybe &&
    prints 2 show store --at x && prints 2 check && prints 2 check store --ignore nonsense &&
    prints 2 explain store && prints 2 explain store nonsense && prints 2 explain store --field nonsense &&
    prints 2 explain store '/(/' && prints 2 show builtin:nothing && prints 2 diff - - &&
    prints 2 show store 'nonsense*' && prints 2 show store --at 262144 && prints 2 show nowhere &&
    prints 2 show short.img && prints 2 show store:nothing && prints 2 mask store -o store && cd alone &&
    prints 1 check found.img --ignore not-recreated &&
    prints 2 text found.img && prints 2 text found.img --default builtin:default &&
    prints 2 text found.img --default builtin:default --board builtin:board &&
    prints 0 text found.img --default builtin:default --board ../store --bank 1 --md5 no &&
    "$inspect" text ../store 2>>messages >/dev/full
    cat messages ../messages >all
    diff <(sort -u all) <(shown | sort -u)) || found "$page, messages: $difference"

# statuses_of SOURCE FUNCTION…: the numbers that the functions return, as a shell sees them.
statuses_of() {
    local source=$1
    shift
    for function in "$@"; do
        sed -n "/^[a-z].* $function(.*{\$/,/^}/p" "$source" | grep -E '\breturn\b' | sed 's/.*return//; s/.*?//'
    done | grep -oE -e '-?\b[0-9]+\b' | sed 's/^-1$/255/' | sort -u
}
items() { sed -n '/^\.Sh EXIT STATUS/,/^\.Sh EXAMPLES/ s/^\.It //p' "$1" | sort -u; }
status() {
    local page=$1 difference
    shift
    difference=$(diff <(statuses_of "$@") <(items "$page")) || found "$page, exit status: $difference"
}
status docs/textcfg.1 app/run.cpp textcfgMain renderToFile
status docs/textcfg-store.1 platform/host/store_export.cpp storeExportMain
# The examples, one after the other, with the programs of the build tree.
"$root/script/build" release >"$scratch/log" 2>&1 </dev/null ||
    give_up "no program: $(cat "$scratch/log")"
export PATH=$root/build/release:$root/build/release/platform/host:${inspect%/*}:$PATH
unset TEXTCFG_STORE
for page in "${pages[@]}"; do
    examples=0
    mkdir "$scratch/${page##*/}"
    while IFS= read -r command; do
        examples=$((examples + 1))
        expected=0
        case $command in
        "diff texts/startup.txt "* | "textcfg-inspect diff "*) expected=1 ;; # as the page says
        esac
        status=0
        output=$(cd "$scratch/${page##*/}" && bash -c "$command" 2>&1 </dev/null) || status=$?
        ((status == expected)) || found "$page: $command: status $status: $output"
    done < <(sed -n 's/^\.Dl \$ //p' "$page")
    ((examples)) || found "$page has no example that could run"
    for text in "$scratch/${page##*/}"/texts/*.txt; do
        [[ -s $text ]] || found "$page: the examples wrote no ${text##*/}"
    done
done
conclude
