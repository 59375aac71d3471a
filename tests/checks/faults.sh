#!/bin/bash
# The program over a store and an output path with every fault: its status, its message, and that it leaves no stray or
# partial file and no file changed that it should not touch.
#
#     faults.sh [EMULATOR] PROGRAM
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"

# Root may read and write what nobody may, so root lets somebody else run the program, from where he can reach it.
if (($(id -u) == 0)); then
    command -v setpriv >/dev/null || give_up "there is no setpriv to run the program without root's rights"
    as_somebody=(setpriv --reuid=65534 --regid=65534 --clear-groups --)
fi
make_scratch
cd "$scratch" || exit 1
unset TEXTCFG_STORE
command=("${as_somebody[@]}" "${@:1:$#-1}" "$scratch/textcfg")
cp -- "${!#}" textcfg || give_up "no program"
chmod 755 textcfg
mkdir store out
chmod 777 out
export TEXTCFG_STORE=$scratch/store
about="textcfg: TEXTCFG_STORE=$TEXTCFG_STORE: "

image=262144 board=244
good_store() {
    rm -rf store/* store/.[!.]*
    truncate -s $image store/{running,default,startup,customer_default}.img
    truncate -s $board store/board.img
    # Images differ, so that no verb gets away with another's.
    local file
    for file in running default startup customer_default; do
        printf '%s' "$file" | dd of=store/$file.img bs=1 seek=984 conv=notrunc status=none # the host name
    done
}

# run STATUS STDERR WORD…: runs the program and looks at its status and at what it says; it never speaks on standard
# output here.
run() {
    local expected=$1 message=$2 status=0
    shift 2
    "${command[@]}" "$@" >said 2>err </dev/null || status=$?
    ((status == expected)) || found "$case: status $status, not $expected"
    [[ ! -s said ]] || found "$case: said on standard output: $(cat said)"
    [[ $(cat err) == "$message" ]] || found "$case: expected on standard error: $message; found: $(cat err)"
}
# only FILE…: these and no others lie in the folder of the output.
only() { [[ $(ls -A out) == "$(printf '%s\n' "$@")" ]] || found "$case: in the output's folder: $(ls -A out)"; }

# refused VERB MESSAGE: the run fails, with the message, and touches no file, whether there is one or not.
refused() {
    case="$fault, $1"
    run 255 "$2" "$1" -f out/text
    only
    echo kept >out/text
    chmod 666 out/text
    touch -d '2001-02-03 04:05:06' out/text
    run 255 "$2" "$1" -f out/text
    only text
    [[ $(cat out/text) == kept && $(stat -c %Y out/text) == "$(date -d '2001-02-03 04:05:06' +%s)" ]] ||
        found "$case: a file that was there was touched"
    rm -f out/text
}
# rendered VERB: the run succeeds and writes what it writes over a good store.
rendered() {
    case="$fault, $1"
    run 0 "" "$1" -f out/text
    only text
    cmp -s out/text "good_$1" || found "$case: another text"
    rm -f out/text
}

verbs=(default_config running_config startup_config customer_def_config)
good_store
fault=none
for verb in "${verbs[@]}"; do
    case=$verb
    run 0 "" "$verb" -f out/text
    [[ -s out/text ]] || give_up "$verb writes no text: $(cat err)"
    mv -f out/text "good_$verb"
done
[[ $(md5sum good_* | cut -d' ' -f1 | sort -u | wc -l) == 4 ]] || give_up "two verbs write the same text"

# ---- Files of the store. Which verbs need which: each its image, all of them the default image and the board.
needed_by() {
    case $1 in
    running.img) echo running_config ;;
    startup.img) echo startup_config ;;
    customer_default.img) echo customer_def_config ;;
    *) echo "${verbs[@]}" ;;
    esac
}
for file in {running,startup,customer_default,default,board}.img; do
    size=$image
    [[ $file != board.img ]] || size=$board
    for kind in missing short long empty folder unreadable pipe dangling; do
        good_store
        path=store/$file
        case $kind in
        missing) rm "$path" && what="No such file or directory" ;;
        short) truncate -s -1 "$path" && what="found $((size - 1)) bytes" ;;
        long) truncate -s +1 "$path" && what="found $((size + 1)) bytes" ;;
        empty) : >"$path" && what="found 0 bytes" ;;
        folder) rm "$path" && mkdir "$path" && what="found a folder" ;;
        unreadable) chmod 000 "$path" && what="Permission denied" ;;
        pipe) rm "$path" && mkfifo "$path" && chmod 666 "$path" && what="found something that is not a regular file" ;;
        dangling) rm "$path" && ln -s missing "$path" && what="found a link that leads nowhere" ;;
        esac || give_up "$file could not be made: $kind"
        fault="$file $kind"
        for verb in "${verbs[@]}"; do
            if [[ " $(needed_by "$file") " == *" $verb "* ]]; then
                refused "$verb" "$about$file: $what; expected $size bytes"
            else
                rendered "$verb"
            fi
        done
    done
done

# ---- Settings: needed by every verb, unless they are absent.
good_store
fault="no platform.conf"
rendered running_config
printf '\xef\xbb\xbf# by an editor\r\nactive_bank = 1\r\npassword_encryption\t= none\r\n' >store/platform.conf
fault="platform.conf of an editor"
rendered running_config
for kind in folder unreadable dangling long unknown number encryption; do
    good_store
    path=store/platform.conf message=${about}platform.conf
    case $kind in
    folder) mkdir $path && message+=": found a folder; expected lines of settings" ;;
    unreadable) : >$path && chmod 000 $path && message+=": Permission denied; expected lines of settings" ;;
    dangling) ln -s missing $path && message+=": found a link that leads nowhere; expected lines of settings" ;;
    long)
        truncate -s 65537 $path
        message+=": found 65537 bytes; expected lines of settings, at most 65536 bytes"
        ;;
    unknown)
        printf '\nbank=1\n' >$path
        message+=", line 2: found \"bank=1\"; expected active_bank=N or password_encryption=none or password_encryption=md5"
        ;;
    number)
        echo active_bank=2147483648 >$path
        message+=", line 1: found \"active_bank=2147483648\";"
        message+=" expected a decimal number from -2147483648 to 2147483647 as active_bank"
        ;;
    encryption)
        echo password_encryption=MD5 >$path
        message+=", line 1: found \"password_encryption=MD5\"; expected none or md5 as password_encryption"
        ;;
    esac
    fault="platform.conf $kind"
    for verb in "${verbs[@]}"; do refused "$verb" "$message"; done
done

# ---- The store itself.
good_store
export TEXTCFG_STORE=$scratch/nowhere
fault="no store"
refused running_config "textcfg: TEXTCFG_STORE=$TEXTCFG_STORE: No such file or directory; expected a folder"
export TEXTCFG_STORE=$scratch/textcfg
fault="a store that is a file"
refused running_config "textcfg: TEXTCFG_STORE=$TEXTCFG_STORE: Not a directory; expected a folder"
export TEXTCFG_STORE=$'no\e[31mwhere\n'
fault="a store whose name has control characters"
refused running_config "textcfg: TEXTCFG_STORE=no\\x1b[31mwhere\\x0a: No such file or directory; expected a folder"

# ---- No store: the built-in one is rendered, and nobody takes it for a store of theirs.
case="no store named"
unset TEXTCFG_STORE
run 0 "textcfg: TEXTCFG_STORE is not set: this is the built-in example" running_config -f out/text
mv -f out/text built_in
case="a store without a name"
export TEXTCFG_STORE=
run 0 "textcfg: TEXTCFG_STORE is empty: this is the built-in example" running_config -f out/text
cmp -s out/text built_in || found "$case: another text"
[[ -s built_in ]] || found "no text of the built-in store"
rm -f out/text
export TEXTCFG_STORE=$scratch/store

# ---- The output. Where only that fails, the run does not.
unwritable() {
    case="output $1"
    run 0 "" running_config -f "$1"
}
mkdir out/folder
unwritable out/folder
only folder
[[ -z $(ls -A out/folder) ]] || found "$case: something was written into it"
rmdir out/folder
unwritable out/missing/text
only
unwritable out/
only
mkdir -m 555 readonly
unwritable readonly/text
[[ -z $(ls -A readonly) ]] || found "$case: a file was made"
echo kept >readonly_file
chmod 444 readonly_file
unwritable readonly_file
[[ $(cat readonly_file) == kept ]] || found "$case: it was changed"
unwritable /proc/version
[[ -c /dev/full ]] || give_up "there is no /dev/full"
before=$(stat -c '%F %t %T %a' /dev/full)
unwritable /dev/full
[[ $(stat -c '%F %t %T %a' /dev/full) == "$before" ]] || found "$case: it is another file now"

# A disk that is full at some place of the text: nothing of the text stays, also where an older one stood.
size=$(stat -c %s good_running_config)
((size > 2048)) || give_up "the text is too short"
for blocks in 0 1 $((size / 1024)) $((size / 1024 + 1)); do
    for older in '' 'an older text'; do
        case="disk full after $blocks KiB${older:+, over an older text}"
        [[ -z $older ]] || {
            echo "$older" >out/text
            chmod 666 out/text
        }
        status=0
        (
            trap '' XFSZ
            ulimit -f "$blocks"
            exec "${command[@]}" running_config -f out/text
        ) </dev/null || status=$?
        ((status == 0)) || found "$case: status $status, not 0"
        only text
        if ((blocks * 1024 < size)); then
            [[ ! -s out/text ]] || found "$case: $(stat -c %s out/text) bytes stayed"
        else
            cmp -s out/text good_running_config || found "$case: another text, though there is enough space"
        fi
        rm -f out/text
    done
done

# The same limit without the signal ignored ends the program, and what it allows stays.
case="limit on the size of files"
status=0
{
    (
        ulimit -c 0
        ulimit -f 1
        exec "${command[@]}" running_config -f out/text
    ) </dev/null || status=$?
} 2>/dev/null
((status == 153)) || found "$case: status $status, not 153"
only text
cmp -s out/text <(head -c 1024 good_running_config) || found "$case: $(stat -c %s out/text) bytes stayed, not 1024"
rm -f out/text

# ---- A text that is too long, over a file and without one.
good_store
fault="too many VLANs"
vlan='\x01\x55\x55\x55\x05\x00\x0f\xfevvvvvvvvvvvvvvvvvvvvvvvvvvvvvvvvvvvvvvvvvvvvvv'
for ((i = 0; i < 2077; ++i)); do printf '%b' "$vlan"; done |
    dd of=store/running.img bs=54 seek=8860 oflag=seek_bytes conv=notrunc status=none
case=$fault
for older in '' kept; do
    [[ -z $older ]] || {
        echo "$older" >out/text
        chmod 666 out/text
    }
    status=0
    "${command[@]}" running_config -f out/text >said 2>err || status=$?
    ((status == 255)) || found "$case: status $status, not 255"
    [[ $(cat said) == "$scratch/textcfg: text configuration too long (limit 262143 bytes)" && ! -s err ]] ||
        found "$case: said $(cat said err)"
    if [[ -n $older ]]; then [[ $(cat out/text) == kept ]] || found "$case: the older file was changed"; else only; fi
done
rm -f out/text
fault="too many VLANs in the image of another verb"
rendered startup_config
conclude
