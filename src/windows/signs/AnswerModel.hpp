#pragma once

#include <QAbstractListModel>
#include <optional>
#include <string>
#include <vector>

#include "dictionary/Answers.hpp"
#include "dictionary/WordQuestion.hpp"

namespace karvel {

/// The rows of a list of answers: a row for each word, and below an opened one its further spellings.
class AnswerModel : public QAbstractListModel {
    Q_OBJECT

  public:
    using QAbstractListModel::QAbstractListModel;

    /// `rest` are sign codes for a last row without an entry; empty for none. All words are closed.
    void setAnswers(Answers answers, const std::string& rest = {});

    void sort(Answers::Order order);

    /// Only the words of which a spelling answers `text`, as Italian, transliteration or signs; their row
    /// shows the first such spelling. All words when it is blank.
    void filter(const std::string& text);

    void showAscii(bool ascii);

    [[nodiscard]] const Answers& answers() const { return answers_; }

    /// Null for the row of the rest.
    [[nodiscard]] const Answer* answer(int row) const;
    [[nodiscard]] const std::string& rest() const { return rest_; }

    /// The first row that shows an entry with these fields; -1 when there is none.
    [[nodiscard]] int rowOf(const DictionaryEntry& entry) const;

    /// How many spellings lie closed under a row; 0 where there is nothing to open.
    [[nodiscard]] std::size_t furtherSpellings(int row) const;
    [[nodiscard]] bool isSpelling(int row) const { return at(row).further; }
    [[nodiscard]] bool isOpen(int row) const { return open_[at(row).line]; }

    /// Opens or closes the word of `row`; the row of the word.
    int setOpen(int row, bool open);

    [[nodiscard]] QString transliteration(const Answer& answer) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

  private:
    struct Row {
        std::size_t line = 0;
        std::size_t spelling = 0;
        bool further = false;  ///< below the row of its word
    };

    [[nodiscard]] const Row& at(int row) const { return rows_[static_cast<std::size_t>(row)]; }
    [[nodiscard]] bool isRest(int row) const { return static_cast<std::size_t>(row) >= rows_.size(); }
    [[nodiscard]] std::optional<std::size_t> firstWanted(std::size_t line) const;
    void list();

    Answers answers_;
    std::string rest_;
    std::vector<Row> rows_;
    std::vector<bool> open_;            ///< by line
    std::vector<WordQuestion> wanted_;  ///< the filter as each kind that it can be
    bool filtered_ = false;
    bool ascii_ = false;
    std::vector<FoldedEntry> folded_;  ///< by line, made for the first filter
};

}  // namespace karvel
