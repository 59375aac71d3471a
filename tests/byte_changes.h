/// Which bytes of the image count: every byte of a section is changed alone, and the text is looked at.
#pragma once

#include "stores.h"

#include <cstddef>
#include <initializer_list>

/// Bytes of the image, from `first` to `last`, and what a text begins with that one of them alone brings about.
struct Counting {
    std::size_t first;
    std::size_t last;
    std::string text;
};

/// Changes the byte at `offset` of the current image, after `given`.
inline Given withByte(const Given &given, std::size_t offset, u8 change) {
    return [=](ConfigImage &current, ConfigImage &defaults) {
        given(current, defaults);
        reinterpret_cast<u8 *>(&current)[offset] ^= change;
    };
}

/// Renders the store as it is with the byte at `offset` of the current image changed, and changes it back.
inline std::string textOfChange(Mode mode, const char *emitter, std::size_t offset) {
    u8 *const byte = reinterpret_cast<u8 *>(gSysConfig) + offset;
    clearText();
    *byte ^= 0x40;
    callStep(mode, emitter);
    *byte ^= 0x40;
    return Temp_Configuration;
}

/// `given` must leave nothing to write in delta mode. Holds that each byte from `first` to `last` that lies in a span
/// brings about a text that begins as the span says, and each other one none.
inline void expectCounting(const char *emitter, const Given &given, std::size_t first, std::size_t last,
                           const std::vector<Counting> &spans) {
    ASSERT_EQ("", textOfStep(Mode::delta, emitter, given));
    for (std::size_t offset = first; offset <= last; ++offset) {
        const Counting *of = nullptr;
        for (const Counting &span : spans)
            if (span.first <= offset && offset <= span.last) of = &span;
        const std::string text = textOfChange(Mode::delta, emitter, offset);
        if (of == nullptr) {
            EXPECT_EQ("", text) << "byte " << offset;
        } else {
            EXPECT_EQ(of->text, text.substr(0, of->text.size())) << "byte " << offset;
            EXPECT_NE("", text) << "byte " << offset;
        }
    }
}

/// Holds that the full-mode text changes with each byte from `first` to `last` that lies in a span, and with no other.
inline void expectRead(const char *emitter, const Given &given, std::size_t first, std::size_t last,
                       const std::vector<std::pair<std::size_t, std::size_t>> &spans) {
    const std::string unchanged = textOfStep(Mode::full, emitter, given);
    for (std::size_t offset = first; offset <= last; ++offset) {
        bool isRead = false;
        for (const auto &span : spans) isRead = isRead || (span.first <= offset && offset <= span.second);
        EXPECT_EQ(isRead, textOfChange(Mode::full, emitter, offset) != unchanged) << "byte " << offset;
    }
}
