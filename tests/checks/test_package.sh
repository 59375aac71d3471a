#!/bin/bash
# script/test-package uses root's rights for the fresh system alone: what it builds belongs to the owner of the tree.
# Nothing is built here; the commands are replaced by ones that note who called them.
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"

make_scratch
chmod 755 "$scratch"
cd "$scratch" || exit 1

mkdir -p tree/script bin
cp "$root/script/test-package" "$root/script/scratch" tree/script/
# stub FILE COMMAND
stub() {
    printf '#!/bin/bash\n%s\n' "$2" >"$1"
    chmod 755 "$1"
}
stub tree/script/bootstrap ""
# shellcheck disable=SC2016 # expanded when it runs
stub tree/script/build 'mkdir -p "${0%/*}/../build/inspect" && touch "${0%/*}/../build/inspect/textcfg"'
# shellcheck disable=SC2016
stub bin/cpack 'mkdir -p "$2" && touch "$2/textcfg.deb"'
# shellcheck disable=SC2016
stub bin/lintian '[[ ${*: -1} == *.deb ]]'
stub bin/debootstrap 'echo "the end of this check"; exit 1'
stub bin/apt-get "exit 1"
# shellcheck disable=SC2016
stub bin/sudo 'echo "sudo $*"'
export PATH=$scratch/bin:$PATH

if (($(id -u) == 0)); then
    chown -R 65534:65534 tree
    log=$(umask 077 && TMPDIR=$scratch tree/script/test-package 2>&1) && found "it went on after debootstrap failed"
    [[ $log == *"the end of this check" ]] || found "it did not come to the fresh system: $log"
    [[ -e tree/build/package/textcfg.deb ]] || found "there is no package: $log"
    while IFS= read -r file; do found "root owns $file"; done < <(find tree -uid 0)
    shopt -s nullglob
    [[ -z $(echo textcfg.*) ]] || found "it left $(echo textcfg.*)"
else
    log=$(tree/script/test-package 2>&1) || found "status $?"
    [[ $log == "sudo tree/script/test-package" ]] || found "root's rights were not asked for: $log"
fi
conclude
