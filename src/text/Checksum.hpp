#pragma once

#include <cstdint>
#include <string_view>

namespace karvel {

/// 64-bit FNV-1a of `bytes`; `before` is the checksum of what stands before them. tools/remember-edition
/// computes the same one.
[[nodiscard]] constexpr std::uint64_t checksum(std::string_view bytes,
                                               std::uint64_t before = 0xCBF29CE484222325ULL)
{
    for (const char byte : bytes) {
        before = (before ^ static_cast<unsigned char>(byte)) * 0x100000001B3ULL;
    }
    return before;
}

}  // namespace karvel
