#include "windows/signs/AnswerModel.hpp"

#include <algorithm>
#include <utility>

#include "text/PhraseText.hpp"
#include "text/Transliteration.hpp"
#include "windows/support/PlainTip.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

void AnswerModel::setAnswers(Answers answers, const std::string& rest)
{
    answers_ = std::move(answers);
    rest_ = rest;
    folded_.clear();
    list();
}

void AnswerModel::sort(Answers::Order order)
{
    answers_.sort(order);
    folded_.clear();
    list();
}

void AnswerModel::filter(const std::string& text)
{
    wanted_.clear();
    filtered_ = text.find_first_not_of(' ') != std::string::npos;
    for (const QuestionKind kind : kQuestionKinds) {
        if (auto question = WordQuestion::make(text, kind)) {
            wanted_.push_back(std::move(*question));
        }
    }
    list();
}

/// The first spelling of the word on `line` that passes the filter.
std::optional<std::size_t> AnswerModel::firstWanted(std::size_t line) const
{
    if (!filtered_) {
        return 0;
    }
    const Answers::Word& word = answers_.word(line);
    const auto found = std::ranges::find_if(word.spellings, [&](std::size_t spelling) {
        return std::ranges::any_of(wanted_, [&](const WordQuestion& question) {
            return question.rankOf(*answers_.all()[spelling].entry, folded_[line]).has_value();
        });
    });
    return found == word.spellings.end() ? std::nullopt
                                         : std::optional<std::size_t>(found - word.spellings.begin());
}

void AnswerModel::list()
{
    beginResetModel();
    if (filtered_ && folded_.empty()) {
        folded_.reserve(answers_.words());
        for (std::size_t line = 0; line < answers_.words(); ++line) {
            folded_.emplace_back(*answers_.best(answers_.word(line)).entry);
        }
    }
    rows_.clear();
    open_.assign(answers_.words(), false);
    for (std::size_t line = 0; line < answers_.words(); ++line) {
        if (const auto spelling = firstWanted(line)) {
            rows_.push_back({line, *spelling});
        }
    }
    endResetModel();
}

void AnswerModel::showAscii(bool ascii)
{
    ascii_ = ascii;
    if (rowCount() > 0) {
        emit dataChanged(index(0), index(rowCount() - 1));
    }
}

const Answer* AnswerModel::answer(int row) const
{
    if (row < 0 || isRest(row)) {
        return nullptr;
    }
    return &answers_.all()[answers_.word(at(row).line).spellings[at(row).spelling]];
}

int AnswerModel::rowOf(const DictionaryEntry& entry) const
{
    const auto found = std::ranges::find_if(rows_, [&](const Row& row) {
        return *answers_.all()[answers_.word(row.line).spellings[row.spelling]].entry == entry;
    });
    return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
}

std::size_t AnswerModel::furtherSpellings(int row) const
{
    return isRest(row) || isSpelling(row) ? 0 : answers_.word(at(row).line).spellings.size() - 1;
}

int AnswerModel::setOpen(int row, bool open)
{
    if (row < 0 || isRest(row)) {
        return row;
    }
    int first = row;
    while (isSpelling(first)) {
        --first;
    }
    const std::size_t line = at(first).line;
    const std::size_t further = furtherSpellings(first);
    if (open_[line] == open || further == 0) {
        return first;
    }
    open_[line] = open;
    const auto next = rows_.begin() + first + 1;
    const auto count = static_cast<std::ptrdiff_t>(further);
    if (open) {
        beginInsertRows({}, first + 1, first + static_cast<int>(further));
        std::vector<Row> spellings;
        for (std::size_t spelling = 0; spelling <= further; ++spelling) {
            if (spelling != at(first).spelling) {
                spellings.push_back({line, spelling, true});
            }
        }
        rows_.insert(next, spellings.begin(), spellings.end());
        endInsertRows();
    } else {
        beginRemoveRows({}, first + 1, first + static_cast<int>(further));
        rows_.erase(next, next + count);
        endRemoveRows();
    }
    return first;
}

QString AnswerModel::transliteration(const Answer& answer) const
{
    const std::string& stored = answer.entry->transliteration;
    return qtext(ascii_ ? stored : printedTransliteration(stored));
}

int AnswerModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(rows_.size()) + (rest_.empty() ? 0 : 1);
}

/// The text of a row is what is spoken, and what letters typed in the list look for.
QVariant AnswerModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) {
        return {};
    }
    const Answer* const shown = answer(index.row());
    if (shown == nullptr) {
        return qtext(gardinerOf(rest_)) + QStringLiteral(": qui non comincia nessuna parola");
    }
    QStringList parts{qtext(shown->entry->translation), transliteration(*shown),
                      qtext(gardinerOf(shown->entry->signs)), qtext(shown->entry->note)};
    if (const std::size_t further = furtherSpellings(index.row()); further > 0) {
        parts << QStringLiteral("%1 grafie").arg(further + 1);
    }
    parts.removeAll(QString());
    return role == Qt::ToolTipRole ? plainTip(parts.join(QLatin1Char('\n')))
                                   : parts.join(QStringLiteral(", "));
}

}  // namespace karvel
