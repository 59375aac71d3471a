#!/bin/bash
# script/bootstrap installs exactly what is missing, and names it where it cannot. Nothing is installed here: it sees
# a folder of commands that only note how they were called.
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"

make_scratch
cd "$scratch" || exit 1
mkdir bin
for tool in bash env dirname chmod; do ln -s "$(command -v "$tool")" bin/; done

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
give='for word; do case $word in cmake | g++) : >"bin/$word" ;; ninja-build) : >bin/ninja ;; esac; done; chmod +x bin/*'

# bootstrap STATUS WORD…
bootstrap() {
    local expected=$1 status=0
    shift
    : >calls
    PATH=$scratch/bin "$root/script/bootstrap" "$@" >out 2>err </dev/null || status=$?
    ((status == expected)) || found "$*: status $status, not $expected: $(cat out err)"
    [[ ! -s out ]] || found "$*: wrote on standard output: $(cat out)"
}
user_is() { command_named id "echo $1"; }

user_is 0
bootstrap 2
bootstrap 2 nonsense
grep -qF nonsense err || found "an unknown group is not named"

# Without apt-get, and without sudo: the packages are named.
bootstrap 1 run
for package in cmake g++ ninja-build; do grep -qF " $package" err || found "without apt-get, $package is not named"; done
command_named apt-get "$note" "$give"
user_is 1000
bootstrap 1 run
for package in cmake g++ ninja-build; do grep -qF " $package" err || found "without sudo, $package is not named"; done
[[ ! -s calls ]] || found "apt-get was called without rights"

# With sudo: the lists first, then what is missing and nothing else, and nobody is asked for a password.
# shellcheck disable=SC2016
command_named sudo "$note" '[[ $1 == -n ]] && shift' '"$@"'
command_named cmake
bootstrap 0 run
grep -q '^sudo -n env DEBIAN_FRONTEND=noninteractive apt-get .*update$' calls || found "no update: $(cat calls)"
grep -q '^apt-get .*install --yes --no-install-recommends g++ ninja-build$' calls || found "not installed: $(cat calls)"

# Again: nothing is left to do.
bootstrap 0 run
[[ ! -s calls && ! -s err ]] || found "with everything there: $(cat calls err)"

# apt-get that fails: what is still missing is named.
rm bin/g++
user_is 0
command_named apt-get "$note" 'exit 100'
bootstrap 1 run
grep -q 'still missing: g++$' err || found "what is missing is not named: $(cat err)"
conclude
