#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/FileSystem.hpp"

namespace karvel {

inline constexpr std::string_view kHistoryPath = "C:\\programmi\\Karvel\\settaggi\\cronologia.txt";

/// The searches that were made last, oldest first, each once. They are read from their file when they are
/// first asked for. A file that is missing, damaged or cannot be written is no failure: the history is then
/// kept in memory alone.
class History {
  public:
    static constexpr std::size_t kKept = 200;
    static constexpr std::size_t kLongest = 1000;  ///< bytes of a text; a longer one is not kept

    struct Search {
        std::uint8_t mode = 0;  ///< the number of the search mode; 0 when a text was searched for
        std::string text;       ///< the sign codes, or the text in UTF-8

        [[nodiscard]] bool isText() const { return mode == 0; }
        friend bool operator==(const Search&, const Search&) = default;
    };

    /// `files` must outlive the history.
    explicit History(const FileSystem& files) : files_(files) {}

    [[nodiscard]] const std::vector<Search>& searches();

    /// The phrase `codes` is searched for in the mode `mode` (1 to 6). An empty phrase is not kept.
    void rememberPhrase(std::uint8_t mode, std::string_view codes);

    /// `text` is searched for. Blanks around it do not count; an empty text is not kept.
    void rememberText(std::string_view text);

    /// The nearest earlier phrase that differs from `shown`, the phrase composed now. Nothing when there is
    /// none. The next step starts from it.
    [[nodiscard]] std::optional<std::string> earlier(std::string_view shown) { return step(-1, shown); }
    /// The same towards the newest.
    [[nodiscard]] std::optional<std::string> later(std::string_view shown) { return step(1, shown); }

    /// The user has chosen search number `index` of `searches`: the next step starts from it.
    void stepFrom(std::size_t index) { position_ = static_cast<std::ptrdiff_t>(index); }

    /// Deletes all searches and the file. Throws RuntimeError when the file cannot be deleted: the history is
    /// then as it was.
    void clear();

  private:
    void read();
    void remember(Search search);
    void write() const;
    [[nodiscard]] std::optional<std::string> step(std::ptrdiff_t direction, std::string_view shown);

    const FileSystem& files_;
    std::vector<Search> searches_;
    std::ptrdiff_t position_ = 0;  ///< of the search brought back last; their number when there is none
    bool read_ = false;
    bool mayWrite_ = true;  ///< false when the file exists but cannot be read: it is not overwritten
};

}  // namespace karvel
