#!/bin/bash
# script/bootstrap installs exactly what is missing, and names it where it cannot. Nothing is installed here: it sees
# a folder of commands that only note how they were called.
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"

make_scratch
cd "$scratch" || exit 1
mkdir bin script
cp "$root/script/bootstrap" script/
for tool in bash env dirname chmod chown mkdir; do ln -s "$(command -v "$tool")" bin/; done

# command_named NAME LINE…: a command of the folder.
command_named() {
    local name=$1
    shift
    printf '%s\n' '#!/bin/bash' "$@" >"bin/$name"
    chmod +x "bin/$name"
}
# shellcheck disable=SC2016 # expanded when they run
note='echo "${0##*/} $*" >>calls'
# shellcheck disable=SC2016
cost='case $* in *assume-no*) echo "Need to get 12 MB of archives."
echo "After this operation, 34 MB of additional disk space will be used."; exit 1 ;; esac'
# shellcheck disable=SC2016
print='case $* in *update*) echo "a line of apt-get update" ;; *install*) echo "a line of apt-get install" ;; esac'
# shellcheck disable=SC2016
give='for word; do case $word in cmake | g++) : >"bin/$word" ;; ninja-build) : >bin/ninja ;; esac; done; chmod +x bin/*'

# bootstrap STATUS WORD…
bootstrap() {
    local expected=$1 status=0
    shift
    : >calls
    PATH=$scratch/bin script/bootstrap "$@" >out 2>err </dev/null || status=$?
    ((status == expected)) || found "$*: status $status, not $expected: $(cat out err)"
    [[ ! -s out ]] || found "$*: wrote on standard output: $(cat out)"
}
user_is() { command_named id "echo $1"; }

# One that does not wait.
command_named sleep

user_is 0
bootstrap 2
bootstrap 2 nonsense
grep -qF nonsense err || found "an unknown group is not named"

# Without apt-get, and without sudo: the packages are named.
bootstrap 1 run
for package in cmake g++ ninja-build; do grep -qF " $package" err || found "without apt-get, $package is not named"; done
command_named apt-get "$note" "$cost" "$print" "$give"
user_is 1000
bootstrap 1 run
for package in cmake g++ ninja-build; do grep -qF " $package" err || found "without sudo, $package is not named"; done
[[ ! -s calls ]] || found "apt-get was called without rights"

# With sudo: the lists first, then what is missing and nothing else, and nobody is asked for a password.
# shellcheck disable=SC2016
command_named sudo "$note" '[[ $1 == -n ]] && shift' '"$@"'
command_named cmake
bootstrap 0 run
grep -q '^sudo -n env DEBIAN_FRONTEND=noninteractive LC_ALL=C apt-get .*update$' calls || found "no update: $(cat calls)"
grep -q '^apt-get .*install --yes --no-install-recommends g++ ninja-build$' calls || found "not installed: $(cat calls)"

# What it costs is said in the one line that comes before the installation; the rest is in a file.
expected="script/bootstrap: installing g++ ninja-build. Need to get 12 MB of archives. After this operation, 34 MB of"
expected+=" additional disk space will be used. What apt-get prints is in $scratch/build/bootstrap.log"
[[ $(cat err) == "$expected" ]] || found "expected: $expected; found: $(cat err)"
[[ $(cat build/bootstrap.log) == "a line of apt-get update"$'\n'"a line of apt-get install" ]] ||
    found "apt-get's lines are not in the file: $(cat build/bootstrap.log)"

# Again: nothing is left to do.
bootstrap 0 run
[[ ! -s calls && ! -s err ]] || found "with everything there: $(cat calls err)"

# Another apt-get that holds a lock is waited for, whichever of them it is.
rm bin/g++
user_is 0
# shellcheck disable=SC2016
command_named apt-get "$note" 'case $* in *assume-no*) exit 1 ;; esac' 'echo >>tries; mapfile -t tries <tries' \
    '((${#tries[@]} > 3)) || { echo "E: Could not get lock /var/lib/apt/lists/lock. It is held by process 1"; exit 100; }' \
    "$give"
bootstrap 0 run
grep -q '^script/bootstrap: waiting for another apt-get$' err || found "the wait is not told: $(cat err)"
grep -q -- '-o DPkg::Lock::Timeout=[1-9][0-9]* update' calls || found "dpkg's lock is not waited for: $(cat calls)"
(($(grep -c ' update$' calls) == 4)) || found "update was not tried until the lock was free: $(cat calls)"

# apt-get that fails: its reason is shown, and what is still missing is named.
rm bin/g++
command_named apt-get "$note" 'echo "E: no such thing" >&2' 'exit 100'
bootstrap 1 run
grep -q 'still missing: g++$' err || found "what is missing is not named: $(cat err)"
grep -qx '    E: no such thing' err || found "apt-get's reason is lost: $(cat err)"

# A tree that cannot be written: what apt-get prints is shown.
rm -rf build
: >build
command_named apt-get "$note" "$cost" "$print" "$give"
bootstrap 0 run
grep -qx "a line of apt-get install" err || found "apt-get's lines are lost: $(cat err)"
conclude
