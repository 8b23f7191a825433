#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/UserInterface.hpp"
#include "dictionary/Answers.hpp"
#include "dictionary/WordQuestion.hpp"
#include "files/FileSystem.hpp"

namespace karvel {

/// Answers questions that are typed: Italian, transliteration, signs.
///
/// The dictionary is read and folded once and kept in memory until its file changes. One of more than
/// `kMost` records is read from the file for each question.
class WordFinder {
  public:
    static constexpr std::size_t kMost = 200'000;

    struct Result {
        QuestionKind kind = QuestionKind::Italian;  ///< what the text was understood as
        Answers answers;                            ///< best first
        std::optional<RuntimeError> failure;        ///< the fault of the file at which reading ended
        bool stopped = false;                       ///< the user stopped the reading
    };

    /// Both must outlive the finder. `most` is the largest number of records kept in memory.
    WordFinder(const FileSystem& files, UserInterface& ui, std::string_view path = kDictionaryPath,
               std::size_t most = kMost);
    ~WordFinder();

    /// The answers to `text`, UTF-8, in the dictionary as it is now. Without `kind` the text is asked as
    /// every kind that it can be; the kind with the best answer counts, Italian where two are equal. Throws
    /// RuntimeError when the dictionary cannot be opened.
    [[nodiscard]] Result ask(std::string_view text, std::optional<QuestionKind> kind = {});

  private:
    struct Folded;
    class Inquiry;

    void fold();
    void askFile(Inquiry& inquiry, Result& result) const;

    const FileSystem& files_;
    UserInterface& ui_;
    std::string path_;
    std::size_t most_;
    FileState state_;  ///< of the file when it was folded
    std::shared_ptr<const Folded> folded_;
};

}  // namespace karvel
