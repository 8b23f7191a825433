// Runs a target on every file of the given directories, and on changed copies of them. The changes are random
// with a fixed seed: every run tries the same inputs.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

#include "Target.hpp"

namespace {

constexpr int kCopies = 40;  // of each file

/// Changes, removes or doubles a few bytes.
void change(std::string& bytes, std::mt19937& random)
{
    for (unsigned changes = 1 + random() % 4; changes > 0; --changes) {
        const std::size_t at = bytes.empty() ? 0 : random() % bytes.size();
        switch (random() % 4) {
            case 0:
                bytes.erase(at, 1 + random() % 8);
                break;
            case 1:
                bytes.insert(at, bytes.substr(at, 1 + random() % 16));
                break;
            case 2:
                bytes.insert(at, 1, "\" ,\r\n0-9ap"[random() % 11]);
                break;
            default:
                bytes.replace(at, 1, 1, static_cast<char>(random()));
        }
    }
}

void run(const std::string& bytes)
{
    // An exact copy: the sanitizer reports a read past the end.
    const std::vector<std::uint8_t> exact(bytes.begin(), bytes.end());
    LLVMFuzzerTestOneInput(exact.data(), exact.size());
}

}  // namespace

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
    std::mt19937 random(1);
    for (const fs::path& file : files) {
        std::fprintf(stderr, "%s\n", file.filename().c_str());
        std::ifstream stream(file, std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
        run(bytes);
        for (int copy = 0; copy < kCopies; ++copy) {
            std::string changed = bytes;
            change(changed, random);
            run(changed);
        }
    }
    std::printf("%zu inputs\n", files.size());
    return files.empty() ? 1 : 0;
}
