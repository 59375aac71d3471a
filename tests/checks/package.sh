#!/bin/bash
# cpack makes a Debian package that lintian finds no fault with, and whose programs run from where it puts them.
# script/test-package does more: it installs the package on a system of its own.
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"

make_scratch
unset TEXTCFG_STORE

# The list of what the user installed from the tree stays as it is.
list=$root/build/inspect/installed.txt
listed=$(cat "$list" 2>/dev/null)
log=$("$root/script/build" inspect 2>&1 </dev/null &&
    cd "$root/build/inspect" && umask 022 && cpack -B "$scratch/package" 2>&1) || give_up "no package: $log"
package=$(echo "$scratch"/package/*.deb)
[[ -f $package ]] || give_up "no package: $log"
[[ $(cat "$list" 2>/dev/null) == "$listed" ]] || found "the package changed the list of what is installed"

mkdir "$scratch/lintian" # it may leave something there
complaints=$(TMPDIR=$scratch/lintian lintian --allow-root --display-info --tag-display-limit 0 "$package" 2>&1) || found "lintian failed"
[[ ! $complaints ]] || found "lintian: $complaints"

# Where everything is.
dpkg-deb -x "$package" "$scratch/root" || give_up "the package cannot be unpacked"
cd "$scratch/root" || exit 1
for file in usr/bin/textcfg usr/bin/textcfg-store usr/bin/textcfg-inspect usr/share/man/man1/textcfg-inspect.1.gz \
    usr/share/bash-completion/completions/textcfg-inspect usr/share/doc/textcfg/docs/dump.md \
    usr/share/doc/textcfg/docs/inspect-schema.json usr/share/man/man1/textcfg.1.gz usr/share/man/man1/textcfg-store.1.gz \
    usr/share/man/man5/textcfg.5.gz usr/share/doc/textcfg/docs/recipes.md usr/share/doc/textcfg/docs/image.md \
    usr/include/textcfg/textcfg.h usr/include/textcfg/platform/mapi.h usr/include/textcfg/platform/util.h \
    usr/lib/libtextcfg.a usr/share/doc/textcfg/README.md \
    usr/share/doc/textcfg/docs/text.md usr/share/doc/textcfg/copyright usr/share/doc/textcfg/changelog.gz \
    usr/share/doc/textcfg/changelog.Debian.gz usr/share/bash-completion/completions/textcfg \
    usr/share/bash-completion/completions/textcfg-store; do
    [[ -s $file ]] || found "the package has no $file"
done
while IFS= read -r file; do found "not for everybody to read: $file"; done < <(find . ! -perm -444)
echo '#include "platform/mapi.h"
#include "platform/util.h"
int32_t (*operation)(void) = mapi_start_transc;' >"$scratch/user.c"
"${CC:-cc}" -std=c11 -Wall -Werror -Iusr/include/textcfg -c "$scratch/user.c" -o "$scratch/user.o" ||
    found "the installed headers cannot be included"

# It runs, and writes what the build tree's program writes.
usr/bin/textcfg running_config -f "$scratch/installed.txt" || found "the installed program: status $?"
"$root/build/inspect/textcfg" running_config -f "$scratch/built.txt" || found "the built program: status $?"
cmp "$scratch/installed.txt" "$scratch/built.txt" || found "the installed program writes another text"
usr/bin/textcfg-store "$scratch/store" || found "the installed textcfg-store: status $?"
[[ -s $scratch/store/running.img ]] || found "the installed textcfg-store wrote no store"

usr/bin/textcfg-inspect text "$scratch/store" >"$scratch/printed.txt" || found "the installed textcfg-inspect: status $?"
cmp "$scratch/printed.txt" "$scratch/built.txt" || found "the installed textcfg-inspect prints another text"
# libcrypt is loaded by its name, so no tool finds it; the libraries that are linked are found by one.
depends=$(dpkg-deb -f "$package" Depends)
for name in libc6 libcrypt1 libstdc++6; do
    [[ ", $depends" == *", $name"[\ ,]* || ", $depends" == *", $name" ]] ||
        found "the package does not depend on $name: $depends"
done

# One version, one date.
version=$(sed -n 's/^project(.* VERSION \([0-9.]*\) .*/\1/p' "$root/CMakeLists.txt")
[[ $version =~ ^[0-9]+(\.[0-9]+)+$ ]] || give_up "CMakeLists.txt has no version"
same() { [[ $2 == "$3" ]] || found "$1: expected $3, found $2"; }
newest=$(grep '^## ' "$root/CHANGELOG.md" | grep -m 1 -v '^## Unreleased$')
date=$(sed -n 's/.*(\(.*\))$/\1/p' <<<"$newest")
same CHANGELOG.md "$newest" "## $version ($date)"
same "the package" "$(dpkg-deb -f "$package" Version)" "$version-1"
for program in textcfg-store textcfg-inspect; do
    same "$program" "$("usr/bin/$program" --version)" "$program $version"
done
same packaging/changelog "$(dpkg-parsechangelog -l "$root/packaging/changelog" -S Version)" "$version-1"
same packaging/changelog "$(LC_ALL=C date -u -d "$(dpkg-parsechangelog -l "$root/packaging/changelog" -S Date)" +%F)" "$date"
for page in "$root"/docs/*.[1-8]; do
    same "${page##*/}" "$(sed -n 's/^\.Os //p' "$page")" "textcfg $version"
    same "${page##*/}" "$(LC_ALL=C date -u -d "$(sed -n 's/^\.Dd //p' "$page")" +%F)" "$date"
done
conclude
