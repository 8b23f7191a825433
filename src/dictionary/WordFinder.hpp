#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "dictionary/AnswerSearch.hpp"
#include "dictionary/WordQuestion.hpp"
#include "files/FileSystem.hpp"

namespace karvel {

/// Answers questions that are typed: Italian, transliteration, signs.
///
/// The dictionary is read and folded by the first search and kept in memory until its file changes. One of
/// more than `kMost` records is not kept: each search reads it from the file.
class WordFinder {
  public:
    static constexpr std::size_t kMost = 200'000;

    /// One question. It shares what it needs with the finder and may outlive it.
    class Search : public AnswerSearch {
      public:
        /// What the text is understood as; with each answer it may change.
        [[nodiscard]] virtual QuestionKind kind() const = 0;
    };

    /// `files` must outlive the finder and its searches. `most` is the largest number of records kept in
    /// memory.
    explicit WordFinder(const FileSystem& files, std::string_view path = kDictionaryPath,
                        std::size_t most = kMost);
    ~WordFinder();

    /// Begins to look for the answers to `text`, UTF-8, in the dictionary as it is now. Without `kind` the
    /// text is asked as every kind that it can be; the kind with the best answer counts, Italian where two
    /// are equal. A dictionary that cannot be opened is a failure of the search.
    [[nodiscard]] std::shared_ptr<Search> search(std::string_view text,
                                                 std::optional<QuestionKind> kind = {});

  private:
    class Folded;
    class Inquiry;

    const FileSystem& files_;
    std::string path_;
    std::size_t most_;
    std::shared_ptr<Folded> folded_;
};

}  // namespace karvel
