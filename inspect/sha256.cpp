#include "inspect/sha256.h"

#include "inspect/values.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace inspect {
namespace {

constexpr std::size_t blockSize = 64;
constexpr std::size_t rounds = 64;

using State = std::array<std::uint32_t, 8>;

struct Constants {
    State start;                             ///< of the square roots of the first 8 primes
    std::array<std::uint32_t, rounds> round; ///< of the cube roots of the first 64

    Constants() {
        const auto fraction = [](double root) {
            return static_cast<std::uint32_t>(std::ldexp(root - std::floor(root), 32));
        };
        const auto isPrime = [](unsigned number) {
            for (unsigned divisor = 2; divisor * divisor <= number; ++divisor)
                if (number % divisor == 0) return false;
            return true;
        };
        unsigned prime = 1;
        for (std::size_t i = 0; i < rounds; ++i) {
            do ++prime;
            while (!isPrime(prime));
            if (i < start.size()) start[i] = fraction(std::sqrt(prime));
            round[i] = fraction(std::cbrt(prime));
        }
    }
};

void addBlock(State &state, const Constants &constants, const unsigned char *block) {
    std::array<std::uint32_t, rounds> word;
    for (std::size_t i = 0; i < 16; ++i) {
        const unsigned char *const bytes = block + 4 * i;
        word[i] =
            std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 | std::uint32_t{bytes[2]} << 8 | bytes[3];
    }
    for (std::size_t i = 16; i < rounds; ++i) {
        const std::uint32_t a = word[i - 15];
        const std::uint32_t b = word[i - 2];
        word[i] = word[i - 16] + word[i - 7] + (std::rotr(a, 7) ^ std::rotr(a, 18) ^ a >> 3) +
                  (std::rotr(b, 17) ^ std::rotr(b, 19) ^ b >> 10);
    }
    auto [a, b, c, d, e, f, g, h] = state;
    for (std::size_t i = 0; i < rounds; ++i) {
        const std::uint32_t first = h + (std::rotr(e, 6) ^ std::rotr(e, 11) ^ std::rotr(e, 25)) + ((e & f) ^ (~e & g)) +
                                    constants.round[i] + word[i];
        const std::uint32_t second =
            (std::rotr(a, 2) ^ std::rotr(a, 13) ^ std::rotr(a, 22)) + ((a & b) ^ (a & c) ^ (b & c));
        h = g, g = f, f = e, e = d + first, d = c, c = b, b = a, a = first + second;
    }
    const State added = {a, b, c, d, e, f, g, h};
    for (std::size_t i = 0; i < state.size(); ++i) state[i] += added[i];
}

} // namespace

std::string sha256(const void *bytes, std::size_t size) {
    static const Constants constants;
    const unsigned char *const all = static_cast<const unsigned char *>(bytes);
    State state = constants.start;
    const std::size_t whole = size / blockSize * blockSize;
    for (std::size_t at = 0; at < whole; at += blockSize) addBlock(state, constants, all + at);

    // The rest, a single bit, zeros, and the size in bits.
    std::array<unsigned char, 2 *blockSize> last = {};
    const std::size_t rest = size - whole;
    std::memcpy(last.data(), all + whole, rest);
    last[rest] = 0x80;
    const std::size_t end = rest + 1 + 8 <= blockSize ? blockSize : 2 * blockSize;
    for (std::size_t i = 0; i < 8; ++i)
        last[end - 1 - i] = static_cast<unsigned char>(std::uint64_t{size} * 8 >> 8 * i);
    for (std::size_t at = 0; at < end; at += blockSize) addBlock(state, constants, last.data() + at);

    std::array<unsigned char, 32> digest;
    for (std::size_t i = 0; i < digest.size(); ++i)
        digest[i] = static_cast<unsigned char>(state[i / 4] >> (24 - 8 * (i % 4)));
    return hexadecimal(digest);
}

} // namespace inspect
