#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace karvel {

/// Looking at many bytes at once. Fields are a dozen bytes long: a library call for each of them would cost
/// more than the search.

inline constexpr std::size_t kBlock = 64;

/// How far behind the bytes that matter these functions may look; what stands there never decides anything.
inline constexpr std::size_t kScanPadding = kBlock + 2;

#if defined(__SSE2__)
namespace scan {

inline __m128i load(const char* from)
{
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
}

inline __m128i equal(const char* from, char byte)
{
    return _mm_cmpeq_epi8(load(from), _mm_set1_epi8(byte));
}

inline std::uint64_t bits(__m128i sixteen)
{
    return static_cast<std::uint64_t>(static_cast<unsigned>(_mm_movemask_epi8(sixteen)));
}

}  // namespace scan
#endif

/// The first double quote in [from, end), or `end`.
inline const char* findQuote(const char* from, const char* end)
{
#if defined(__SSE2__)
    for (; from < end; from += 16) {
        if (const std::uint64_t hits = scan::bits(scan::equal(from, '"')); hits != 0) {
            return std::min(from + std::countr_zero(hits), end);
        }
    }
    return end;
#else
    const void* const hit = std::memchr(from, '"', static_cast<std::size_t>(end - from));
    return hit != nullptr ? static_cast<const char*>(hit) : end;
#endif
}

/// What stands in a block; bit i is its byte i.
struct BlockMarks {
    std::uint64_t quotes = 0;   ///< double quotes
    std::uint64_t closing = 0;  ///< double quotes before CR LF
};

inline BlockMarks marksOf(const char* block)
{
    BlockMarks marks;
#if defined(__SSE2__)
    for (std::size_t i = 0; i < kBlock; i += 16) {
        const __m128i quotes = scan::equal(block + i, '"');
        const __m128i ends =
            _mm_and_si128(scan::equal(block + i + 1, '\r'), scan::equal(block + i + 2, '\n'));
        marks.quotes |= scan::bits(quotes) << i;
        marks.closing |= scan::bits(_mm_and_si128(quotes, ends)) << i;
    }
#else
    for (std::size_t i = 0; i < kBlock; ++i) {
        const bool quote = block[i] == '"';
        marks.quotes |= std::uint64_t{quote} << i;
        marks.closing |= std::uint64_t{quote && block[i + 1] == '\r' && block[i + 2] == '\n'} << i;
    }
#endif
    return marks;
}

/// Whether `text`, not empty, begins anywhere in the block. The bytes that it may reach to must be there.
inline bool beginsInBlock(std::string_view text, const char* block)
{
    std::uint64_t starts = 0;
    const std::size_t back = text.size() - 1;
#if defined(__SSE2__)
    for (std::size_t i = 0; i < kBlock; i += 16) {
        const __m128i ends = scan::equal(block + i + back, text.back());
        starts |= scan::bits(_mm_and_si128(scan::equal(block + i, text.front()), ends)) << i;
    }
#else
    for (std::size_t i = 0; i < kBlock; ++i) {
        starts |= std::uint64_t{block[i] == text.front() && block[i + back] == text.back()} << i;
    }
#endif
    for (; starts != 0; starts &= starts - 1) {
        if (std::memcmp(block + std::countr_zero(starts), text.data(), text.size()) == 0) {
            return true;
        }
    }
    return false;
}

}  // namespace karvel
