#include "inspect/mask.h"

#include "inspect/fields.h"
#include "platform/host/password_md5.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <stdexcept>

namespace inspect {
namespace {

constexpr std::string_view maskText = "***";
constexpr std::string_view signs = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";

/// Secrets that are longer than what is compared of the 802.1X secret have masks of two parts.
constexpr std::size_t longSecret = Dot1xConfig::comparedSecret;
constexpr std::size_t dot1xSecret = offsetof(ConfigImage, dot1x) + offsetof(Dot1xConfig, secret);
static_assert(sizeof(Dot1xConfig::secret) == longSecret + 2);

/// Reserved bytes from this size on may continue a text that has no terminator.
constexpr std::size_t longReserved = 16;

std::string charactersOf(std::span<const unsigned char> bytes) { return {bytes.begin(), bytes.end()}; }

std::string upToNul(std::span<const unsigned char> field) {
    return {field.begin(), std::ranges::find(field, static_cast<unsigned char>(0))};
}

/// Without the NULs at the end.
std::string trimmed(std::span<const unsigned char> bytes) {
    std::string content = charactersOf(bytes);
    content.resize(content.find_last_not_of('\0') + 1);
    return content;
}

} // namespace

void Masks::expectMd5FormsOf(const ConfigImage &image) {
    for (const User &user : image.users)
        passwords_.insert(
            std::string(user.password.characters, strnlen(user.password.characters, user.password.width)));
}

/// The password that has this MD5 form; null if there is none.
const std::string *Masks::passwordOfMd5Form(const std::string &form) {
    if (form.size() + 1 != passwordMd5Size) return nullptr;
    for (const std::string &password : passwords_) {
        char made[passwordMd5Size] = {};
        if (makePasswordMd5(password.c_str(), made) == nullptr) forms_.emplace(made, password);
    }
    passwords_.clear();
    const auto found = forms_.find(form);
    return found == forms_.end() ? nullptr : &found->second;
}

char Masks::signOf(const std::string &head, const std::string &tail) {
    const std::size_t number = tails_[head].of(tail);
    if (number > signs.size()) throw std::length_error("too many secrets have the same beginning");
    return signs[number - 1];
}

std::string Masks::maskOf(const std::string &secret) {
    if (secret.empty()) return secret;
    // Whatever renders the masked records makes the MD5 forms of masked passwords. They have to meet stored forms
    // where those of the passwords did.
    if (const std::string *const password = passwordOfMd5Form(secret)) {
        char form[passwordMd5Size] = {};
        if (makePasswordMd5(maskOf(*password).c_str(), form) == nullptr) return form;
    }
    const std::string head = secret.substr(0, longSecret);
    std::string mask = std::string(maskText) + std::to_string(secrets_.of(head));
    if (secret.size() < longSecret) return mask;
    mask.resize(longSecret, maskText[0]);
    if (secret.size() == longSecret) return mask;
    mask.resize(secret.size() - 1, maskText[0]);
    return mask + signOf(head, secret.substr(longSecret));
}

void Masks::maskSecret(std::span<unsigned char> field, std::size_t compared) {
    const std::string secret = upToNul(field);
    const std::string mask = maskOf(secret);
    const std::string head = trimmed(field.first(compared));
    const std::string tail = trimmed(field.subspan(compared));
    std::ranges::fill(field, static_cast<unsigned char>(0));
    std::ranges::copy(mask, field.begin());
    if (head.size() > secret.size()) {
        const std::string hidden = '*' + std::to_string(hidden_.of(head));
        // After the MD5 form of a masked password one byte may be all there is.
        if (mask.size() + 1 + hidden.size() > compared)
            field[compared - 1] = static_cast<unsigned char>(signOf(secret, head));
        else std::ranges::copy(hidden, field.begin() + static_cast<std::ptrdiff_t>(mask.size()) + 1);
    }
    if (secret.size() <= compared && !tail.empty()) field.back() = static_cast<unsigned char>(signOf(head, tail));
}

void Masks::maskReserved(std::span<unsigned char> bytes) {
    const std::string content = trimmed(bytes);
    if (content.empty()) return;
    std::size_t number = reserved_[bytes.size()].of(content);
    std::ranges::fill(bytes, static_cast<unsigned char>(0));
    if (content[0] != '\0' && bytes.size() >= longReserved) {
        std::ranges::copy(std::string(maskText) + std::to_string(number), bytes.begin());
        return;
    }
    for (std::size_t i = bytes.size(); i > 0 && number != 0; number >>= 8)
        bytes[--i] = static_cast<unsigned char>(number);
}

void Masks::mask(ConfigImage &image) {
    forEachLeaf(Part::image, [&](const Leaf &leaf) {
        const std::span<unsigned char> bytes(leaf.in(static_cast<void *>(&image)), leaf.size());
        if (leaf.isReserved()) maskReserved(bytes);
        else if (leaf.field().kind == Kind::secret)
            maskSecret(bytes, leaf.offset() == dot1xSecret ? Dot1xConfig::comparedSecret : bytes.size());
    });
}

void Masks::mask(BoardRecord &board) {
    forEachLeaf(Part::board, [&](const Leaf &leaf) {
        if (leaf.isReserved()) maskReserved({leaf.in(static_cast<void *>(&board)), leaf.size()});
    });
}

Input maskedCopy(const Input &input) {
    Masks masks;
    for (const ImagePart *part : {&input.image, &input.defaults})
        if (*part && input.md5.value_or(false)) masks.expectMd5FormsOf(**part);
    return maskedCopy(input, masks);
}

Input maskedCopy(const Input &input, Masks &masks) {
    Input copy = input;
    for (ImagePart *part : {&copy.image, &copy.defaults}) {
        if (!*part) continue;
        part->value = std::make_shared<ConfigImage>(**part);
        masks.mask(*part->value);
    }
    return copy;
}

} // namespace inspect
