#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace karvel {

/// Signs as numbers in the order of the palette; 0 stands for what is no sign.
using SignNumbers = std::u16string;
using SignsView = std::u16string_view;

inline constexpr char16_t kSignNumbers = 743;  ///< one more than the greatest

/// The signs of `codes`, one for every three characters.
[[nodiscard]] SignNumbers signsOf(std::string_view codes);

/// How a spelling may differ from a known one: one sign more at its end or inside, one fewer, one other.
enum class Edit : std::uint8_t { AtEnd, Inside, Without, Other };
inline constexpr std::size_t kEdits = 4;

/// Counts from passages whose words are known. A word is named by its number, its place in `words`.
struct ReadingModel {
    struct Word {
        std::string transliteration;
        std::uint32_t kind = 0;  ///< part of speech, below kKinds; 0 unknown
        float count = 0;
    };
    struct Spelling {
        SignNumbers signs;
        std::uint32_t word = 0;
        float count = 0;
    };
    struct Sequence {
        std::uint32_t before2 = 0;  ///< only in `triples`
        std::uint32_t before = 0;
        std::uint32_t word = 0;
        float count = 0;
    };
    struct EditCount {
        Edit edit = Edit::AtEnd;
        char16_t sign = 0;
        char16_t beside = 0;  ///< the sign before it, for Edit::Other the one that it replaces; 0 none
        float count = 0;
    };

    static constexpr std::uint32_t kKinds = 64;

    std::vector<Word> words{1};  ///< word 0 is the edge of a passage
    std::vector<Spelling> spellings;
    std::vector<Sequence> pairs;
    std::vector<Sequence> triples;
    std::vector<EditCount> edits;
};

/// Reads a model file; docs/reading.md tells its form. Throws RuntimeError 13 for anything that is not a
/// whole model.
[[nodiscard]] ReadingModel parseModel(std::string_view bytes);

}  // namespace karvel
