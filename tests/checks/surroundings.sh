#!/bin/bash
# The tests run in unusual surroundings, leave no files, and touch no /tmp/config: under a umask that gives others
# nothing, with a TMPDIR that others cannot reach, and with a /tmp from which no program runs.
#
#     surroundings.sh PROGRAM UNIT_TESTS…
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"

program=$1
shift
make_scratch

# run_all TEST…: the tests in the surroundings of the caller.
run_all() {
    local log test
    umask 077
    for test in "$@"; do
        log=$("$test" --gtest_brief=1 2>&1 </dev/null) || found "$test: status $?: $log"
    done
    log=$("$root/tests/checks/faults.sh" "$program" 2>&1 </dev/null) || found "faults.sh: status $?: $log"
}

mkdir -p "$scratch/closed/tmp"
chmod 700 "$scratch/closed"
TMPDIR=$scratch/closed/tmp run_all "$@"
[[ -z $(ls -A "$scratch/closed/tmp") ]] || found "left in TMPDIR: $(ls -A "$scratch/closed/tmp")"

# A /tmp of its own, if that can be had and hides nothing that is needed.
case $root/ in
/tmp/*) conclude ;;
esac
unshare -m mount -t tmpfs -o noexec tmpfs /tmp 2>/dev/null || conclude
export -f run_all found
export root program
# shellcheck disable=SC2016 # expanded in there
log=$(unshare -m bash -c '
    mount -t tmpfs -o noexec tmpfs /tmp || exit 1
    echo mine >/tmp/config && touch -d "2001-02-03 04:05:06" /tmp/config || exit 1
    unset TMPDIR
    findings=0
    run_all "$@"
    [[ $(cat /tmp/config) == mine && $(date -r /tmp/config +%Y) == 2001 ]] || found "/tmp/config was touched"
    [[ $(ls -A /tmp) == config ]] || found "left in /tmp: $(ls -A /tmp)"
    exit "$findings"' bash "$@") || found "with a /tmp of its own: $log"
conclude
