#include "inspect/rules.h"

#include "app/text/text.h"
#include "inspect/fields.h"
#include "inspect/image_shape.h"
#include "inspect/mask.h"
#include "inspect/render.h"
#include "inspect/rule_list.h"
#include "inspect/values.h"

#include <algorithm>
#include <bit>
#include <bitset>
#include <cstring>
#include <iterator>

namespace inspect {
namespace {

// ------------------------------------------------------------------------------------------------------------ helpers

std::string_view textIn(const unsigned char *bytes, std::size_t width) {
    const char *const characters = reinterpret_cast<const char *>(bytes);
    return {characters, strnlen(characters, width)};
}
template <std::size_t Width> std::string_view textIn(const Text<Width> &text) {
    return {text.characters, strnlen(text.characters, Width)};
}

bool has(std::span<const unsigned char> bytes, unsigned bit) { return (bytes[bit / 8] >> bit % 8 & 1) != 0; }

bool isControl(char character) {
    const unsigned char byte = static_cast<unsigned char>(character);
    return byte < ' ' || byte == 0x7f;
}

/// A field by its names: the section or table, and the last one on the way.
struct FieldName {
    std::string_view section;
    std::string_view field;
};
bool isOneOf(const Leaf &leaf, std::span<const FieldName> names) {
    return std::ranges::any_of(names, [&](const FieldName &name) {
        return leaf.field().name == name.field && leaf.steps()[0].field->name == name.section;
    });
}

/// Texts that other settings and commands refer to: one word of a line. Descriptions end a line and may have blanks.
constexpr FieldName nameFields[] = {
    {"company", "hostName"},
    {"users", "name"},
    {"portVlans", "name"},
    {"tagVlans", "name"},
    {"trunks", "name"},
    {"communities", "name"},
    {"trapDestinations", "community"},
    {"multicastSegments", "name"},
    {"multicastProfiles", "name"},
    {"portFilters", "profile"},
    {"timeRanges", "name"},
    {"poePorts", "scheduleName"},
    {"backup", "user"},
};

/// Values that emitters use as marks of ports that they have written.
struct Mark {
    FieldName name;
    std::int64_t value;
};
constexpr Mark marks[] = {
    {{"rateLimits", "ingress"}, 1},
    {{"rateLimits", "egress"}, 1},
    {{"priority", "userPriority"}, 9},
    {{"poePorts", "budget"}, 1},
};
/// Numbers that are not written when they are negative.
constexpr FieldName notNegative[] = {{"stpPorts", "cost"}, {"stpPorts", "priority"}};

/// Sets that hold the CPU port too.
constexpr FieldName setsWithCpu[] = {{"portVlans", "members"}, {"tagVlans", "members"}};

/// Texts that have a line only when they are not empty.
constexpr std::string_view notEmptied[] = {
    "company.companyName", "company.systemContact", "company.systemName", "company.systemLocation",
    "company.hostName",    "company.dhcpVendorId",  "time.offset"};

/// Tables whose entries no line of the full text removes, and what a line calls an entry by; nothing: its number.
struct LastingTable {
    std::string_view path; ///< of the first entry's member that says that it is in use
    std::vector<std::string_view> key;
};

constexpr std::string_view emptySlot = " ";

// ------------------------------------------------------------------------------------------------------------- search

class Search {
public:
    Search(const Input &input, const RuleOptions &options, const std::function<void(const Finding &)> &report)
        : input_(input), image_(*input.image), options_(options), report_(report) {
        for (const TagVlan &vlan : image_.tagVlans)
            if (isOn(vlan.inUse)) vlans_.set(vlan.id.value());
    }

    std::vector<std::string> run() {
        const bool isSound = reportShape("image", input_.image.from, shapeOf(image_));
        if (isSound) checkImage();
        if (input_.board) {
            const BoardRecord &board = *input_.board;
            const unsigned char *const bytes = reinterpret_cast<const unsigned char *>(&board);
            if (reportShape("board", input_.board.from, shapeOfBytes({bytes, sizeof board})))
                walk(Leaf(Part::board), recordOf(Part::board), bytes, bytes);
        }
        if (input_.bank && *input_.bank != 1 && *input_.bank != 2)
            report(bankUnknown, settingsFile(), "platform.active_bank", std::nullopt, std::to_string(*input_.bank),
                   "1 or 2");
        if (isSound) checkText();
        return notes_;
    }

private:
    bool isIgnored(RuleId id) const { return options_.ignored.contains(ruleTable[id].name); }

    void report(RuleId id, const std::string &file, const std::string &path, std::optional<std::size_t> offset,
                const std::string &found, const std::string &expected) {
        if (!isIgnored(id)) report_({&ruleTable[id], file, path, offset, found, expected});
    }
    void report(RuleId id, const Leaf &leaf, const std::string &found, const std::string &expected) {
        if (!isIgnored(id)) report(id, fileOf(leaf.part()), leaf.path(), leaf.offset(), found, expected);
    }
    /// As the leaf is displayed, masked if it has to be.
    void report(RuleId id, const Leaf &leaf, const std::string &expected) {
        if (!isIgnored(id)) report(id, leaf, shown(leaf), expected);
    }
    void report(RuleId id, const std::string &path, const std::string &expected) {
        report(id, *leafOf(path), expected);
    }

    std::string fileOf(Part part) const {
        switch (part) {
        case Part::image: return input_.image.from;
        case Part::board: return input_.board.from;
        case Part::platform: break;
        }
        return settingsFile();
    }
    std::string settingsFile() const {
        return input_.folder.empty() ? input_.name
                                     : input_.folder + (input_.folder.ends_with('/') ? "" : "/") + platformConfFile;
    }
    bool isHidden(const Leaf &leaf) const { return leaf.field().kind == Kind::secret && !options_.secrets; }
    std::string shown(const Leaf &leaf) {
        if (leaf.part() == Part::board) return displayOf(leaf, input_.board.value.get());
        if (!isHidden(leaf)) return displayOf(leaf, &image_);
        if (!masked_) masked_ = maskedCopy(input_);
        return displayOf(leaf, masked_->image.value.get());
    }

    /// Whether the other rules can be applied.
    bool reportShape(const std::string &name, const std::string &file, const Shape &shape) {
        RuleId id = ruleCount;
        switch (shape.kind) {
        case Shape::Kind::sound: return true;
        case Shape::Kind::zero: id = recordZero; break;
        case Shape::Kind::erased: id = recordErased; break;
        case Shape::Kind::swapped: id = recordSwapped; break;
        case Shape::Kind::shifted: id = recordShifted; break;
        }
        report(id, file, name, std::nullopt, shape.found, shape.expected);
        return isIgnored(id);
    }

    void checkImage() {
        const unsigned char *const bytes = bytesOf(image_, 0);
        walk(Leaf(Part::image), recordOf(Part::image), bytes, bytes);
        checkVlans();
        checkInterface();
        checkReferences();
        if (isIgnored(notRecreated)) return;
        if (input_.defaults) checkRecreation(*input_.defaults);
        else note(notRecreated, [&] { input_.requireDefaults(); });
    }

    // ------------------------------------------------------------------------------------------------- single fields

    void walk(Leaf way, const Record &record, const unsigned char *owner, const unsigned char *bytes) {
        walkEntries(way, record, owner, bytes);
    }
    void walkEntries(Leaf &way, const Record &record, const unsigned char *owner, const unsigned char *bytes) {
        for (const Field &field : record.fields) {
            if (field.kind == Kind::reserved || field.kind == Kind::bytes) continue;
            const std::size_t entries = field.count == 0 ? 1 : field.count;
            for (std::size_t index = 0; index < entries; ++index) {
                if (!isEntryInUse(record, field, index, owner)) continue;
                way.push(field, index);
                if (field.record != nullptr)
                    walkEntries(way, *field.record, owner + field.offset + index * field.size, bytes);
                else checkLeaf(way, bytes);
                way.pop();
            }
        }
    }

    void checkLeaf(const Leaf &leaf, const unsigned char *record) {
        const Field &field = leaf.field();
        const unsigned char *const bytes = leaf.in(static_cast<const void *>(record));
        switch (field.kind) {
        case Kind::flag:
            if (const std::int64_t value = numberOf(field, bytes); value != 0 && value != 1 && isFlag(leaf))
                report(flagValue, leaf, std::to_string(value), "0 or 1");
            break;
        case Kind::code:
            if (!wordOf(field, numberOf(field, bytes))) report(codeUnknown, leaf, codesOf(field));
            break;
        case Kind::portNumber:
            if (const std::int64_t value = numberOf(field, bytes); value >= portCount && isRead(leaf))
                report(portRange, leaf, "0 to " + std::to_string(portCount - 1) + ", counted from 0");
            break;
        case Kind::vlanId: checkVlanId(leaf, numberOf(field, bytes)); break;
        case Kind::number: checkNumber(leaf, numberOf(field, bytes)); break;
        case Kind::text:
        case Kind::secret: checkCharacters(leaf, bytes); break;
        case Kind::bits: checkSet(leaf, bytes); break;
        default: break;
        }
    }

    /// The records of ports 2 to 28 have the platform's bytes where that of port 1 has the global setting.
    static bool isFlag(const Leaf &leaf) {
        constexpr FieldName global[] = {{"portFilters", "filterSwitch"}};
        return !isOneOf(leaf, global) || leaf.steps()[1].index == 0;
    }

    /// Whether a field is read at all, as another one says.
    bool isRead(const Leaf &leaf) const {
        const std::string_view section = leaf.steps()[0].field->name;
        if (section == "mirror") return isOn(image_.mirror.destinationSet);
        if (section != "acl") return true;
        const AclRule &rule = image_.acl[leaf.steps()[0].index];
        if (leaf.field().name == "vlan") return has(rule.match.bytes, AclMatch::vlanId);
        if (leaf.field().name == "actionPort") return rule.action == 2 || rule.action == 3;
        return true;
    }

    static std::string codesOf(const Field &field) {
        std::string codes;
        for (std::int64_t code = -1; code <= 255; ++code)
            if (wordOf(field, code)) codes += (codes.empty() ? "" : ", ") + std::to_string(code);
        return "one of " + codes;
    }

    void checkVlanId(const Leaf &leaf, std::int64_t id) {
        if (!isRead(leaf) || (id == 0 && wordOf(leaf.field(), 0))) return;
        if (id < 1 || id > 4094) {
            report(vlanRange, leaf, std::to_string(id), "1 to 4094");
            return;
        }
        if (!vlans_.test(static_cast<std::size_t>(id)))
            report(vlanMissing, leaf, std::to_string(id), "the id of an 802.1Q VLAN");
    }

    void checkNumber(const Leaf &leaf, std::int64_t value) {
        for (const Mark &mark : marks)
            if (value == mark.value && isOneOf(leaf, {&mark.name, 1}))
                report(neverWritten, leaf, "another value: " + std::to_string(value) + " is in no text");
        if (value < 0 && isOneOf(leaf, notNegative)) report(neverWritten, leaf, "0 or more");
    }

    void checkCharacters(const Leaf &leaf, const unsigned char *bytes) {
        const std::size_t width = leaf.size();
        const std::string_view text = textIn(bytes, width);
        checkLines(leaf, text);
        if (std::ranges::any_of(text, [](char c) { return isControl(c) && c != '\n' && c != '\r'; }))
            report(textControl, leaf, "no control character");
        if (text.size() == width) report(textUnterminated, leaf, "at most " + std::to_string(width - 1) + " bytes");
        else if (std::any_of(bytes + text.size(), bytes + width, [](unsigned char byte) { return byte != 0; }))
            report(textAfterNul, leaf, "zeros after byte " + std::to_string(text.size()));
        if (text.find(' ') != text.npos && isOneOf(leaf, nameFields) &&
            !(text == emptySlot && leaf.field().name == "profile"))
            report(nameBlank, leaf, "one word");
    }

    void checkLines(const Leaf &leaf, std::string_view text) {
        constexpr const char *ends = "\n\r";
        for (std::size_t end = text.find_first_of(ends); end != text.npos; end = text.find_first_of(ends)) {
            text.remove_prefix(end + 1);
            const std::string_view line = text.substr(0, text.find_first_of(ends));
            report(textInjectedLine, leaf,
                   "the line \"" + (isHidden(leaf) ? std::string(hiddenBytes) : escapeText(line)) + '"',
                   "a text on one line");
        }
    }

    void checkSet(const Leaf &leaf, const unsigned char *bytes) {
        const Field &field = leaf.field();
        const std::span<const unsigned char> set = {bytes, field.size};
        const unsigned size = static_cast<unsigned>(8 * field.size);
        std::string beyond;
        const auto add = [&](unsigned bit) { beyond += (beyond.empty() ? "bit " : ", ") + std::to_string(bit); };
        switch (field.members) {
        case Members::ports: {
            const bool withCpu = isOneOf(leaf, setsWithCpu);
            for (unsigned bit = portCount; bit < size; ++bit)
                if (has(set, bit) && !(withCpu && bit == cpuPort)) add(bit);
            if (!beyond.empty())
                report(memberRange, leaf, beyond, "bits 0 to " + std::to_string(withCpu ? cpuPort : portCount - 1));
            break;
        }
        case Members::vlans:
            for (unsigned id = 0; id < size; ++id)
                if (has(set, id)) checkVlanId(leaf, id);
            break;
        case Members::named:
            if (leaf.part() != Part::image || field.isWord) break;
            for (unsigned bit = 0; bit < size; ++bit)
                if (has(set, bit) && !hasName(field, bit)) add(bit);
            if (!beyond.empty()) report(bitsUnknown, leaf, beyond, "bits that have a name");
            break;
        case Members::bits: break;
        }
    }

    // ----------------------------------------------------------------------------------------- fields taken together

    static std::string entry(const char *name, std::size_t index) {
        return std::string(name) + '[' + std::to_string(index + 1) + ']';
    }

    void checkVlans() {
        std::bitset<65536> seen;
        const auto isManagement = [](const TagVlan &vlan) {
            return isOn(vlan.inUse) && has(vlan.members.bytes, cpuPort);
        };
        for (std::size_t i = 0; i < std::size(image_.tagVlans); ++i) {
            const TagVlan &vlan = image_.tagVlans[i];
            if (!isOn(vlan.inUse)) continue;
            const std::uint16_t id = vlan.id.value();
            if (seen.test(id)) report(vlanDuplicate, entry("tagVlans", i) + ".id", "an id that no other entry has");
            seen.set(id);
        }
        const auto &vlans = image_.tagVlans;
        const auto management = std::find_if(std::begin(vlans), std::end(vlans), isManagement);
        const auto free =
            std::find_if(std::begin(vlans), std::end(vlans), [](const TagVlan &vlan) { return !isOn(vlan.inUse); });
        const auto indexOf = [&](const TagVlan *vlan) { return static_cast<std::size_t>(vlan - std::begin(vlans)); };
        if (management == std::end(vlans))
            report(managementMissing, *leafOf("tagVlans[1].members"), "no members with the CPU port",
                   "an 802.1Q VLAN with the CPU port");
        else if (free < management)
            report(managementUnreachable, *leafOf(entry("tagVlans", indexOf(management)) + ".members"),
                   "entry " + std::to_string(indexOf(free) + 1) + " is free",
                   "the management VLAN before the first free entry");
    }

    /// Without an address of its own, the interface has nothing that could be wrong.
    void checkInterface() {
        const Ipv4Interface &interface = image_.ipv4;
        if (!isOn(interface.enabled) || interface.dhcpMode != 0) return;
        const std::uint32_t mask = interface.mask.value();
        const int ones = std::countl_one(mask);
        if (mask == 0 || ones + std::countr_zero(mask) != 32) {
            report(maskInvalid, "ipv4.mask", "ones followed by zeros");
            return;
        }
        const std::uint32_t address = interface.address.value();
        const std::uint32_t host = address & ~mask;
        const std::uint32_t first = address >> 24;
        if (first == 0 || first == 127 || first >= 224) {
            report(hostInvalid, "ipv4.address", "an address from 1.0.0.0 to 223.255.255.255, but for 127.x.x.x");
        } else if (ones < 31 && (host == 0 || host == ~mask)) {
            report(hostInvalid, "ipv4.address",
                   host == 0 ? "a host; this is the network" : "a host; this is the broadcast address");
        }
    }

    void checkReferences() {
        std::bitset<65536> segments;
        for (const MulticastSegment &segment : image_.multicastSegments)
            if (isOn(segment.valid)) segments.set(segment.id.value());
        std::set<std::string_view> profiles;
        for (std::size_t i = 0; i < std::size(image_.multicastProfiles); ++i) {
            const MulticastProfile &profile = image_.multicastProfiles[i];
            if (!isOn(profile.valid)) continue;
            // A port's field holds this much of a name.
            profiles.insert(textIn(profile.name).substr(0, Text<24>::width));
            for (std::size_t k = 0; k < std::size(profile.segments); ++k)
                if (const std::uint16_t id = profile.segments[k].value(); id != 0 && !segments.test(id))
                    report(segmentMissing, entry("multicastProfiles", i) + entry(".segments", k),
                           "the id of a segment, or 0");
        }
        for (std::size_t port = 0; port < portCount; ++port)
            for (std::size_t k = 0; k < std::size(image_.portFilters.port[port].profile); ++k) {
                const std::string_view name = textIn(image_.portFilters.port[port].profile[k]);
                if (name != emptySlot && (name.empty() || !profiles.contains(name)))
                    report(profileMissing, entry("portFilters.port", port) + entry(".profile", k),
                           "the name of a profile, or a single blank");
            }
        std::set<std::string_view> ranges;
        for (const TimeRange &range : image_.timeRanges) ranges.insert(textIn(range.name));
        for (std::size_t port = 0; port < poePortCount; ++port)
            if (const std::string_view name = textIn(image_.poePorts[port].scheduleName);
                !name.empty() && !ranges.contains(name))
                report(timeRangeMissing, entry("poePorts", port) + ".scheduleName", "the name of a time range");
    }

    // -------------------------------------------------------------------------------------- what the full text lacks

    void checkRecreation(const ConfigImage &defaults) {
        if (sameBytes(image_, defaults)) return;
        if (image_.vlanMode != defaults.vlanMode)
            report(notRecreated, "vlanMode", std::to_string(defaults.vlanMode) + ": full mode has no line for it");
        for (const std::string_view path : notEmptied) {
            const Leaf leaf = *leafOf(path);
            if (*leaf.in(static_cast<const void *>(&image_)) == 0 &&
                *leaf.in(static_cast<const void *>(&defaults)) != 0)
                report(notRecreated, leaf, "a text: no line empties the default's");
        }
        for (std::size_t port = 0; port < portCount; ++port) {
            if (image_.vlanPorts[port].accessVlan.value() == 0 && defaults.vlanPorts[port].accessVlan.value() != 0)
                report(notRecreated, entry("vlanPorts", port) + ".accessVlan", "an id: no line removes the default's");
            checkProfiles(port, defaults.portFilters.port[port]);
        }
        for (std::size_t i = 0; i < std::size(image_.loopDetection.vlans); ++i)
            if (image_.loopDetection.vlans[i].value() == 0 && defaults.loopDetection.vlans[i].value() != 0)
                report(notRecreated, entry("loopDetection.vlans", i), "an id: no line removes the default's");
        if (image_.backup.protocol.value() != 1) {
            constexpr const char *onlyFtp = "the default's: it is written with FTP only";
            if (!sameText(image_.backup.user, defaults.backup.user)) report(notRecreated, "backup.user", onlyFtp);
            if (!sameText(image_.backup.password, defaults.backup.password))
                report(notRecreated, "backup.password", onlyFtp);
        }
        checkVlanBlocks(defaults);
        checkLastingTables(defaults);
    }

    void checkProfiles(std::size_t port, const PortFilter &byDefault) {
        const auto &names = image_.portFilters.port[port].profile;
        for (std::size_t k = 0; k < std::size(byDefault.profile); ++k) {
            const std::string_view lost = textIn(byDefault.profile[k]);
            if (lost == emptySlot || lost.empty()) continue;
            if (std::ranges::none_of(names, [&](const Text<24> &name) { return textIn(name) == lost; }))
                report(notRecreated, entry("portFilters.port", port) + entry(".profile", k),
                       "the profile \"" + escapeText(lost) + "\" of the default: no line removes it");
        }
    }

    /// VLANs have a block for their name only, and no line removes the block of a default VLAN.
    void checkVlanBlocks(const ConfigImage &defaults) {
        for (std::size_t i = 0; i < std::size(image_.tagVlans); ++i)
            if (isOn(image_.tagVlans[i].inUse) && image_.tagVlans[i].name.empty() &&
                !sameBytes(image_.tagVlans[i], defaults.tagVlans[i]))
                report(notRecreated, entry("tagVlans", i) + ".name", "a name: without one a VLAN has no block");
        for (std::size_t i = 0; i < std::size(defaults.tagVlans); ++i) {
            const TagVlan &vlan = defaults.tagVlans[i];
            if (isOn(vlan.inUse) && !vlan.name.empty() && !vlans_.test(vlan.id.value()))
                report(notRecreated, *leafOf(entry("tagVlans", i) + ".id"),
                       "no VLAN " + std::to_string(vlan.id.value()), "that of the default: no line removes it");
        }
    }

    void checkLastingTables(const ConfigImage &defaults) {
        static const LastingTable tables[] = {
            {"trunks[1].inUse", {"name"}},
            {"macTable[1].inUse", {"address", "vlan", "port"}},
            {"trapDestinations[1].inUse", {}},
            {"sourceGuardTable[1].valid", {"address", "addressIpv6", "vlan", "port"}},
            {"sourceBindings[1].valid", {}},
            {"multicastTable[1].valid", {"address", "addressIpv6", "vlan", "port"}},
            {"multicastSegments[1].valid", {"id"}},
            {"multicastProfiles[1].valid", {"name"}},
            {"acl[1].valid", {"number"}},
            {"timeRanges[1].name", {"name"}},
        };
        const Record &type = recordOf(Part::image);
        for (const LastingTable &lasting : tables) {
            const Leaf first = *leafOf(lasting.path);
            const Field &entries = *first.steps()[0].field;
            const Field &inUse = first.field();
            std::vector<const Field *> key;
            for (const std::string_view name : lasting.key) key.push_back(entries.record->find(name));
            const auto at = [&](const ConfigImage &image, std::size_t i) {
                return bytesOf(image, entries.offset + i * entries.size);
            };
            const auto stays = [&](std::size_t lost, std::size_t here) {
                if (!isEntryInUse(type, entries, here, &image_)) return false;
                if (key.empty()) return lost == here;
                return std::ranges::all_of(key, [&](const Field *field) {
                    return std::memcmp(at(defaults, lost) + field->offset, at(image_, here) + field->offset,
                                       field->size) == 0;
                });
            };
            for (std::size_t lost = 0; lost < entries.count; ++lost) {
                if (!isEntryInUse(type, entries, lost, &defaults)) continue;
                bool found = stays(lost, lost);
                for (std::size_t here = 0; here < entries.count && !found; ++here) found = stays(lost, here);
                if (found) continue;
                Leaf leaf(Part::image);
                leaf.push(entries, lost);
                leaf.push(inUse, 0);
                report(notRecreated, leaf, "the default's entry is gone", "that entry: no line removes it");
            }
        }
        for (unsigned id = 1; id < std::size(defaults.igmpVlans.vlan); ++id)
            if (has(defaults.igmpVlans.inUse.bytes, id) && !has(image_.igmpVlans.inUse.bytes, id))
                report(notRecreated, *leafOf("igmpVlans.inUse"), "VLAN " + std::to_string(id) + " is gone",
                       "the default's VLAN: no line removes it");
    }

    // ----------------------------------------------------------------------------------------------------- the texts

    void checkText() {
        if (isIgnored(textTooLong)) return;
        if (!input_.defaults || !input_.board || !input_.bank || !input_.md5) {
            note(textTooLong, [&] { input_.requireAllOfText(); });
            return;
        }
        Renderer renderer(input_);
        for (const bool isDelta : {false, true}) {
            const std::string mode = isDelta ? "the delta text" : "the full text";
            try {
                renderer.text(driverOf(isDelta, false, input_.isDefaultKind));
            } catch (const RenderError &problem) {
                if (textOverflowed())
                    report(textTooLong, input_.image.from, "image", std::nullopt, mode + " does not fit",
                           "at most " + std::to_string(textBufferSize - 1) + " bytes");
                else notes_.push_back(std::string(ruleTable[textTooLong].name) + ": " + mode + ": " + problem.what());
            }
        }
    }

    /// What `require` complains about keeps a rule from being applied.
    template <class Require> void note(RuleId id, Require require) {
        try {
            require();
        } catch (const InputError &missing) {
            notes_.push_back(std::string(ruleTable[id].name) + ": " + missing.what());
        }
    }

    const Input &input_;
    const ConfigImage &image_;
    const RuleOptions &options_;
    const std::function<void(const Finding &)> &report_;
    std::bitset<65536> vlans_; ///< ids of the 802.1Q VLANs in use
    std::optional<Input> masked_;
    std::vector<std::string> notes_;
};

} // namespace

std::string_view nameOf(Severity severity) { return severity == Severity::error ? "error" : "warning"; }

std::span<const Rule> rules() { return ruleTable; }

const Rule *findRule(std::string_view name) {
    const auto found = std::ranges::find(ruleTable, name, &Rule::name);
    return found == ruleTable.end() ? nullptr : &*found;
}

std::vector<std::string> applyRules(const Input &input, const RuleOptions &options,
                                    const std::function<void(const Finding &)> &report) {
    return Search(input, options, report).run();
}

} // namespace inspect
