/// Records without their secrets.
///
/// Masking works on copies, before anything is printed. Equal secrets get equal masks and different ones different
/// masks, so that a masked text has the same lines as the plain one: emitters compare texts up to their NUL, whole
/// records byte by byte, and the 802.1X secret by its first bytes alone.
#pragma once

#include "inspect/record_source.h"

#include <cstddef>
#include <map>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace inspect {

/// The masks of one call.
class Masks {
public:
    /// Passwords whose MD5 forms may be stored somewhere, or be made while a text is rendered. To be called for every
    /// image before the first one is masked.
    void expectMd5FormsOf(const ConfigImage &image);

    /// Every secret that is not empty becomes a mask, and so do the bytes after its NUL. Reserved bytes, which may hold
    /// anything, become numbers of what they held.
    void mask(ConfigImage &image);
    void mask(BoardRecord &board);

private:
    /// Numbers from 1 on, by content.
    class Numbering {
    public:
        std::size_t of(const std::string &content) {
            return numbers_.try_emplace(content, numbers_.size() + 1).first->second;
        }

    private:
        std::map<std::string, std::size_t> numbers_;
    };

    std::string maskOf(const std::string &secret);
    const std::string *passwordOfMd5Form(const std::string &form);
    char signOf(const std::string &head, const std::string &tail);
    void maskSecret(std::span<unsigned char> field, std::size_t compared);
    void maskReserved(std::span<unsigned char> bytes);

    std::set<std::string> passwords_;          ///< of which no MD5 form was made yet
    std::map<std::string, std::string> forms_; ///< MD5 forms, and the passwords that they were made of
    Numbering secrets_;
    Numbering hidden_;
    std::map<std::string, Numbering> tails_;    ///< what follows the compared bytes, by those
    std::map<std::size_t, Numbering> reserved_; ///< by size
};

/// A copy of an input whose image and default image are masked. Comparisons that are to be shown are made before, on
/// the originals.
Input maskedCopy(const Input &input);
/// The same with masks that other records share. Passwords have to be expected by then.
Input maskedCopy(const Input &input, Masks &masks);

/// What is shown instead of reserved bytes.
inline constexpr const char *hiddenBytes = "***";

} // namespace inspect
