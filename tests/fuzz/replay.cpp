/// Runs a fuzz target over the files of a folder, without libFuzzer, and asks whether they reached everything:
/// `replay_TARGET FOLDER`.
#include "target.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

int main(int argc, char **argv) {
    if (argc != 2) return 2;
    thorough = true;
    std::vector<std::filesystem::path> paths;
    for (const auto &entry : std::filesystem::directory_iterator(argv[1])) paths.push_back(entry.path());
    std::sort(paths.begin(), paths.end());

    for (const std::filesystem::path &path : paths) {
        std::ifstream file(path, std::ios::binary);
        const std::vector<char> bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
        // A copy of exactly its size, so that a read beyond it is noticed.
        std::vector<std::uint8_t> data(bytes.begin(), bytes.end());
        std::fprintf(stderr, "%s\n", path.filename().c_str());
        LLVMFuzzerTestOneInput(data.data(), data.size());
    }
    std::printf("%zu inputs\n", paths.size());
    return !paths.empty() && everythingReached() ? 0 : 1;
}
