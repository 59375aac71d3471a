#!/bin/bash
# textcfg-inspect as people call it: what it prints, its statuses, and that no secret is in it.
#
#     inspect.sh TEXTCFG_INSPECT TEXTCFG TEXTCFG_STORE SIZED_STORES
. "$(dirname -- "${BASH_SOURCE[0]}")/../checks/common.sh"

program=$1
textcfg=$2
store_program=$3
sized_stores=$4
scratch=$(mktemp -d) || exit 1
trap 'rm -rf "$scratch"' EXIT
cd "$scratch" || exit 1

# call STATUS WORD…
call() {
    local expected=$1 status=0
    shift
    "$program" "$@" >out 2>err || status=$?
    ((status == expected)) || found "$*: status $status, not $expected: $(head -c 300 err)"
}
# says FILE PATTERN: a line of out or err is like this.
says() { grep -qe "$2" "$1" || found "no line of $1 is like $2: $(head -c 300 "$1")"; }

call 0 --version
says out '^textcfg-inspect [0-9.]*$'
for words in --help 'text --help' 'show --help' 'explain --help' 'annotate --help'; do
    # shellcheck disable=SC2086 # words
    call 0 $words
    says out '^Usage: '
done
for words in '' nonsense show text 'show nowhere' 'show builtin:running --nonsense' 'text builtin:running further' \
    'show builtin:running nonsense' 'show builtin:running --at 262144' 'show builtin:running --at x' \
    'explain builtin:running' 'explain builtin:running 9999' 'explain builtin:running nonsense' \
    'explain builtin:running /(/' 'explain builtin:running --field nonsense' 'explain builtin:running 1 --field pppoe.enabled' \
    'annotate builtin:running --nonsense' \
    'text builtin:running --md5 maybe' 'text builtin:running --bank x' 'show builtin:running --offset -1'; do
    # shellcheck disable=SC2086 # words
    call 2 $words
    [[ ! -s out ]] || found "$words: wrote on standard output"
    says err '^textcfg-inspect: '
done

commands=$("$program" --help | sed -n '/^Subcommands:/,$ s/^  \([a-z]*\) .*/\1/p' | paste -sd , |
    sed 's/,/, /g; s/\(.*\), /\1 or /')
for words in foo help 'foo show builtin:running' 'help --help'; do
    # shellcheck disable=SC2086 # words
    call 2 $words
    says err "^textcfg-inspect: ${words%% *}: there is no such command; expected $commands\$"
done
call 2 ''
says err '^textcfg-inspect: "": there is no such command; '

# Fields, one line each.
call 0 show builtin:running 'ports[3].speed'
printf 'ports[3].speed                      3 automatic                       4940  0x0134c\n' | cmp -s - out ||
    found "not as expected: $(cat out)"
call 0 show builtin:running --at 0x134f
says out '^ports\[3\].speed '
call 0 show builtin:running 'trunks[14].name'
says out '^trunks\[14\].name  '
call 0 show builtin:running 'trunks*'
grep -q '^trunks\[14\]' out && found "an entry that is not in use is shown"
call 0 show builtin:running 'trunks*' --all
says out '^trunks\[14\].members  *-  '
call 0 show builtin:running --changed
says out '^equals default  *no$'
says out '^company.hostName  '
grep -q '^board\.' out && found "the board record is compared with nothing"
call 0 show builtin:default --changed
says out '^equals default  *yes$'
grep -q '0x0' out && found "the default image differs from itself"

# Secrets are shown only where they are asked for.
password=$("$program" show builtin:running 'users[1].password' --secrets | sed 's/^[^"]*"\(.*\)".*$/\1/')
[[ $password ]] || found "the built-in example has no password"
for words in '' --all --json '--all --json' --changed; do
    # shellcheck disable=SC2086 # words
    call 0 show builtin:running $words
    grep -qF -- "$password" out && found "show $words: prints a secret"
done

# Where lines come from.
call 0 explain builtin:running 'mac address-table aging-time 600'
printf '%s\n' 'line 1: mac address-table aging-time 600' \
    '  emitter  convConfigSwitchConfig_SwitchConfig_configure_mac' \
    '  field    switchConfig.macAgingTime = 600  (4 bytes at 126376, 0x1eda8: 00000258)' >expected
sed 's/^line [0-9]*/line 1/' out | cmp -s expected - || found "not as expected: $(cat out)"
call 0 explain builtin:running 1 '/^ntp time-zone/' '/^configure$/'
says out '^line 1: # VERSION 5036 6000 V2.4.1 MAC 00:00:5e:00:53:01$'
says out '^  emitter  header$'
says out '^  field    platform.active_bank = 1$'
says out '^  field    time.timeZone = '
says out '^  no field changes this line$'
call 0 explain builtin:running --delta '/^spanning-tree priority/'
says out '^  field    stp.priority = [0-9]*, default [0-9]*  (4 bytes at 146760, 0x23d48: [0-9a-f]*)$'
call 0 explain builtin:running '/^no user name operator/'
says out '^  field    default users\[2\].name = "operator"'
call 0 explain builtin:running --field 'remarking.dscp[1].marker'
says out '^no line expresses this field$'
call 0 explain builtin:running --field pppoe.enabled
says out '^full mode, convConfigPPPoEConfig_PPPoEConfig_configure_ip_pppoe$'
says out '^delta mode, convConfigPPPoEConfig_PPPoEConfig_configure_ip_pppoe$'
for words in '' --json --delta '--delta --json'; do
    # shellcheck disable=SC2086 # words
    call 0 annotate builtin:running $words
    grep -qF -- "$password" out && found "annotate $words: prints a secret"
    mv out first
    # shellcheck disable=SC2086 # words
    call 0 annotate builtin:running $words
    cmp -s first out || found "annotate $words: not the same twice"
done
for words in '' --json; do
    # shellcheck disable=SC2086 # words
    call 0 annotate builtin:running $words --secrets
    grep -qF -- "$password" out || found "annotate $words --secrets: masks a secret"
done
call 0 explain builtin:running --field 'users[1].password'
grep -qF -- "$password" out && found "explain --field: prints a secret"
call 0 explain builtin:running --field 'users[1].password' --secrets
grep -qF -- "$password" out || found "explain --field --secrets: masks a secret"
# Every line is there, in its order; blanks at the end of lines too.
call 0 annotate builtin:running
sed -n 's/^[0-9][0-9]*  //p' out >lines
"$program" text builtin:running >whole
(($(wc -l <lines) == $(wc -l <whole))) || found "annotate: other lines than the text has"
grep -v -e secret -e community -e password -e archive -e radius -e tacacs whole | sort -u >plain
[[ ! $(sort -u lines | comm -13 - plain) ]] || found "annotate lacks lines: $(sort -u lines | comm -13 - plain)"
call 0 annotate builtin:running --json
/usr/bin/python3 - out <<'PYTHON' || found "annotate --json is not as expected"
import json
import sys

document = json.load(open(sys.argv[1], encoding="utf-8"))
lines = document["lines"]
assert document["mode"] == "full" and document["secrets"] == "masked"
assert [line["number"] for line in lines] == list(range(1, len(lines) + 1))
# The header's second line and the frames of remarking entries are there whatever the record holds.
maps = [f"qos remarking {kind}-map {number}" for kind in ("dscp", "802.1p") for number in range(1, 9)]
framed = ["configure"] + [text for map in maps for text in (map, "exit")]
assert [line["text"] for line in lines if not line["fields"]] == framed, "other lines have no fields"
aging = next(line for line in lines if line["text"].startswith("mac address-table aging-time"))
assert aging["fields"] == [{"record": "current", "path": "switchConfig.macAgingTime", "offset": 126376, "size": 4,
                            "bytes": "00000258", "value": 600}], aging
PYTHON

# An image without anything next to it: fields can be shown, a text needs more.
head -c 262144 /dev/zero >zero.img
call 0 show zero.img
call 0 show - <zero.img
call 2 show - </dev/null
says err '^textcfg-inspect: standard input: found 0 bytes; expected 262144 bytes$'
call 2 show - < <(cat zero.img zero.img)
says err '^textcfg-inspect: standard input: found more than 262144 bytes; expected 262144 bytes$'
call 2 text zero.img
says err 'zero.img: found no default.img next to it'
call 0 text zero.img --default builtin:default --board builtin:board --bank 1 --md5 no
says err "default: the built-in example's"

# Readers that leave, and outputs that are full.
"$program" show builtin:running --all --json | head -n 1 >/dev/null
status=${PIPESTATUS[0]}
((status == 141)) || found "a reader that leaves: status $status, not that of SIGPIPE"
# The text of the largest store does not fit into a pipe: the reader leaves before all of it is written.
mkdir largest
"$sized_stores" largest largest || found "no largest store"
call 0 text largest --bank 1 --md5 no
(($(stat -c %s out) > 131072)) || found "the largest text is small: $(stat -c %s out) bytes"
"$program" text largest --bank 1 --md5 no 2>err | head -n 1 >/dev/null
status=${PIPESTATUS[0]}
((status == 141)) || found "text, a reader that leaves: status $status, not that of SIGPIPE"
[[ ! -s err ]] || found "text, a reader that leaves: $(head -c 300 err)"
"$program" text builtin:running 2>err | head -n 1 >/dev/null
status=${PIPESTATUS[0]}
((status == 0 || status == 141)) || found "a short text, a reader that leaves: status $status"
[[ ! -s err ]] || found "a short text, a reader that leaves: $(head -c 300 err)"
status=0
"$program" text builtin:running >/dev/full 2>err || status=$?
((status == 2)) || found "a full output: status $status"
says err '^textcfg-inspect: standard output: '

# Differences.
call 0 diff builtin:running builtin:running
[[ ! -s out && ! -s err ]] || found "equal images have differences"
call 1 diff builtin:startup builtin:running
says out '^users\[4\].name  *"" -> "trainee"  *2184  0x00888$'
says out '^macLimit.portMaximum\[8\] .* (no line)$'
says out '^Delta lines alone do not always turn OLD into NEW: '
call 1 diff builtin:startup builtin:running --commands
[[ $(head -n 1 out) == configure ]] || found "diff --commands prints more than lines: $(head -n 1 out)"
says out '^ntp server2 198.51.100.11$'
call 0 diff --help
says out '^ *--commands .*; of two folders, for their running images$'
call 2 diff builtin:startup
call 2 diff builtin:startup nowhere
call 2 diff builtin:startup builtin:running --commands --json

# Records without secrets.
call 0 mask builtin:running -o masked.img
[[ $(stat -c %s masked.img) == 262144 ]] || found "mask: not a whole image"
grep -qF -- "$password" masked.img && found "mask: leaves a secret"
call 2 mask builtin:running -o masked.img
says err 'masked.img: found something of this name; expected a name that is free$'
call 2 mask nowhere -o new.img
[[ ! -e new.img ]] || found "mask: leaves a file after a failure"
call 0 text builtin:running --mask
grep -qF -- "$password" out && found "text --mask: prints a secret"

# The text is the one that textcfg writes, byte for byte, for every verb.
"$store_program" "$scratch/store" >/dev/null || found "no store"
# Another store: its running image has bytes of another.
cp -r store changed
dd if=store/customer_default.img of=changed/running.img bs=4096 skip=2 seek=2 count=30 conv=notrunc status=none
for store in store changed; do
    for verb in $(verbs_of_program); do
        words=()
        [[ $verb == *_delta* ]] && words+=(--delta)
        [[ $verb == *_page ]] && words+=(--page)
        image=${verb%_page}
        image=${image%_delta}
        image=${image%_config}
        [[ $image == customer_def ]] && image=customer_default
        TEXTCFG_STORE=$scratch/$store "$textcfg" "$verb" -f "$scratch/text" || found "textcfg $verb: failed"
        call 0 text "$store:$image" "${words[@]}"
        cmp -s text out || found "text $store:$image ${words[*]} is not what textcfg $verb writes"
        rm -f text
    done
done

# JSON is as docs/inspect-schema.json says.
as_schema() {
    /usr/bin/python3 - "$root/docs/inspect-schema.json" out <<'PYTHON' || found "$* is not as the schema says"
import json
import sys

import jsonschema

schema, document = (json.load(open(name, encoding="utf-8")) for name in sys.argv[1:])
jsonschema.Draft7Validator.check_schema(schema)
errors = list(jsonschema.Draft7Validator(schema).iter_errors(document))
for error in errors[:5]:
    print(list(error.path), error.message[:200])
sys.exit(bool(errors))
PYTHON
}
some='time users trunks lacp timeRanges portFilters board platform'
for words in '' "--all $some" "--all --secrets $some" --changed 'ports[3] lacp.key[2]' '--at 4940'; do
    # shellcheck disable=SC2086 # words
    call 0 show builtin:running --json $words
    as_schema "show --json $words"
done
sed -i s/none/md5/ changed/platform.conf
printf 'x' | dd of=changed/board.img bs=1 seek=200 conv=notrunc status=none
printf 'x' | dd of=changed/startup.img bs=1 seek=30 conv=notrunc status=none
for words in '' '--delta --secrets'; do
    # shellcheck disable=SC2086 # words
    call 0 annotate store --json $words
    as_schema "annotate --json $words"
done
rm changed/customer_default.img
cp -r store other
cp changed/startup.img other
call 1 diff store other
says out '^startup:$'
call 0 diff store other --commands
[[ ! -s out ]] || found "diff --commands of folders compares more than the running images: $(head -n 1 out)"
for words in 'builtin:startup builtin:running' 'store changed' 'store changed --secrets' 'zero.img store:running' \
    'store:running zero.img --secrets'; do
    # shellcheck disable=SC2086 # words
    call 1 diff --json $words
    as_schema "diff --json $words"
done

# Problems of records: one line each, status 1; trouble with one record leaves the others checked.
call 0 check builtin:default
[[ ! -s out && ! -s err ]] || found "the default image has a finding: $(cat out err)"
call 1 check builtin:default builtin:running
says out '^builtin:running: vlanMode at 7856 (0x01eb0): warning not-recreated: found 3 .*; expected 2: '
call 0 check builtin:running --ignore not-recreated --ignore text-unterminated
[[ ! -s out ]] || found "rules that are ignored find something: $(cat out)"
call 2 check nowhere.img builtin:running
says out '^builtin:running: '
says err '^textcfg-inspect: nowhere.img: '
for words in check 'check builtin:default --ignore nonsense' 'check builtin:default --bank x'; do
    # shellcheck disable=SC2086 # words
    call 2 $words
    [[ ! -s out ]] || found "$words: wrote on standard output"
done
call 1 check zero.img
says out '^zero.img: image: error record-zero: found every byte is 0; '
call 1 check - <zero.img
says out '^-: image: error record-zero: '
mkdir broken
head -c 262144 /dev/zero | tr '\0' '\377' >broken/running.img
cp zero.img broken/default.img
printf 'active_bank=7\n' >broken/platform.conf
printf 'short' >broken/board.img
call 2 check broken
says out '^broken: image: error record-erased: '
says out '^broken/platform.conf: platform.active_bank: warning bank-unknown: found 7; expected 1 or 2$'
says err '^textcfg-inspect: broken/board.img: found 5 bytes; expected 244 bytes$'
call 0 check --list
says out '^vlan-duplicate  *error  *[a-z]'
rules=$(wc -l <out)
((rules >= 28)) || found "check --list: $rules rules"

# An injected line is shown, but not out of a secret.
/usr/bin/python3 - "$program" >injected.img <<'PYTHON'
import subprocess
import sys

image = bytearray(262144)
def put(path, text):
    line = subprocess.run([sys.argv[1], "show", "builtin:running", path], capture_output=True, check=True).stdout
    offset = int(line.split()[-2])
    image[offset:offset + len(text)] = text

put("company.systemName", b"a\nno user admin")
put("users[1].inUse", b"\1")
put("users[1].password", b"x\nuser evil")
sys.stdout.buffer.write(image)
PYTHON
call 1 check injected.img
says out '^injected.img: company.systemName at [0-9]* (0x[0-9a-f]*): error text-injected-line: found '
says out 'found the line "no user admin"; '
says out '^injected.img: users\[1\].password at .*: error text-injected-line: found the line "\*\*\*"; '
grep -q 'evil' out && found "check prints a secret"
call 1 check injected.img --secrets
says out 'found the line "user evil"; '

# Memory does not grow with the number of records.
peak() { /usr/bin/python3 -c '
import resource, subprocess, sys
subprocess.run(sys.argv[1:], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
print(resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss)' "$@"; }
mapfile -t many < <(yes injected.img | head -n 1000)
few_size=$(peak "$program" check "${many[@]:0:10}")
many_size=$(peak "$program" check "${many[@]}")
((many_size < few_size + 2048)) || found "1000 records take $many_size KiB, 10 take $few_size KiB"

for words in 'builtin:running builtin:default zero.img injected.img nowhere.img broken' --list; do
    # shellcheck disable=SC2086 # words
    "$program" check --json $words >out 2>err
    as_schema "check --json $words"
done
conclude
