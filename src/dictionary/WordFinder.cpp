#include "dictionary/WordFinder.hpp"

#include <utility>

#include "dictionary/TranslationLookup.hpp"

namespace karvel {

namespace {

/// Bytes. A file up to this size is folded in a moment and without a look at the events: keys that the user
/// types meanwhile wait, and none is lost.
constexpr std::uint64_t kFoldedAtOnce = 16U << 20U;

}  // namespace

/// The whole dictionary in memory, or what was read of it before a fault.
struct WordFinder::Folded {
    struct Record {
        DictionaryEntry entry;
        FoldedEntry folded;
    };

    std::vector<Record> records;
    bool tooLarge = false;  ///< and therefore not kept
    bool stopped = false;
    std::optional<RuntimeError> failure;
};

/// A text asked as each kind that it can be.
class WordFinder::Inquiry {
  public:
    Inquiry(std::string_view text, std::optional<QuestionKind> only)
    {
        for (const QuestionKind kind : kQuestionKinds) {
            if (auto question = WordQuestion::make(text, kind); question && only.value_or(kind) == kind) {
                questions_.push_back({std::move(*question), {}, {}});
            }
        }
    }

    [[nodiscard]] bool possible() const { return !questions_.empty(); }

    /// `share` gives a lasting pointer to `entry` when it is an answer.
    template <typename Share>
    void ask(const DictionaryEntry& entry, const FoldedEntry& folded, std::size_t order, const Share& share)
    {
        for (auto& [question, answers, best] : questions_) {
            Answer answer{.entry = {}, .order = order};
            if (question.answeredBy(entry, folded, answer)) {
                answer.entry = share();
                best = best ? std::min(*best, answer.rank) : answer.rank;
                answers.push_back(std::move(answer));
            }
        }
    }

    void conclude(Result& result)
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
        if (best != nullptr) {
            result.kind = best->question.kind();
            for (const Answer& answer : best->answers) {
                result.answers.add(answer);
            }
            result.answers.sort(Answers::Order::BestFirst);
        }
    }

  private:
    struct Asked {
        WordQuestion question;
        std::vector<Answer> answers;
        std::optional<Rank> best;
    };
    std::vector<Asked> questions_;
};

WordFinder::WordFinder(const FileSystem& files, UserInterface& ui, std::string_view path, std::size_t most)
    : files_(files), ui_(ui), path_(path), most_(most)
{
}

WordFinder::~WordFinder() = default;

void WordFinder::fold()
{
    const FileState state = files_.state(path_);
    if (folded_ && state == state_ && !folded_->stopped) {
        return;
    }
    folded_.reset();  // its memory goes before the new one is made
    auto folded = std::make_shared<Folded>();
    RecordReader reader(state.size <= kFoldedAtOnce ? files_.open(path_)
                                                    : openDictionary(files_, ui_, path_));
    try {
        while (reader.next()) {
            if (folded->records.size() == most_) {
                folded->tooLarge = true;
                folded->records = {};
                break;
            }
            const DictionaryEntry entry = reader.record().decoded();
            folded->records.push_back({entry, FoldedEntry(entry)});
        }
    } catch (const RuntimeError& error) {
        folded->failure = error;
    } catch (const ReadingStopped&) {
        folded->stopped = true;
    }
    state_ = state;
    folded_ = std::move(folded);
}

void WordFinder::askFile(Inquiry& inquiry, Result& result) const
{
    RecordReader reader(openDictionary(files_, ui_, path_));
    try {
        for (std::size_t order = 0; reader.next(); ++order) {
            const DictionaryEntry entry = reader.record().decoded();
            inquiry.ask(entry, FoldedEntry(entry), order,
                        [&] { return std::make_shared<const DictionaryEntry>(entry); });
        }
    } catch (const RuntimeError& error) {
        result.failure = error;
    } catch (const ReadingStopped&) {
        result.stopped = true;
    }
}

WordFinder::Result WordFinder::ask(std::string_view text, std::optional<QuestionKind> kind)
{
    Result result;
    Inquiry inquiry(text, kind);
    if (kind) {
        result.kind = *kind;
    }
    if (!inquiry.possible()) {
        return result;
    }
    fold();
    if (folded_->tooLarge) {
        askFile(inquiry, result);
    } else {
        result.failure = folded_->failure;
        result.stopped = folded_->stopped;
        for (std::size_t order = 0; order < folded_->records.size(); ++order) {
            const Folded::Record& record = folded_->records[order];
            inquiry.ask(record.entry, record.folded, order,
                        [&] { return std::shared_ptr<const DictionaryEntry>(folded_, &record.entry); });
        }
    }
    inquiry.conclude(result);
    return result;
}

}  // namespace karvel
