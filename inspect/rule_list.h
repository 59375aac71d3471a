/// The list of the rules that a record is checked by.
#pragma once

#include "inspect/rules.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace inspect {

/// The rules by number, in the order of the list.
enum RuleId {
    recordZero,
    recordErased,
    recordSwapped,
    recordShifted,
    codeUnknown,
    flagValue,
    bitsUnknown,
    textInjectedLine,
    textControl,
    textUnterminated,
    textAfterNul,
    nameBlank,
    vlanRange,
    vlanDuplicate,
    vlanMissing,
    managementMissing,
    managementUnreachable,
    memberRange,
    portRange,
    maskInvalid,
    hostInvalid,
    segmentMissing,
    profileMissing,
    timeRangeMissing,
    neverWritten,
    notRecreated,
    bankUnknown,
    textTooLong,
    ruleCount,
};

inline constexpr Severity warning = Severity::warning;
inline constexpr Severity error = Severity::error;

struct NumberedRule {
    RuleId id;
    Rule rule;
};
// clang-format off
inline constexpr NumberedRule ruleLines[] = {
    {recordZero, {"record-zero", error, "every byte of the record is 0; no other rule is applied to it"}},
    {recordErased, {"record-erased", error,
        "more than half of the bytes are 0xff, as in erased flash; no other rule is applied to it"}},
    {recordSwapped, {"record-swapped", error,
        "numbers make sense in another byte order only; no other rule is applied to the image"}},
    {recordShifted, {"record-shifted", error,
        "fields make sense some bytes further on or back only; no other rule is applied to the image"}},
    {codeUnknown, {"code-unknown", warning, "a code that no command sets"}},
    {flagValue, {"flag-value", warning, "a flag other than 0 and 1"}},
    {bitsUnknown, {"bits-unknown", warning, "a set with bits that stand for nothing"}},
    {textInjectedLine, {"text-injected-line", error,
        "a text with a newline or a carriage return: the rest becomes a line of its own"}},
    {textControl, {"text-control", warning, "a text with another control character"}},
    {textUnterminated, {"text-unterminated", warning, "a text that fills its field, so that no NUL ends it"}},
    {textAfterNul, {"text-after-nul", warning, "bytes after the NUL that ends a text"}},
    {nameBlank, {"name-blank", warning, "a blank in a name that is one word of a command"}},
    {vlanRange, {"vlan-range", error, "a VLAN id outside 1 to 4094"}},
    {vlanDuplicate, {"vlan-duplicate", error, "a VLAN id that an earlier entry has"}},
    {vlanMissing, {"vlan-missing", warning, "a VLAN id that no entry of the 802.1Q VLANs has"}},
    {managementMissing, {"management-vlan-missing", warning, "no 802.1Q VLAN has the CPU port as a member"}},
    {managementUnreachable, {"management-vlan-unreachable", warning,
        "the management VLAN is after a free entry, where the search for it ends"}},
    {memberRange, {"member-range", warning, "a set of ports with members beyond the last port"}},
    {portRange, {"port-range", error, "a port number beyond the last port"}},
    {maskInvalid, {"mask-invalid", error, "the mask of the management interface is not contiguous, or is empty"}},
    {hostInvalid, {"host-invalid", error, "the address of the management interface is no host's"}},
    {segmentMissing, {"segment-missing", warning, "an IGMP profile names a segment that does not exist"}},
    {profileMissing, {"profile-missing", warning, "a port names an IGMP profile that does not exist"}},
    {timeRangeMissing, {"time-range-missing", warning, "a PoE schedule names a time range that does not exist"}},
    {neverWritten, {"never-written", warning,
        "a value that no text contains: a rate or budget of 1, a priority of 9, a negative cost or priority"}},
    {notRecreated, {"not-recreated", warning,
        "the full text, applied to the default configuration, does not lead to this setting"}},
    {bankUnknown, {"bank-unknown", warning, "an image bank other than 1 and 2 has no firmware version"}},
    {textTooLong, {"text-too-long", error, "the text does not fit, so textcfg would not write it"}},
};
// clang-format on

inline constexpr auto ruleTable = [] {
    std::array<Rule, ruleCount> all;
    std::ranges::transform(ruleLines, all.begin(), &NumberedRule::rule);
    return all;
}();
static_assert(std::size(ruleLines) == ruleCount);
static_assert(std::ranges::is_sorted(ruleLines, {}, &NumberedRule::id), "a rule is found by its number");

} // namespace inspect
