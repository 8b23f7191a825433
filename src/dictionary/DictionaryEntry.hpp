#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace karvel {

/// Where the dictionary is.
inline constexpr std::string_view kDictionaryPath = "C:\\programmi\\Karvel\\dizio.txt";

/// Fields of a record: signs, translation, transliteration, note.
inline constexpr std::size_t kRecordFields = 4;

/// One record of the dictionary, UTF-8.
struct DictionaryEntry {
    std::string signs;            ///< sign codes, three characters each, without separators
    std::string translation;      ///< Italian
    std::string transliteration;  ///< or a grammatical correspondence
    std::string note;             ///< a "*" first makes the rest the name of a picture

    friend bool operator==(const DictionaryEntry&, const DictionaryEntry&) = default;
};

/// The same as it is in the file: bytes of the code page, owned by the reader.
struct RawRecord {
    std::string_view signs;
    std::string_view translation;
    std::string_view transliteration;
    std::string_view note;

    [[nodiscard]] DictionaryEntry decoded() const;
};

/// What every search keeps for printing, for the insertion dialog and for the name transcription: the record
/// read last, whether or not it matched.
struct LastResult {
    std::string translation;
    std::string note;
    std::string foundCodes;  ///< the signs found last by the Italian search or made by a transcription
    std::string phrase{};    ///< the codes whose search gave translation and note; after the Italian search
                             ///< the codes of its entry
};

}  // namespace karvel
