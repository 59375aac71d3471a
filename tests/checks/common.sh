# Shared by the checks; to be sourced. A check prints what it found and fails at its end if that is anything.
# shellcheck shell=bash
set -u
umask 022

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/../.." && pwd -P)
findings=0

# Reports one finding and goes on.
found() {
    echo "$*"
    findings=$((findings + 1))
}

# To be called last.
conclude() {
    if ((findings)); then
        echo "$findings found"
        exit 1
    fi
    exit 0
}

# Gives up: the check itself could not be made.
give_up() {
    echo "$*"
    exit 1
}

# The words before a command that somebody else is to run, from the scratch folder.
as_somebody=()

# Sets `scratch` to a new folder, which goes when the check ends. Programs can run there, which is not so below every
# TMPDIR.
make_scratch() {
    local place
    for place in "${TMPDIR:-/tmp}" /tmp /var/tmp "$root/build"; do
        scratch=$(mktemp -d "$place/textcfg-check-XXXXXX" 2>/dev/null) || continue
        trap 'rm -rf "$scratch"' EXIT
        if ((${#as_somebody[@]})); then chmod 755 "$scratch"; fi
        printf '#!/bin/sh\n' >"$scratch/probe"
        chmod 755 "$scratch/probe"
        if "${as_somebody[@]}" "$scratch/probe" 2>/dev/null; then
            rm "$scratch/probe"
            return
        fi
        rm -rf "$scratch"
    done
    give_up "no folder in which programs can run"
}

# Prints the verbs of the program, a line each, in their order.
verbs_of_program() { sed -n 's/^ *{"\([a-z_]*\)", MAPI_CONFIG_.*/\1/p' "$root/app/verbs.h"; }

# Sets `files` to the files of the project whose path matches one of the given patterns: those that git knows, or
# outside of a git tree all that are there.
files_like() {
    local file pattern
    files=()
    while IFS= read -r -d '' file; do
        [[ -f $root/$file ]] || continue
        for pattern in "$@"; do
            # shellcheck disable=SC2053 # a pattern is meant
            if [[ $file == $pattern ]]; then
                files+=("$file")
                break
            fi
        done
    done < <(git -C "$root" ls-files -z 2>/dev/null ||
        (cd "$root" && find . \( -path ./build -o -path ./.git \) -prune -o -type f -printf '%P\0'))
    ((${#files[@]})) || give_up "no file is like $*"
}
