#include "dictionary/WordFinder.hpp"

#include <algorithm>
#include <utility>

namespace karvel {

/// The records of the dictionary that searches have read so far, folded. A search that comes to the end of
/// them reads further records. So the first answer does not wait until the whole file is read.
class WordFinder::Folded {
  public:
    struct Record {
        std::shared_ptr<const DictionaryEntry> entry;
        std::size_t word = 0;
    };

    Folded(const FileSystem& files, std::string path, std::size_t most)
        : files_(files), path_(std::move(path)), most_(most)
    {
    }

    /// Whether the file is still the one that was read.
    [[nodiscard]] bool current() const
    {
        try {
            return state_ && files_.state(path_) == *state_;
        } catch (const RuntimeError&) {
            return false;
        }
    }

    [[nodiscard]] std::unique_ptr<RecordReader> read(ReadingProgress& progress) const
    {
        return std::make_unique<RecordReader>(openFollowed(files_, path_, progress));
    }

    /// The record `number`, from 0; null behind the last one, and when there are too many to be kept. Throws
    /// RuntimeError at a fault of the file.
    [[nodiscard]] const Record* at(std::size_t number)
    {
        while (!tooLarge_ && number >= records_.size()) {
            if (failure_) {
                throw RuntimeError(*failure_);
            }
            if (!grow()) {
                return nullptr;
            }
        }
        return tooLarge_ ? nullptr : &records_[number];
    }

    /// The word `number` of the records, from 0.
    [[nodiscard]] const FoldedEntry& word(std::size_t number) const { return words_[number]; }

    [[nodiscard]] bool tooLarge() const { return tooLarge_; }
    [[nodiscard]] int percent() const { return progress_.percent(); }

  private:
    bool grow()
    {
        try {
            if (!state_) {
                state_ = files_.state(path_);
                reader_ = read(progress_);
            }
            if (!reader_ || !reader_->next()) {
                reader_.reset();
                return false;
            }
        } catch (const RuntimeError& error) {
            failure_ = error;
            throw;
        }
        if (records_.size() == most_) {
            tooLarge_ = true;
            numbers_ = {};
            records_ = {};
            words_ = {};
            reader_.reset();
            return false;
        }
        auto entry = std::make_shared<const DictionaryEntry>(reader_->record().decoded());
        const std::size_t word = numbers_.of(*entry);
        if (word == words_.size()) {
            words_.emplace_back(*entry);
        }
        records_.push_back({std::move(entry), word});
        return true;
    }

    const FileSystem& files_;
    std::string path_;
    std::size_t most_;
    std::optional<FileState> state_;
    ReadingProgress progress_;
    std::unique_ptr<RecordReader> reader_;  ///< null at the end of the file
    std::vector<Record> records_;
    std::vector<FoldedEntry> words_;  ///< the spellings of one word are folded once
    WordNumbers numbers_;
    bool tooLarge_ = false;
    std::optional<RuntimeError> failure_;
};

/// A text asked as each kind that it can be.
class WordFinder::Inquiry : public WordFinder::Search {
  public:
    Inquiry(std::shared_ptr<Folded> records, std::string_view text, std::optional<QuestionKind> only)
        : records_(std::move(records)), usual_(only.value_or(QuestionKind::Italian))
    {
        for (const QuestionKind kind : kQuestionKinds) {
            if (auto question = WordQuestion::make(text, kind); question && only.value_or(kind) == kind) {
                questions_.push_back({std::move(*question), {}, {}, {}});
            }
        }
    }

    [[nodiscard]] QuestionKind kind() const override
    {
        const Asked* const asked = best();
        return asked == nullptr ? usual_ : asked->question.kind();
    }

    [[nodiscard]] std::size_t found() const override
    {
        const Asked* const asked = best();
        return asked == nullptr ? 0 : asked->answers.size();
    }

    [[nodiscard]] Answers answers() const override
    {
        const Asked* const asked = best();
        return asked == nullptr ? Answers() : Answers(asked->answers, asked->question.marks());
    }

    [[nodiscard]] int percent() const override { return reader_ ? progress_.percent() : records_->percent(); }

  private:
    struct Asked {
        WordQuestion question;
        std::vector<Answer> answers;
        std::optional<Rank> best;
        std::vector<std::optional<Rank>> ofWords;  ///< by the number of the word, for those met
    };

    bool step() override
    {
        if (questions_.empty()) {
            return false;
        }
        if (const Folded::Record* const record = records_->at(next_)) {
            for (Asked& asked : questions_) {
                add(asked, rankOf(*record, asked), record->entry, [&] { return record->word; });
            }
            ++next_;
            return true;
        }
        return records_->tooLarge() && stepInFile();
    }

    /// A word of which several spellings are read is asked once.
    [[nodiscard]] std::optional<Rank> rankOf(const Folded::Record& record, Asked& asked) const
    {
        const FoldedEntry& folded = records_->word(record.word);
        if (asked.question.kind() == QuestionKind::Signs) {
            return asked.question.rankOf(*record.entry, folded);
        }
        if (record.word == asked.ofWords.size()) {
            asked.ofWords.push_back(asked.question.rankOf(*record.entry, folded));
        }
        return asked.ofWords[record.word];
    }

    /// Begins again with the first record: the numbers of the words that were kept in memory are lost.
    bool stepInFile()
    {
        if (!reader_) {
            reader_ = records_->read(progress_);
            for (Asked& asked : questions_) {
                asked.answers.clear();
                asked.best.reset();
            }
        }
        if (!reader_->next()) {
            return false;
        }
        const auto entry = std::make_shared<const DictionaryEntry>(reader_->record().decoded());
        const FoldedEntry folded(*entry);
        for (Asked& asked : questions_) {
            add(asked, asked.question.rankOf(*entry, folded), entry, [&] { return numbers_.of(*entry); });
        }
        return true;
    }

    /// Adds `entry` when it has a rank; `word` gives the number of its word.
    template <typename Word>
    void add(Asked& asked, const std::optional<Rank>& rank,
             const std::shared_ptr<const DictionaryEntry>& entry, const Word& word)
    {
        if (rank) {
            asked.best = asked.best ? std::min(*asked.best, *rank) : *rank;
            asked.answers.push_back({.entry = entry, .rank = *rank, .word = word()});
        }
    }

    [[nodiscard]] const Asked* best() const
    {
        const Asked* best = nullptr;
        for (const Asked& asked : questions_) {
            const bool better = asked.best && (best == nullptr || !best->best || *asked.best < *best->best);
            // Gardiner numbers without an answer are still no Italian.
            const bool surer = best != nullptr && !best->best && asked.question.kind() == QuestionKind::Signs;
            if (best == nullptr || better || surer) {
                best = &asked;
            }
        }
        return best;
    }

    std::shared_ptr<Folded> records_;
    QuestionKind usual_;
    std::vector<Asked> questions_;
    std::size_t next_ = 0;  ///< the number of the kept record to be compared next
    // Of a dictionary that is too large to be kept.
    ReadingProgress progress_;
    std::unique_ptr<RecordReader> reader_;
    WordNumbers numbers_;
};

WordFinder::WordFinder(const FileSystem& files, std::string_view path, std::size_t most)
    : files_(files), path_(path), most_(most)
{
}

WordFinder::~WordFinder() = default;

std::shared_ptr<WordFinder::Search> WordFinder::search(std::string_view text,
                                                       std::optional<QuestionKind> kind)
{
    if (!folded_ || !folded_->current()) {
        folded_ = std::make_shared<Folded>(files_, path_, most_);
    }
    return std::make_shared<Inquiry>(folded_, text, kind);
}

}  // namespace karvel
