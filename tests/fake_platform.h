/// A platform for the tests: serves images composed in the test, records every call in order and can fail any of them.
#pragma once

#include "platform/board.h"
#include "platform/image.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

struct FakePlatform {
    ConfigImage images[4]; ///< by selector
    BoardRecord board;
    std::int32_t bank;                                        ///< state of the image banks
    std::int32_t passwordMethod;                              ///< non-zero: MD5
    std::function<void(const char *password, char *md5)> md5; ///< what the platform makes of a password

    /// How an IPv4 address is written; null: as the stand-in does.
    std::function<std::string(const unsigned char *octets)> addressText;
    /// The same of an IPv6 address, of a list of ports, which may leave the text as it is, and of two bytes.
    std::function<std::string(const unsigned char *octets)> ipv6Text;
    std::function<void(const unsigned char *bitmap, char *text)> portListText;
    std::function<std::string(const unsigned char *bytes)> digitsText;
    /// What is answered about a bit; null: as the stand-in does.
    std::function<int(const unsigned char *bitmap, int bit)> bitAnswer;

    std::vector<std::string>
        calls;               ///< "start", "eeprom 1", "config 1 0", "bank 2", "end 1", "method -1", "md5 -1 secret"
    int failingCall;         ///< index in `calls` of the call that fails; none if negative
    std::int32_t failure;    ///< what a failing read returns
    std::int32_t lastHandle; ///< the handle given out last; the next one is one more
    std::function<void()> onStart; ///< called at each start of a transaction
    /// Called before a record is filled, with what the program left there.
    std::function<void(const void *record)> onBoard;
    std::function<void(std::int32_t selector, const void *image)> onConfig;

    /// As it is before each test: zero images and board, bank 1, passwords in clear, no failure, no calls.
    void reset();
};

extern FakePlatform platform;
