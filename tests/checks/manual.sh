#!/bin/bash
# The manual pages are in order, and tell of every verb, message and exit status that the programs have, and of none
# that they do not have.
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"
cd "$root" || exit 1

pages=(docs/textcfg.1 docs/textcfg-store.1)
for page in "${pages[@]}"; do
    warnings=$(mandoc -T lint -W warning "$page" 2>&1) || found "$page: $warnings"
done

make_scratch

# The text of a page on one line, whatever stood in bold.
text_of() { mandoc -T ascii -O width=1000 "$1" | sed 's/.\x08//g' | tr -s ' \t\n' ' '; }

# The messages of sources, a line each: what stands between quotes and is more than a word. Of a text of several lines
# that tells how a program is called, the first one.
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
# holds PAGE SOURCE…: every message of the sources stands in the page.
holds() {
    local page=$1 text message source
    shift
    text=$(text_of "$page")
    for source in "$@"; do
        messages_of "$source" >"$scratch/some"
        [[ -s $scratch/some ]] || give_up "no message in $source"
        while IFS= read -r message; do
            [[ $text == *"$message"* ]] || found "$page does not tell of the message of $source: $message"
        done <"$scratch/some"
    done
    # What the page quotes as a message is one.
    messages_of "$@" >"$scratch/all"
    while IFS= read -r message; do
        grep -qxF -e "$message" "$scratch/all" || found "$page tells of a message that is not there: $message"
    done < <(sed -n '/^\.Sh DIAGNOSTICS/,/^\.Sh SEE/ { s/""/\x01/g; s/^\.\(It\|Dq\|It Dq\) "\([^"]*\)".*/\2/p }' "$page" |
        tr '\1' '"' | grep ' ')
}
holds docs/textcfg.1 app/run.cpp platform/host/mapi.cpp platform/host/store.cpp
holds docs/textcfg-store.1 platform/host/store_export.cpp

# told PAGE MACRO WORD…: the words are the items of that kind in the page, and no others.
told() {
    local page=$1 macro=$2 difference
    shift 2
    (($#)) || give_up "nothing to look for in $page"
    difference=$(diff <(printf '%s\n' "$@" | sort -u) <(sed -n "s/^\\.It $macro//p" "$page" | sort -u)) ||
        found "$page, items $macro: $difference"
}
mapfile -t verbs < <(sed -n 's/^ *{"\([a-z_]*\)", MAPI_CONFIG_.*/\1/p' app/verbs.h)
told docs/textcfg.1 'Cm ' "${verbs[@]}"

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
conclude
