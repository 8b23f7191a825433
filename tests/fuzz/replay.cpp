// Gives a target every file of the directories named, in order: what was found once stays found.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "Target.hpp"

int main(int argc, char** argv)
{
    namespace fs = std::filesystem;
    std::vector<fs::path> files;
    for (int i = 1; i < argc; ++i) {
        for (const auto& entry : fs::directory_iterator(argv[i])) {
            files.push_back(entry.path());
        }
    }
    std::ranges::sort(files);
    for (const fs::path& file : files) {
        std::fprintf(stderr, "%s\n", file.filename().c_str());
        std::ifstream stream(file, std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
        // A copy without a byte to spare behind it: reading past the end is then an error that shows.
        const std::vector<std::uint8_t> exact(bytes.begin(), bytes.end());
        LLVMFuzzerTestOneInput(exact.data(), exact.size());
    }
    std::printf("%zu inputs\n", files.size());
    return files.empty() ? 1 : 0;
}
