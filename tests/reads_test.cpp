/// The reads that the order table declares are the true ones.
///
/// Complete: what a step does not declare is replaced by something else, and its text stays the same. Minimal: each
/// declared read, in each image and mode, changes the text on some store.
#include "random_stores.h"
#include "rows.h"

#include "app/order.h"
#include "platform/host/factory.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <optional>
#include <set>

namespace {

// -------------------------------------------------------------------------------------------------------------- stores

/// All that a step can read.
struct Store {
    ConfigImage current;
    ConfigImage defaults;
    BoardRecord board;
    bool md5Method;
    const char *md5;
};

using Operations = std::set<std::string_view>;

constexpr std::string_view methodGet = "mapi_sys_userauth_method_get";
constexpr std::string_view md5Get = "mapi_sys_userauth_password_md5_get";

void usePlatformOf(const Store &store) {
    platform.passwordMethod = store.md5Method ? 1 : 0;
    platform.md5 = [md5 = store.md5](const char *, char *to) { std::strcpy(to, md5); };
}

void load(const Store &store) {
    resetAll();
    std::memcpy(static_cast<void *>(gSysConfig), &store.current, sizeof store.current);
    std::memcpy(static_cast<void *>(gDefConfig), &store.defaults, sizeof store.defaults);
    std::memcpy(static_cast<void *>(&g_EEPROM), &store.board, sizeof store.board);
    usePlatformOf(store);
}

u8 *bytesOf(ConfigImage &image) { return reinterpret_cast<u8 *>(&image); }

/// A record as that of a switch.
void composeStructured(std::uint32_t seed, Store &store) {
    composeRandom(seed);
    store = {*gSysConfig, *gDefConfig, g_EEPROM, platform.passwordMethod != 0, "d41d8cd98f"};
}

/// Bytes of any value, few of them other than 0 if `sparse`; without a 0 among them otherwise.
void composeBytes(Numbers &numbers, bool sparse, ConfigImage &image) {
    u8 *const bytes = bytesOf(image);
    for (std::size_t i = 0; i < sizeof image; ++i) {
        const std::uint32_t number = numbers.next();
        const std::uint32_t kind = number >> 24 & 0xf;
        if (sparse) bytes[i] = static_cast<u8>(kind < 9 ? 0 : kind < 14 ? number >> 8 & 3 : number >> 8);
        else bytes[i] = static_cast<u8>((number >> 8) % 255 + 1);
    }
}

/// Bytes without structure. The default image differs from the current one in about one byte of `differing`.
void composeUnstructured(std::uint32_t seed, bool sparse, std::uint32_t differing, Store &store) {
    Numbers numbers(seed);
    composeBytes(numbers, sparse, store.current);
    composeBytes(numbers, sparse, store.defaults);
    for (std::size_t i = 0; i < sizeof store.current; ++i)
        if (numbers.next() >> 8 >= 0xffffff / differing) bytesOf(store.defaults)[i] = bytesOf(store.current)[i];
    store.board = {};
    store.board.boardType = numbers.oneIn(3) ? 5027 : 5028;
    store.board.capabilities = numbers.oneIn(3) ? 0 : 0x150;
    store.md5Method = numbers.oneIn(2);
    store.md5 = "900150983c";
}

/// The built-in store, as it is in service.
void composeFactory(Store &store) {
    resetAll();
    factory::composeRunning(store.current);
    factory::composeDefault(store.defaults);
    factory::composeBoard(store.board);
    store.md5Method = true;
    store.md5 = "d41d8cd98f";
}

void clear(Store &store) {
    resetAll();
    store = {*gSysConfig, *gDefConfig, g_EEPROM, false, ""};
}

/// VLANs of which the last, at `index`, is the management VLAN. Ports of all modes belong to it. The default image has
/// the same VLANs, or that one under another id.
void composeManagementVlan(std::size_t index, bool otherByDefault, Store &store) {
    clear(store);
    for (std::size_t i = 0; i <= index; ++i) {
        TagVlan &vlan = store.current.tagVlans[i];
        vlan.inUse = 1;
        vlan.id = static_cast<std::uint16_t>(i + 1);
    }
    TagVlan &vlan = store.current.tagVlans[index];
    for (unsigned port = 0; port < portCount; ++port) {
        store.current.vlanPorts[port].mode = static_cast<u8>(port % 3);
        store.current.vlanPorts[port].accessVlan = vlan.id.value();
        vlan.members.set(port);
    }
    vlan.members.set(cpuPort);
    store.defaults = store.current;
    if (otherByDefault) store.defaults.tagVlans[index].id = 4000;
}

/// One circuit id for all ports, so that each port in turn leads a block that the later ones join. No byte of the
/// default descriptions and of what follows them ends a text.
void composeCircuitIds(Store &store) {
    clear(store);
    for (CircuitId &id : store.current.circuitIds.text) id = "rack 7";
    for (std::size_t i = 0; i < sizeof store.defaults.ports; ++i)
        reinterpret_cast<u8 *>(store.defaults.ports)[i] = static_cast<u8>('A' + i % 26);
}

/// DHCP servers beyond the first sixteen ports only.
void composeServerPorts(Store &store) {
    clear(store);
    store.current.dhcpSnooping.serverPorts.set(19);
}

constexpr std::uint32_t structuredStores = 16;
constexpr std::uint32_t unstructuredStores = 8;
constexpr std::uint32_t directedStores = 6;
constexpr std::uint32_t storeCount = structuredStores + unstructuredStores + directedStores;

void composeStore(std::uint32_t number, Store &store) {
    constexpr std::size_t lastVlan = std::extent_v<TagVlanTable> - 1;
    if (number < structuredStores) return composeStructured(1000 + number, store);
    number -= structuredStores;
    if (number < unstructuredStores)
        return composeUnstructured(number, number % 3 != 0, number % 2 == 0 ? 40 : 2000, store);
    switch (number - unstructuredStores) {
    case 0: return composeFactory(store);
    case 1: return composeManagementVlan(0, false, store);
    case 2: return composeManagementVlan(lastVlan, false, store);
    case 3: return composeManagementVlan(lastVlan, true, store);
    case 4: return composeCircuitIds(store);
    default: return composeServerPorts(store);
    }
}

/// What takes the place of what a step does not read: images that differ from each other, that are equal, or those of
/// another switch. Board and platform always answer otherwise than those of `store`.
enum class Noise { different, equal, structured };

void composeNoise(Noise noise, std::uint32_t seed, const Store &store, Store &other) {
    if (noise == Noise::structured) composeStructured(5000 + seed, other);
    else composeUnstructured(100 + seed, false, noise == Noise::equal ? 0x1000000 : 1, other);
    for (std::size_t i = 0; i < sizeof other.board; ++i)
        reinterpret_cast<u8 *>(&other.board)[i] = reinterpret_cast<const u8 *>(&store.board)[i] ^ 0xff;
    if (!store.board.isType5027()) other.board.boardType = 5027;
    other.md5Method = !store.md5Method;
    other.md5 = "0cc175b9c0";
}

// --------------------------------------------------------------------------------------------------------------- steps

using Record = order::Read::From;

/// Bytes of one record: of the current image, of the default image, of the board.
struct Span {
    Record record;
    std::size_t offset;
    std::size_t size;
};

u8 *loaded(const Span &span) {
    return span.offset + (span.record == Record::current    ? bytesOf(*gSysConfig)
                          : span.record == Record::defaults ? bytesOf(*gDefConfig)
                                                            : reinterpret_cast<u8 *>(&g_EEPROM));
}

const u8 *stored(const Span &span, const Store &store) {
    return span.offset + (span.record == Record::current    ? reinterpret_cast<const u8 *>(&store.current)
                          : span.record == Record::defaults ? reinterpret_cast<const u8 *>(&store.defaults)
                                                            : reinterpret_cast<const u8 *>(&store.board));
}

void copy(const Span &span, const Store &store) { std::memcpy(loaded(span), stored(span, store), span.size); }
void copy(const std::vector<Span> &spans, const Store &store) {
    for (const Span &span : spans) copy(span, store);
}

/// A step of one mode, and all that it declares.
struct Row {
    std::string name;
    const order::Call *call;
    std::vector<order::Read> reads; ///< each of one record: arguments that are sections, then the declared ones
    std::vector<Span> spans;
    Operations operations;
};

Row rowOf(const order::Step &step, const order::Call &call, const char *mode) {
    Row row = {std::string(step.emitter) + ", " + mode + " mode", &call, {}, {}, {}};
    const order::Read argument = {Record::current, call.argument.name, call.argument.offset, call.argument.size};
    if (argument.size != 0) row.reads.push_back(argument);
    if (call.withDefaults) {
        row.reads.push_back(argument);
        row.reads.back().from = Record::defaults;
    }
    for (const order::Read &read : call.declaredReads()) {
        row.reads.push_back(read);
        if (read.from != Record::bothImages) continue;
        row.reads.back().from = Record::current;
        row.reads.push_back(read);
        row.reads.back().from = Record::defaults;
    }
    for (const order::Read &read : row.reads) {
        if (read.from == Record::platform) row.operations.insert(read.name);
        else
            for (std::size_t i = 0; i < read.count; ++i)
                row.spans.push_back({read.from, read.offset + i * read.stride, read.size});
    }
    return row;
}

const std::vector<Row> &rows() {
    static const std::vector<Row> all = [] {
        std::vector<Row> rows;
        for (const order::Step &step : order::steps) {
            rows.push_back(rowOf(step, step.full, "full"));
            if (step.delta) rows.push_back(rowOf(step, step.delta, "delta"));
        }
        return rows;
    }();
    return all;
}

std::string run(const Row &row) {
    (*row.call)();
    std::string text = Temp_Configuration;
    restartText();
    return text;
}

std::string nameOf(Record record) {
    return record == Record::current    ? "the current image's "
           : record == Record::defaults ? "the default image's "
           : record == Record::board    ? "the board's "
                                        : "";
}

/// The section at `offset` and the byte in it.
std::string placeOf(Record record, std::size_t offset) {
    if (record == Record::board) return "the board's byte " + std::to_string(offset);
    for (const Section &member : imageMembers)
        if (offset >= member.offset && offset < member.end())
            return nameOf(record) + (member.isReserved() ? "reserved bytes" : std::string(member.name)) + ", byte " +
                   std::to_string(offset - member.offset) + " (" + std::to_string(offset) + " of the image)";
    return "no byte";
}

// ------------------------------------------------------------------------------------------------------------ complete

/// The operations that the platform was asked for.
Operations operationsCalled() {
    Operations called;
    for (const std::string &call : platform.calls) {
        if (call.starts_with("method ")) called.insert(methodGet);
        else if (call.starts_with("md5 ")) called.insert(md5Get);
        else called.insert("another operation");
    }
    platform.calls.clear();
    return called;
}

/// With `store` loaded: the first byte that `row` does not declare and that changes its text when `noise` has it.
std::string undeclared(const Row &row, const std::string &text, const Store &store, const Store &noise) {
    for (const Record record : {Record::current, Record::defaults, Record::board}) {
        const std::size_t size = record == Record::board ? sizeof(BoardRecord) : sizeof(ConfigImage);
        std::vector<bool> isDeclared(size);
        for (const Span &span : row.spans)
            for (std::size_t i = 0; span.record == record && i < span.size; ++i) isDeclared[span.offset + i] = true;
        // The bytes from `first` on, replaced one after the other, until the text changes: found by halving.
        const auto changesUpTo = [&](std::size_t end) {
            load(store);
            for (std::size_t i = 0; i < end; ++i)
                if (!isDeclared[i]) copy({record, i, 1}, noise);
            return run(row) != text;
        };
        if (!changesUpTo(size)) continue;
        std::size_t without = 0;
        std::size_t with = size;
        while (with - without > 1) {
            const std::size_t middle = without + (with - without) / 2;
            (changesUpTo(middle) ? with : without) = middle;
        }
        return placeOf(record, with - 1);
    }
    return "several records at once, or the platform";
}

TEST(Reads, AreComplete) {
    const auto store = std::make_unique<Store>();
    const auto noise = std::make_unique<Store>();
    std::set<const Row *> failed;
    for (std::uint32_t number = 0; number < storeCount; ++number) {
        composeStore(number, *store);
        std::vector<std::string> texts;
        load(*store);
        for (const Row &row : rows()) {
            texts.push_back(run(row));
            copy(row.spans, *store); // emitters may write into what they read
        }
        ASSERT_EQ(0, std::memcmp(gSysConfig, &store->current, sizeof store->current)) << "something else was written";
        ASSERT_EQ(0, std::memcmp(gDefConfig, &store->defaults, sizeof store->defaults)) << "something else was written";

        for (const Noise kind : {Noise::different, Noise::equal, Noise::structured}) {
            composeNoise(kind, number, *store, *noise);
            load(*noise);
            std::size_t next = 0;
            for (const Row &row : rows()) {
                const std::string &text = texts[next++];
                copy(row.spans, *store);
                platform.passwordMethod = (row.operations.contains(methodGet) ? *store : *noise).md5Method ? 1 : 0;
                platform.md5 = [md5 = (row.operations.contains(md5Get) ? *store : *noise).md5](const char *, char *to) {
                    std::strcpy(to, md5);
                };
                const bool same = run(row) == text;
                for (const std::string_view operation : operationsCalled())
                    if (!row.operations.contains(operation) && failed.insert(&row).second)
                        ADD_FAILURE() << row.name << " calls " << operation << " and does not declare it";
                if (!same && failed.insert(&row).second) {
                    ADD_FAILURE() << row.name
                                  << " reads what it does not declare: " << undeclared(row, text, *store, *noise)
                                  << ", store " << number;
                    load(*noise);
                }
                copy(row.spans, *noise);
            }
        }
    }
}

// ------------------------------------------------------------------------------------------------------------- minimal

/// A part of a declared read that must change the text on some store.
struct Probe {
    std::size_t row;
    const order::Read *read;
    std::vector<Span> alternatives; ///< any of them is enough; none for an operation of the platform
};

/// A read that is a section, or a field of the board, counts by any of its bytes. A narrower one is exact: it counts by
/// its first and by its last byte, in the first and in the last entry.
std::vector<Probe> probesOf(std::size_t number) {
    std::vector<Probe> probes;
    for (const order::Read &read : rows()[number].reads) {
        const bool isSection = std::ranges::any_of(imageSections, [&read](const Section &section) {
            return section.offset == read.offset && section.size == read.size;
        });
        if (read.from == Record::platform) probes.push_back({number, &read, {}});
        else if (read.from == Record::board || isSection)
            probes.push_back({number, &read, {{read.from, read.offset, read.size}}});
        else
            for (const std::size_t entry : {std::size_t{0}, read.count - 1})
                for (const std::size_t byte : {std::size_t{0}, read.size - 1})
                    probes.push_back({number, &read, {{read.from, read.offset + entry * read.stride + byte, 1}}});
    }
    return probes;
}

/// Whether the text of the row is another when `span` has another content, of several that are tried.
bool countsIn(const Row &row, const Span &span, const std::string &text, const Store &store, const Store &noise) {
    const auto changes = [&](const auto &change) {
        change(loaded(span));
        const bool isAnother = run(row) != text;
        copy(row.spans, store);
        copy(span, store);
        return isAnother;
    };
    if (span.record == Record::board) {
        for (const std::uint32_t word : {0U, 5027U, 0x100U, 0x40U, 0x10U})
            if (changes([word](u8 *bytes) {
                    be32 number;
                    number = word;
                    std::memcpy(bytes, number.bytes, sizeof number);
                }))
                return true;
        return false;
    }
    const Span twin = {span.record == Record::current ? Record::defaults : Record::current, span.offset, span.size};
    const u8 *const inOther = stored(twin, store);
    const u8 *const inNoise = stored(span, noise);
    for (const u8 *const bytes : {inOther, inNoise})
        if (changes([&](u8 *to) { std::memcpy(to, bytes, span.size); })) return true;
    for (const unsigned bits : {0x01U, 0x10U, 0xffU})
        if (changes([&](u8 *to) { *to = static_cast<u8>(*to ^ bits); })) return true;
    return false;
}

bool countsIn(const Row &row, std::string_view operation, const std::string &text, const Store &store) {
    if (operation == methodGet) platform.passwordMethod = store.md5Method ? 0 : 1;
    if (operation == md5Get) platform.md5 = [](const char *, char *to) { std::strcpy(to, "other"); };
    const bool isAnother = run(row) != text;
    copy(row.spans, store);
    usePlatformOf(store);
    return isAnother;
}

TEST(Reads, AreMinimal) {
    // The limit of learned addresses on the ports is handed its current section twice, so that delta mode finds no
    // difference, whatever it holds.
    const std::string compareWithItself =
        "convConfigMacLimit_MacLimit_configure_interface_security_mac_limit, delta mode";
    std::vector<Probe> pending;
    for (std::size_t i = 0; i < rows().size(); ++i)
        if (rows()[i].name != compareWithItself)
            for (const Probe &probe : probesOf(i)) pending.push_back(probe);
    EXPECT_GT(pending.size(), rows().size());

    const auto store = std::make_unique<Store>();
    const auto noise = std::make_unique<Store>();
    for (std::uint32_t number = 0; number < storeCount && !pending.empty(); ++number) {
        composeStore(number, *store);
        composeNoise(Noise::structured, number, *store, *noise);
        load(*store);
        std::vector<std::optional<std::string>> texts(rows().size());
        std::erase_if(pending, [&](const Probe &probe) {
            const Row &row = rows()[probe.row];
            std::optional<std::string> &text = texts[probe.row];
            if (!text) {
                text = run(row);
                copy(row.spans, *store);
            }
            if (probe.read->from == Record::platform) return countsIn(row, probe.read->name, *text, *store);
            return std::ranges::any_of(probe.alternatives,
                                       [&](const Span &span) { return countsIn(row, span, *text, *store, *noise); });
        });
    }
    for (const Probe &probe : pending)
        ADD_FAILURE() << rows()[probe.row].name << " declares " << nameOf(probe.read->from) << probe.read->name
                      << " without reading it"
                      << (probe.alternatives.empty()
                              ? ""
                              : ": " + placeOf(probe.alternatives[0].record, probe.alternatives[0].offset));
}

} // namespace
