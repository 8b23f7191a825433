#include "windows/WordBox.hpp"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QStringListModel>
#include <QWheelEvent>

#include "text/CodePage.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

namespace {

QString folded(const QString& text)
{
    return qtext(decode(foldedBytes(encode(typed(text)))));
}

/// Each word has a folded form in a second role; the completer searches that one.
class FoldedWords : public QStringListModel {
  public:
    static constexpr int kFolded = Qt::UserRole;

    using QStringListModel::QStringListModel;

    void setWords(const QStringList& words)
    {
        folded_.clear();
        folded_.reserve(words.size());
        for (const QString& word : words) {
            folded_.append(folded(word));
        }
        setStringList(words);
    }

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override
    {
        return role == kFolded ? QVariant(folded_.at(index.row())) : QStringListModel::data(index, role);
    }

  private:
    QStringList folded_;
};

/// Compares the folded forms, and completes to the word as it is spelled.
class WordCompleter : public QCompleter {
  public:
    using QCompleter::QCompleter;

    [[nodiscard]] QString pathFromIndex(const QModelIndex& index) const override
    {
        return index.data(Qt::DisplayRole).toString();
    }
    [[nodiscard]] QStringList splitPath(const QString& path) const override { return {folded(path)}; }
};

constexpr int kVisibleLines = 14;

/// All lines have one height, so that a list of a hundred thousand lines is not measured line by line.
void makeUniform(QAbstractItemView* view)
{
    if (auto* const list = qobject_cast<QListView*>(view)) {
        list->setUniformItemSizes(true);
        list->setLayoutMode(QListView::Batched);
    }
}

}  // namespace

WordBox::WordBox(QWidget* parent) : QComboBox(parent), words_(new FoldedWords(this))
{
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(30);
    setMaxVisibleItems(kVisibleLines);
    setModel(words_);
    makeUniform(view());
    auto* const completer = new WordCompleter(words_, this);
    completer->setCompletionRole(FoldedWords::kFolded);
    completer->setCaseSensitivity(Qt::CaseSensitive);  // folded words have no case
    completer->setCompletionMode(QCompleter::PopupCompletion);
    completer->setMaxVisibleItems(kVisibleLines);
    makeUniform(completer->popup());
    setCompleter(completer);
    // Leaving the field, or Enter in it, does not choose from the list. Enter presses the window's button.
    disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
    disconnect(lineEdit(), &QLineEdit::returnPressed, this, nullptr);
    connect(lineEdit(), &QLineEdit::returnPressed, this, [this, completer] {
        if (completer->popup()->isVisible() && !completer->popup()->currentIndex().isValid()) {
            emit enteredOverList();
        }
    });
}

void WordBox::setWords(const QStringList& words)
{
    const QString typed = currentText();
    static_cast<FoldedWords*>(words_)->setWords(words);
    setCurrentIndex(-1);
    setEditText(typed);
}

/// The arrow keys open the list; the base class would choose the next word at each key.
void WordBox::keyPressEvent(QKeyEvent* event)
{
    const bool arrow = event->key() == Qt::Key_Down || event->key() == Qt::Key_Up ||
                       event->key() == Qt::Key_PageDown || event->key() == Qt::Key_PageUp;
    if (arrow) {
        showPopup();
        return;
    }
    QComboBox::keyPressEvent(event);
}

void WordBox::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

}  // namespace karvel
