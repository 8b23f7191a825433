// Gives a target every file of a directory, in order, and then inputs made from them: DIRECTORY [ROUNDS].
// The made inputs are the same on every run.

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

#include "Target.hpp"

namespace {

void judge(const std::string& input)
{
    // A copy without a byte to spare behind it: reading past the end is then an error that shows.
    const std::vector<std::uint8_t> exact(input.begin(), input.end());
    LLVMFuzzerTestOneInput(exact.data(), exact.size());
}

class Changes {
  public:
    explicit Changes(const std::vector<std::string>& inputs) : inputs_(inputs) {}

    /// One of the inputs with some changes.
    std::string next()
    {
        constexpr std::size_t kLongest = 4096;
        std::string input = any();
        for (std::size_t count = below(8); count > 0; --count) {
            change(input);
        }
        return input.substr(input.size() - std::min(input.size(), kLongest));
    }

  private:
    std::size_t below(std::size_t limit) { return random_() % limit; }
    const std::string& any() { return inputs_[below(inputs_.size())]; }

    void change(std::string& input)
    {
        static constexpr std::string_view kBytes = "\"\"\",\r\n\r\n a01b\xE0\x80";
        const std::size_t at = below(input.size() + 1);
        const std::string& other = any();
        switch (below(6)) {
            case 0:
                input.insert(at, other, below(other.size() + 1), 1 + below(80));
                break;
            case 1:
                input.insert(at, input.substr(below(input.size() + 1), 1 + below(80)));
                break;
            case 2:
                input.erase(at, 1 + below(20));
                break;
            case 3:
                input += static_cast<char>(below(256));  // the end decides windows, steps and calls
                break;
            default:
                input.insert(at, 1, kBytes[below(kBytes.size())]);
        }
    }

    const std::vector<std::string>& inputs_;
    std::mt19937 random_{20261122};
};

}  // namespace

int main(int argc, char** argv)
{
    namespace fs = std::filesystem;
    if (argc < 2) {
        return 2;
    }
    std::vector<fs::path> files;
    for (const fs::path& file : fs::directory_iterator(argv[1])) {
        files.push_back(file);
    }
    std::ranges::sort(files);
    std::vector<std::string> inputs;
    for (const fs::path& file : files) {
        std::fprintf(stderr, "%s\n", file.filename().c_str());
        std::ifstream stream(file, std::ios::binary);
        judge(inputs.emplace_back(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()));
    }
    if (inputs.empty()) {
        return 1;
    }
    const int rounds = argc > 2 ? std::atoi(argv[2]) : 0;
    Changes changes(inputs);
    for (int round = 0; round < rounds; ++round) {
        std::fprintf(stderr, "round %d\n", round);
        judge(changes.next());
    }
    std::printf("%zu inputs, %d rounds\n", inputs.size(), rounds);
    return 0;
}
