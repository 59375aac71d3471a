#!/bin/bash
# What cmake --install installs: documents that mention only what is installed with them, and nothing that script/uninstall
# does not remove again.
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"

make_scratch

"$root/script/build" inspect >"$scratch/log" 2>&1 </dev/null ||
    give_up "no program: $(cat "$scratch/log")"
# From a tree of its own, whose list of installed files is not the user's.
mkdir "$scratch/tree"
cp "$root/build/inspect/cmake_install.cmake" "$scratch/tree/"
install_to() { cmake --install "$scratch/tree" --prefix "$1" >"$scratch/log" 2>&1 || give_up "$(cat "$scratch/log")"; }

# A folder that has something already, and one that does not exist yet.
prefix=$scratch/prefix
mkdir -p "$prefix/share/man/man1" "$prefix/bin"
touch "$prefix/share/man/man1/other.1" "$prefix/bin/other"
content() { (cd "$scratch" && find prefix new -print 2>/dev/null | sort); }
before=$(content)
install_to "$prefix"
install_to "$scratch/new/with a blank"

documents=$prefix/share/doc/textcfg
for file in bin/textcfg bin/textcfg-store bin/textcfg-inspect share/man/man1/textcfg-inspect.1 share/man/man1/textcfg.1 share/man/man1/textcfg-store.1 \
    share/man/man5/textcfg.5 include/textcfg/platform/{mapi,util}.h share/doc/textcfg/{README.md,CHANGELOG.md,copyright} \
    share/doc/textcfg/docs/{dump,image,recipes,text}.md \
    share/doc/textcfg/docs/inspect-schema.json \
    share/bash-completion/completions/{textcfg,textcfg-store,textcfg-inspect}; do
    [[ -s $prefix/$file ]] || found "$file is not installed"
done
for file in bench contributing porting; do
    [[ ! -e $documents/docs/$file.md ]] || found "docs/$file.md is installed"
done

# Links of the documents, pages that the pages refer to, programs, and whatever looks like a file of the source tree.
mapfile -t texts < <(find "$documents" "$prefix/share/man" -type f ! -name other.1)
((${#texts[@]} >= 8)) || give_up "only ${#texts[@]} installed documents"
for text in "${texts[@]}"; do
    name=${text#"$prefix/"}
    while IFS= read -r link; do
        [[ -e ${text%/*}/$link ]] || found "$name: there is no $link"
    done < <(grep -oP '\]\(\K[^)#]+' "$text")
    while read -r page section _; do
        [[ $page != textcfg* || -e $prefix/share/man/man$section/$page.$section ]] ||
            found "$name refers to $page($section), which is not installed"
    done < <(sed -n 's/^\.Xr //p' "$text")
    while IFS= read -r program; do
        [[ -x $prefix/bin/$program ]] || found "$name mentions the program $program, which is not installed"
    done < <(grep -oP '(?<![\w/.-])textcfg-[a-z]+(?![\w/])' "$text" | sort -u)
    while IFS= read -r file; do
        [[ -e $documents/$file || -e $prefix/include/textcfg/$file ]] ||
            found "$name mentions $file, which is not installed"
    done < <(grep -oP '(?<![\w/.~-])(docs|app|sections|format|platform|tests|bench|script|cmake|packaging|completions|build)/[\w.*/-]*\w' "$text" |
        sort -u)
done

# The commands of the README, without the source tree.
commands=0
while IFS= read -r command; do
    commands=$((commands + 1))
    log=$(cd "$scratch" && env -u TEXTCFG_STORE HOME="$scratch" PATH="$prefix/bin:$PATH" bash -c "$command" 2>&1 </dev/null) ||
        found "README.md: $command: status $?: $log"
done < <(sed -n 's/^    \([a-zA-Z].*\)/\1/p' "$documents/README.md")
((commands >= 5)) || found "only $commands commands in the installed README.md"
for text in run changes; do
    [[ -s $scratch/textcfg/$text.txt ]] || found "the commands of README.md wrote no $text.txt"
done
while IFS= read -r verb; do
    grep -qF "\`$verb\`" "$documents/README.md" || found "the installed README.md does not name $verb"
done < <(verbs_of_program)

# What is installed elsewhere first, to be packed, is not on the list.
DESTDIR=$scratch/staged install_to /usr
[[ -x $scratch/staged/usr/bin/textcfg ]] || found "nothing is installed below DESTDIR"
grep -n '^/usr/' "$scratch/tree/installed.txt" && found "the list has files that were installed below DESTDIR"

# Removing: everything, and nothing else; a folder that somebody else uses stays.
touch "$scratch/new/with a blank/share/doc/textcfg/mine"
"$root/script/uninstall" "$scratch/tree" || found "script/uninstall: status $?"
rm "$scratch/new/with a blank/share/doc/textcfg/mine"
rmdir -p --ignore-fail-on-non-empty "$scratch/new/with a blank/share/doc/textcfg" || found "somebody's folder is gone"
[[ $(content) == "$before" ]] || found "left or taken: $(diff <(echo "$before") <(content))"
log=$("$root/script/uninstall" "$scratch/tree" 2>&1) && found "it removes twice"
[[ $log == "script/uninstall: nothing was installed from $scratch/tree" ]] || found "the second time it prints: $log"
[[ -x $scratch/staged/usr/bin/textcfg ]] || found "script/uninstall removed what it did not install"
conclude
