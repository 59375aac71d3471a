/// Files as the tests read them.
#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

/// All bytes of the file, none if it cannot be read.
inline std::string bytesOfFile(const std::filesystem::path &path) {
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
}
