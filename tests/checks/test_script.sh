#!/bin/bash
# script/test says what it costs before it installs anything, leaves nothing in the folder for temporary files, and runs
# whatever the umask and TMPDIR are. Nothing is built or tested here; the commands are replaced by ones that note how
# they were called.
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"

make_scratch
trap 'chmod -R u+rwx "$scratch"; rm -rf "$scratch"' EXIT
chmod 755 "$scratch"
cd "$scratch" || exit 1
mkdir -p tree/script tree/.ci bin
cp "$root/script/test" "$root/script/scratch" tree/script/
cp "$root/.ci/run" tree/.ci/
# shellcheck disable=SC2016 # expanded when they run
{
    printf '#!/bin/bash\necho "bootstrap $*"\n' >tree/script/bootstrap
    printf '#!/bin/bash\necho "build $*"\nmkdir -p "${0%%/*}/../build/$1"\n' >tree/script/build
    printf '#!/bin/bash\necho "ctest $*"; echo "umask $(umask)"; echo "TMPDIR $TMPDIR"\ntouch "$TMPDIR/made" && %s\n' \
        '{ [[ -n ${LEAVE-} ]] || rm "$TMPDIR/made"; }; exit "${RESULT:-0}"' >bin/ctest
}
chmod 755 tree/script/* bin/ctest
export PATH=$scratch/bin:$PATH

# run STATUS COMMAND…
run() {
    local expected=$1 status=0
    shift
    "$@" >out 2>&1 </dev/null || status=$?
    ((status == expected)) || found "$*: status $status, not $expected: $(cat out)"
}
# line PATTERN: prints the number of the first line of the last run that matches.
line() { grep -nm 1 -e "$1" out | cut -d : -f 1; }
# after PATTERN PATTERN: the second comes after the first.
after() {
    local first second
    first=$(line "$1")
    second=$(line "$2")
    ((${first:-999} < ${second:-0})) || found "expected $1, then $2: $(cat out)"
}

run 0 tree/.ci/run
after ' minutes ' '^bootstrap test$'
after ' GiB of disk' '^bootstrap test$'
after 'touches no other file' '^bootstrap test$'
after '^bootstrap test$' '^build test$'
for tree in test sanitize mips; do [[ -n $(line "^build $tree\$") ]] || found "build/$tree is not built"; done
after '^build mips$' '^ctest '
[[ $(cat out) == *"ctest --test-dir $scratch/tree/build --output-on-failure --no-tests=error -j2"$'\n'* ]] ||
    found "ctest is called otherwise: $(cat out)"
full=$(grep '^build test$' out)
[[ ! -e $(sed -n 's/^TMPDIR //p' out) ]] || found "the folder for temporary files is left"

run 0 tree/script/test -R 'a b'
[[ $(cat out) == *" -j2 -R a b"$'\n'* ]] || found "words do not reach ctest: $(cat out)"

# The native tree alone, the same as in the full run.
run 0 tree/script/test quick -V
after 'minutes' '^bootstrap quick$'
[[ $(grep '^build ' out) == "$full" ]] || found "quick builds $(grep '^build ' out)"
[[ $(cat out) == *"ctest --test-dir $scratch/tree/build/test --label-exclude full "*" -V"$'\n'* ]] ||
    found "ctest is called otherwise: $(cat out)"
packages=$(sed -n '/^    quick)/,/;;/p' "$root/script/bootstrap")
[[ -n $packages ]] || give_up "script/bootstrap has no group quick"
for tool in clang mips qemu lintian; do [[ $packages != *$tool* ]] || found "quick installs $tool"; done

RESULT=7 run 7 tree/script/test
LEAVE=yes run 1 tree/script/test
grep -qx 'script/test: made' out || found "what the tests leave is not named: $(cat out)"

# A umask that shuts others out, and a folder for temporary files that cannot be used.
run 0 bash -c 'umask 077 && tree/script/test'
grep -q '^umask 0022$' out || found "the tests run with $(grep umask out)"
mkdir -p locked/inside none
chmod 755 locked/inside
chmod 700 locked
for folder in "$scratch/none/there" "$scratch/locked/inside"; do
    TMPDIR=$folder run 0 tree/script/test
    used=$(sed -n 's/^TMPDIR //p' out)
    # The locked one is closed to others only.
    [[ $used != "$folder"* ]] || { (($(id -u) != 0)) && [[ $folder == *locked* ]]; } || found "TMPDIR $folder is used"
    [[ -z $(find locked none -mindepth 1 ! -path locked/inside) ]] || found "left in TMPDIR: $(find locked none)"
done
if (($(id -u) == 0)) && mkdir noexec && unshare --mount true 2>/dev/null; then
    # shellcheck disable=SC2016 # expanded when it runs
    unshare --mount bash -c 'mount -t tmpfs -o noexec,mode=755 none noexec && TMPDIR=$PWD/noexec tree/script/test' \
        >out 2>&1 || found "with a TMPDIR in which nothing can be run: $(cat out)"
    used=$(sed -n 's/^TMPDIR //p' out)
    [[ -n $used && $used != "$scratch/noexec"* ]] || found "a TMPDIR in which nothing can be run is used: $used"
fi
conclude
