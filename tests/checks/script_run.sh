#!/bin/bash
# script/run builds once, writes where it is told, says so, and passes the program's status and output on.
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"

scratch=$(mktemp -d) || exit 1
trap 'rm -rf "$scratch"' EXIT
cd "$scratch" || exit 1
unset TEXTCFG_STORE

# run STATUS WORD…: runs the words and looks at the status.
run() {
    local expected=$1 status=0
    shift
    "$root/script/run" "$@" >out 2>err </dev/null || status=$?
    ((status == expected)) || found "script/run $*: status $status, not $expected: $(cat out err)"
}
# says FILE TEXT: the whole of what the last run wrote.
says() { [[ $(cat "$1") == "$2" ]] || found "expected on $1: $2; found: $(cat "$1")"; }

run 0 running_config -f first.txt # may build
[[ -s first.txt ]] || found "no text in the caller's folder"
says out ""
[[ $(tail -n 1 err) == "script/run: the text is in first.txt" ]] || found "the path is not named: $(cat err)"

# From here on nothing may be built, installed or fetched.
mkdir poison
for tool in apt-get sudo cc c++ gcc g++ ccache curl wget; do
    # shellcheck disable=SC2016 # expanded when it runs
    printf '#!/bin/sh\necho "$0 $*" >>%q\nexit 1\n' "$scratch/used" >"poison/$tool"
    chmod +x "poison/$tool"
done
program=$root/build/release/textcfg
before=$(stat -c '%Y %i %s' "$program" "$root/build/release/.ninja_log")
PATH=$scratch/poison:$PATH
run 0 running_config -f second.txt
says out ""
says err "script/run: the text is in second.txt"
[[ ! -e used ]] || found "the second run used: $(cat used)"
[[ $(stat -c '%Y %i %s' "$program" "$root/build/release/.ninja_log") == "$before" ]] || found "the second run built"
cmp -s first.txt second.txt || found "two runs, two texts"

run 0 -f ignored.txt running_config -F "with a blank.txt"
says err "script/run: the text is in with a blank.txt"
[[ -s "with a blank.txt" && ! -e ignored.txt ]] || found "the last path does not win"
run 0 -f -f
says err "script/run: the text is in -f"
run 0 running_config -f missing/folder.txt
says err "script/run: the text could not be written to missing/folder.txt"

run 255 running_config -x
says err ""
grep -qF "textcfg: Invalid option: -x" out || found "the program's message is lost: $(cat out)"
run 255
says err ""

# Without -f the text goes to a fixed place, which may be somebody else's here: only if it is free.
if [[ ! -e /tmp/config && ! -L /tmp/config ]]; then
    run 0 running_config
    says err "script/run: the text is in /tmp/config"
    cmp -s first.txt /tmp/config || found "the text in /tmp/config is another"
    rm -f /tmp/config
fi
conclude
