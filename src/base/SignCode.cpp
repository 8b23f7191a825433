#include "base/SignCode.hpp"

namespace karvel {

std::string signCode(std::size_t page, std::size_t key)
{
    const std::size_t number = key + 1;
    return {kCategories[page - 1], static_cast<char>('0' + number / 10),
            static_cast<char>('0' + number % 10)};
}

bool isSignCode(std::string_view code)
{
    if (code.size() != kCodeLength || kCategories.find(code[0]) == std::string_view::npos) {
        return false;
    }
    const int tens = code[1] - '0';
    const int units = code[2] - '0';
    const int number = tens * 10 + units;
    return tens >= 0 && tens <= 5 && units >= 0 && units <= 9 && number >= 1 &&
           number <= static_cast<int>(kKeys);
}

bool isSignSequence(std::string_view codes)
{
    if (codes.empty() || codes.size() % kCodeLength != 0) {
        return false;
    }
    for (std::size_t at = 0; at < codes.size(); at += kCodeLength) {
        if (!isSignCode(codes.substr(at, kCodeLength))) {
            return false;
        }
    }
    return true;
}

std::vector<std::string_view> splitCodes(std::string_view codes)
{
    std::vector<std::string_view> pieces;
    for (std::size_t at = 0; at < codes.size(); at += kCodeLength) {
        pieces.push_back(codes.substr(at, kCodeLength));
    }
    return pieces;
}

}  // namespace karvel
