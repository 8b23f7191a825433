#include "dictionary/RecordFilter.hpp"

#include <algorithm>
#include <utility>

#include "dictionary/DictionaryEntry.hpp"

namespace karvel {

namespace {

/// Bytes that are scanned at once. The number of fields that end in a chunk must fit into one byte.
constexpr std::size_t kChunk = 512;

/// Closing quote, CR, LF: the end of a field in the usual form. The next field begins behind it.
constexpr std::size_t kFieldEnd = 3;

/// Bytes behind a chunk that are scanned too: the quote that opens the next field, and two bytes that tell
/// whether it closes a field.
constexpr std::size_t kBehindChunk = kFieldEnd + 2;

struct ChunkFacts {
    std::uint8_t unusual = 0;    ///< not 0: a quote neither opens nor closes a field of the usual form
    std::uint8_t candidate = 0;  ///< not 0: the text may begin in the chunk
    std::uint8_t fields = 0;     ///< number of fields that end in the chunk
};

bool fieldEndsAt(const char* at)
{
    // No short circuit: the compiler turns this into vector instructions.
    return (at[0] == '"') & (at[1] == '\r') & (at[2] == '\n');
}

/// Whether the bytes at `at` may be the text.
[[gnu::always_inline]] inline bool probesFit(const char* at, const RecordFilter::Probes& probes)
{
    const auto& [offset, byte] = probes;
    return (at[offset[0]] == byte[0]) & (at[offset[1]] == byte[1]) & (at[offset[2]] == byte[2]) &
           (at[offset[3]] == byte[3]);
}

/// The loop has no branch, so that the compiler can turn it into vector instructions.
[[gnu::always_inline]] inline ChunkFacts factsOf(const char* chunk, RecordFilter::Probes probes)
{
    ChunkFacts facts;
    for (std::size_t i = 0; i < kChunk; ++i) {
        const bool end = fieldEndsAt(chunk + i);
        // Where a field ends another one begins, and no quote does both. Every other quote closes a field.
        const bool unusual = (chunk[i + kFieldEnd] == '"') ^ fieldEndsAt(chunk + i + kFieldEnd) ^ end;
        facts.unusual = static_cast<std::uint8_t>(facts.unusual | unusual);
        facts.candidate = static_cast<std::uint8_t>(facts.candidate | probesFit(chunk + i, probes));
        facts.fields = static_cast<std::uint8_t>(facts.fields + end);
    }
    return facts;
}

using FactsOf = ChunkFacts (*)(const char*, const RecordFilter::Probes&);

ChunkFacts plainFactsOf(const char* chunk, const RecordFilter::Probes& probes)
{
    return factsOf(chunk, probes);
}

#if defined(__x86_64__)
[[gnu::target("avx2")]] ChunkFacts wideFactsOf(const char* chunk, const RecordFilter::Probes& probes)
{
    return factsOf(chunk, probes);
}

/// Most processors compare 32 bytes at once, all of them 16.
FactsOf fastestFactsOf()
{
    return __builtin_cpu_supports("avx2") != 0 ? wideFactsOf : plainFactsOf;
}
#else
FactsOf fastestFactsOf()
{
    return plainFactsOf;
}
#endif

/// Whether the first bytes, which no chunk checks, are those of a field in the usual form.
bool beginsUsually(const char* bytes)
{
    for (std::size_t i = 0; i < kFieldEnd; ++i) {
        const bool opens = i == 0;
        if ((bytes[i] == '"') != (opens != fieldEndsAt(bytes + i))) {
            return false;
        }
    }
    return true;
}

/// Where `text` begins in a chunk; npos when it does not.
std::size_t findIn(const char* chunk, std::string_view text, RecordFilter::Probes probes)
{
    // Most bytes are quotes and letters that stand everywhere: a general search would stop too often.
    constexpr std::size_t kBlock = 32;
    for (std::size_t at = 0; at < kChunk; at += kBlock) {
        std::uint8_t candidate = 0;
        for (std::size_t i = at; i < at + kBlock; ++i) {
            candidate = static_cast<std::uint8_t>(candidate | probesFit(chunk + i, probes));
        }
        const std::string_view block(chunk + at, kBlock + text.size() - 1);
        if (const std::size_t found = candidate != 0 ? block.find(text) : block.npos; found != block.npos) {
            return at + found;
        }
    }
    return std::string_view::npos;
}

/// The number of fields that end in the first `count` bytes.
std::size_t fieldsIn(const char* bytes, std::size_t count)
{
    std::size_t fields = 0;
    for (std::size_t i = 0; i < count; ++i) {
        fields += fieldEndsAt(bytes + i) ? 1 : 0;
    }
    return fields;
}

/// The offset of a record behind which one or two whole records end before `end`; 0 when there is none.
/// `fields` is the number of fields that end before `end`, all of them in the usual form.
std::size_t recordBefore(const char* bytes, std::size_t end, std::size_t fields)
{
    if (fields < 2 * kRecordFields) {
        return 0;
    }
    for (std::size_t left = kRecordFields + fields % kRecordFields + 1; left > 0; --left) {
        do {
            --end;
        } while (!fieldEndsAt(bytes + end));
    }
    return end + kFieldEnd;
}

}  // namespace

RecordFilter::RecordFilter(std::string text) : text_(std::move(text))
{
    for (std::size_t i = 0; i < probes_.at.size(); ++i) {
        // Sign codes differ most in their digits. The last bytes of the text hold two of them in a row.
        probes_.at[i] = text_.size() - 1 - std::min(i, text_.size() - 1);
        probes_.byte[i] = text_[probes_.at[i]];
    }
}

RecordFilter::Result RecordFilter::scan(std::string_view bytes) const
{
    static const FactsOf fastest = fastestFactsOf();
    const std::size_t behind = std::max(kBehindChunk, text_.size());
    std::size_t at = 0;
    std::size_t fields = 0;
    for (; bytes.size() - at >= kChunk + behind; at += kChunk) {
        const ChunkFacts facts = fastest(bytes.data() + at, probes_);
        if (facts.unusual != 0 || (at == 0 && !beginsUsually(bytes.data()))) {
            break;
        }
        if (facts.candidate != 0) {
            if (const std::size_t found = findIn(bytes.data() + at, text_, probes_);
                found != std::string_view::npos) {
                fields += fieldsIn(bytes.data() + at, found);
                at += found;
                return {.skip = recordBefore(bytes.data(), at, fields), .read = at + 1};
            }
        }
        fields += facts.fields;
    }
    return {.skip = recordBefore(bytes.data(), at, fields), .read = at + kChunk};
}

}  // namespace karvel
