#!/bin/bash
# script/run builds once, writes where it is told, says so, and passes the program's status and output on.
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"

make_scratch
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
# With a store named, the program itself has nothing to say.
export TEXTCFG_STORE=$scratch/store
"$root/build/release/platform/host/textcfg-store" "$TEXTCFG_STORE" || give_up "no store could be written"

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

run 0 -F "with a blank.txt" running_config
says err "script/run: the text is in with a blank.txt"
[[ -s "with a blank.txt" ]] || found "the path is not passed on as it is"
run 0 -f -f
says err "script/run: the text is in -f"
run 0 running_config -f missing/folder.txt
says err "script/run: the text could not be written to missing/folder.txt"

run 255 running_config -x
says err ""
grep -qF "textcfg: Invalid option: -x" out || found "the program's message is lost: $(cat out)"
run 255
says err ""

# Which path is named, and which status is passed on, whatever the program: here one that does nothing.
mkdir -p copy/script copy/build/release
cp "$root/script/run" copy/script/
printf '#!/bin/sh\nexit 0\n' | tee copy/script/bootstrap copy/script/build >/dev/null
# shellcheck disable=SC2016 # expanded when it runs
printf '#!/bin/sh\nexit "${RESULT:-0}"\n' >copy/build/release/textcfg
chmod +x copy/script/* copy/build/release/textcfg
names() {
    local path=$1
    shift
    copy/script/run "$@" >out 2>err </dev/null || found "$*: status $?"
    [[ $(cat err) == "script/run: the text "*" $path" ]] || found "$*: expected $path to be named; found: $(cat err)"
}
names /tmp/config
names /tmp/config running_config
names /tmp/config -f ""
names b.txt -f a.txt running_config -F b.txt
names -F -f -F
names x -fanything x
status=0
RESULT=7 copy/script/run running_config 2>err || status=$?
((status == 7)) || found "status $status, not the program's 7"
says err ""
conclude
