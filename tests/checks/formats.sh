#!/bin/bash
# formats.sh COMPILER: a format that does not fit its arguments does not compile. Each line is an append of a file of
# its own; the first ones must compile, so that the others are refused for their format and nothing else.
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"

compiler=$1
folder=$(mktemp -d) || exit 1
trap 'rm -rf "$folder"' EXIT

cat >"$folder/format.h" <<'CODE'
#include "app/text/text.h"
#include "format/port_set.h"
#include "format/section_lines.h"
#include "platform/image.h"
#define PARAMETERS \
    const User &user, const AclRule &rule, const be32 &word, const char *text, const int *pointer, int number, \
        PortSet ports, EachPort each, const SectionLines<PoeConfig> &poe, const SectionLines<StpPorts> &stp
#define USE use(user, rule, word, text, pointer, number, ports, each, poe, stp)
template <class... Things> void use(const Things &...) {}
CODE

# compile STATEMENT…: compiles a file in which each statement is a line and a function of its own, with what an emitter
# has at hand. The compiler's messages are left in a file.
compile() {
    local statement number=0
    echo '#include "format.h"' >"$folder/format.cpp"
    for statement in "$@"; do
        echo "void emit$((number++))(PARAMETERS) { USE; $statement; }"
    done >>"$folder/format.cpp"
    LC_ALL=C "$compiler" -std=c++20 -fsyntax-only -fmax-errors=0 -I"$root" "$folder/format.cpp" 2>"$folder/errors"
}

mapfile -t fits <<'FITS'
append("a\n")
append("a %d\n", number)
append("a %ld\n", word)
append("a %02d\n", number)
append("a %u %X %02X %02x\n", number, number, number, number)
append("a %s\n", text)
append("a %s %d\n", user.name, user.level)
append("a %s\n", "b")
append("a %02X:%02X:%02X:%02X:%02X:%02X\n", rule.sourceMac)
append("a %d.%d.%d.%d\n", rule.source)
append("a %s \n", ports)
append("a %s\n", each)
append("a %d %s\n", number, ports)
poe.append("a\n")
poe.append({"a \n", "a\n"})
poe.append({"a\n", "a  \n"})
poe.append({"a %s %d \n", "a %s %d\n"}, ports, number)
poe.onOff(&PoeConfig::enabled, {"a \n", "a\n"}, "no a\n")
poe.value(&PoeConfig::alarmThreshold, {"a %d \n", "a %d\n"})
stp.blocks(&StpPorts::enabled, {"a %s \n", "a %s\n"}, {{0, "no b\n"}})
FITS
long=$(printf 'a%.0s' {1..255}) # as many characters as there may be before a conversion
fits+=("append(\"$long%d\\n\", number)")
if ! compile "${fits[@]}"; then
    found "refused, though it fits:"
    cat "$folder/errors"
fi

mapfile -t refused <<'REFUSED'
append("a %s\n", number)
append("a %s\n", user.level)
append("a %s\n", word)
append("a %s\n", rule.source)
append("a %d\n", text)
append("a %d\n", user.name)
append("a %ld\n", text)
append("a %u\n", text)
append("a %X\n", text)
append("a %02X\n", text)
append("a %02x\n", text)
append("a %02d\n", text)
append("a %d %d\n", number)
append("a %d %s\n", number)
append("a %d\n")
append("a %s\n")
append("a %02X:%02X:%02X:%02X:%02X\n", rule.sourceMac)
append("a %02X:%02X:%02X:%02X:%02X:%02X:%02X\n", rule.sourceMac)
append("a %d.%d.%d\n", rule.source)
append("a %d\n", number, number)
append("a %s\n", text, text)
append("a\n", number)
append("a\n", text)
append("a %03d\n", number)
append("a %3d\n", number)
append("a %2d\n", number)
append("a %x\n", number)
append("a %i\n", number)
append("a %c\n", number)
append("a %lu\n", word)
append("a %hd\n", number)
append("a %08x\n", number)
append("a %.3s\n", text)
append("a %*d\n", number, number)
append("a %n\n", pointer)
append("a %p\n", pointer)
append("a %%\n")
append("a %%\n", number)
append("a %% %d\n", number)
append("a %")
append("a %", number)
append("a %0", number)
append("a %d\n", pointer)
append("a %s\n", pointer)
append("a %d\n", &user)
append("a %s\n", user)
append("a %s\n", nullptr)
append("a %d\n", 1.5)
append("a %d\n", 1LL)
append(text)
append(text, number)
append("a %d\n", ports)
append("a %ld\n", ports)
append("a %u\n", ports)
append("a %X\n", ports)
append("a %02X\n", ports)
append("a %d\n", each)
append("a\n", ports)
append("a %s\n", ports, ports)
append("a %s %s\n", ports)
poe.append({"a \n", "b\n"})
poe.append({"a\n", "ab\n"})
poe.append({"a b\n", "a  b\n"})
poe.append({" a\n", "a\n"})
poe.append({"a\n", "a"})
poe.append({"a", "a\n"})
poe.append({"a", "a"})
poe.append({"a\n", ""})
poe.append({"a %s \n", "b %s\n"}, ports)
poe.append({"a %s \n", "a %d\n"}, ports)
poe.append({"a %d \n", "a\n"}, number)
poe.append({"a %d \n", "a %d\n"}, ports)
poe.onOff(&PoeConfig::enabled, {"a \n", "b\n"}, "no a\n")
poe.onOff(&PoeConfig::enabled, "a\n", {"no a \n", "no b\n"})
poe.value(&PoeConfig::alarmThreshold, {"a %d \n", "b %d\n"})
poe.value(&PoeConfig::alarmThreshold, "a %s\n")
stp.blocks(&StpPorts::enabled, {"a %s \n", "b %s\n"}, {{0, "no b\n"}})
stp.blocks(&StpPorts::enabled, "a %d\n", {{0, "no b\n"}})
REFUSED
refused+=("append(\"b$long%d\\n\", number)")
compile "${refused[@]}"
line=1
for statement in "${refused[@]}"; do
    line=$((line + 1))
    grep -q "/format\.cpp:$line:[0-9]*: *\(error:\|in 'constexpr' expansion\)" "$folder/errors" && continue
    alone+=("$statement")
done
# An error may be reported elsewhere, or once for several. Each of the others is compiled by itself.
for statement in "${alone[@]-}"; do
    if [[ -n $statement ]] && compile "$statement"; then found "compiles, though it does not fit: $statement"; fi
done

conclude
