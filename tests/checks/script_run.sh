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

# What the program does not understand it says itself, and its status is kept.
run 255 running_config -x
says err ""
grep -qF "textcfg: Invalid option: -x" out || found "the program's message is lost: $(cat out)"
run 255
says err ""

# What it would ignore or take for something else stops before it runs.
mapfile -t verbs < <(verbs_of_program)
((${#verbs[@]} == 16)) || give_up "${#verbs[@]} verbs in app/verbs.h"
for word in runing_config running "" "running_config "; do
    run 2 "$word" -f refused.txt
    says out ""
    says err "script/run: '$word' is neither a verb nor an option; the verbs are
$(printf '    %s\n' "${verbs[@]}")"
    run 2 -f refused.txt "$word"
done
run 2 -frefused.txt running_config
says err "script/run: -frefused.txt running_config would write to a file named running_config; write -f refused.txt running_config"
[[ ! -e refused.txt && ! -e running_config ]] || found "a refused word did not stop the program"
for verb in "${verbs[@]}"; do
    run 0 "$verb" -f "of $verb"
    says err "script/run: the text is in of $verb"
done

# What is not written is status 1, whatever lies there.
run 1 running_config -f missing/folder.txt
says err "script/run: the text could not be written to missing/folder.txt"
mkdir folder
run 1 running_config -f folder
says err "script/run: the text could not be written to folder, which is a folder"
python3 -c 'import socket; socket.socket(socket.AF_UNIX).bind("socket")'
run 1 running_config -f socket
says err "script/run: the text could not be written to socket, which is a socket"
mkfifo pipe
timeout 60 cat pipe >received &
run 0 running_config -f pipe
says err "script/run: pipe is a pipe: only its reader can tell whether the text arrived"
wait $!
cmp -s received first.txt || found "the pipe's reader received another text"
run 0 running_config -f /dev/null
says err "script/run: /dev/null is a device: whether the text arrived cannot be seen from here"
run 0 running_config -f /dev/stdout
says err "script/run: the text is in /dev/stdout"
cmp -s out first.txt || found "standard output received another text"
ln -s linked.txt link
run 0 running_config -f link
says err "script/run: the text is in link"
cmp -s linked.txt first.txt || found "the link's file has another text"

# Which path is named, and which status is passed on, whatever the program: here one that does nothing.
mkdir -p copy/{script,build/release,app,format,platform,sections}
cp "$root/script/run" copy/script/
cp "$root/app/verbs.h" copy/app/
touch copy/CMakeLists.txt
printf '#!/bin/sh\nexit 0\n' | tee copy/script/bootstrap copy/script/build >/dev/null
# shellcheck disable=SC2016 # expanded when it runs
printf '#!/bin/sh\nexit "${RESULT:-0}"\n' >copy/build/release/textcfg
chmod +x copy/script/* copy/build/release/textcfg
names() {
    local path=$1
    shift
    copy/script/run "$@" >out 2>err </dev/null
    [[ $(cat err) == "script/run: the text "*" $path"* ]] || found "$*: expected $path to be named; found: $(cat err)"
}
names /tmp/config
names /tmp/config running_config
names /tmp/config -f ""
names b.txt -f a.txt running_config -F b.txt
names -F -f -F
names x -fanything x

# A file that was there before is not taken for a new one, an empty one not for a text.
echo old >old.txt
: >empty.txt
run_copy() {
    local expected=$1 message=$2 status=0
    shift 2
    copy/script/run "$@" >out 2>err </dev/null || status=$?
    ((status == expected)) || found "$*: status $status, not $expected"
    says err "$message"
}
run_copy 1 "script/run: the text could not be written to old.txt; the file is as it was before" running_config -f old.txt
run_copy 1 "script/run: the text could not be written to empty.txt; the file is empty" running_config -f empty.txt
run_copy 1 "script/run: the text could not be written to none.txt" running_config -f none.txt
status=0
RESULT=7 copy/script/run running_config 2>err || status=$?
((status == 7)) || found "status $status, not the program's 7"
says err ""

# Who may not write to the build tree runs the program that is there; nothing is installed or built.
printf '#!/bin/sh\nexit 99\n' | tee copy/script/bootstrap >copy/script/build
# shellcheck disable=SC2016 # expanded when it runs
printf '#!/bin/sh\necho "$*" >"$3"\n' >copy/build/release/textcfg
touch -d '2001-02-03' copy/CMakeLists.txt copy/app/* copy/format copy/platform copy/sections copy/app
mkdir theirs
chmod 777 theirs
chmod 755 . copy copy/script copy/app copy/build copy/script/* copy/build/release/textcfg
chmod 644 copy/app/verbs.h copy/CMakeLists.txt
chmod 555 copy/build/release
second_user=()
if (($(id -u) == 0)); then
    second_user=(setpriv --reuid=65534 --regid=65534 --clear-groups --)
    owner=$(stat -c %U copy/build/release/textcfg)
else
    owner=$(id -un)
fi
as_second_user() {
    (cd theirs && "${second_user[@]}" ../copy/script/run running_config -f "$1" >../out 2>../err </dev/null) ||
        found "a second user: status $?"
}
if "${second_user[@]}" test -x copy/script/run; then
    as_second_user theirs.txt
    says err "script/run: the text is in theirs.txt"
    touch -d 'now + 1 hour' copy/app/verbs.h
    as_second_user again.txt
    says err "script/run: app/verbs.h is newer than the program, which only $owner can build
script/run: the text is in again.txt"
fi
chmod 755 copy/build/release
conclude
