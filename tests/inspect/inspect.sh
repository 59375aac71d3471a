#!/bin/bash
# textcfg-inspect as people call it: what it prints, its statuses, and that no secret is in it.
#
#     inspect.sh TEXTCFG_INSPECT
. "$(dirname -- "${BASH_SOURCE[0]}")/../checks/common.sh"

program=$1
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
status=0
"$program" text builtin:running >/dev/full 2>err || status=$?
((status == 2)) || found "a full output: status $status"
says err '^textcfg-inspect: standard output: '

# JSON is as docs/inspect-schema.json says.
for words in '' --all '--all --secrets' --changed 'ports[3] lacp.key[2]' '--at 4940'; do
    # shellcheck disable=SC2086 # words
    call 0 show builtin:running --json $words
    /usr/bin/python3 - "$root/docs/inspect-schema.json" out <<'PYTHON' || found "show --json $words is not as the schema says"
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
done
conclude
