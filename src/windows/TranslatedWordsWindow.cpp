#include "windows/TranslatedWordsWindow.hpp"

#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

#include "windows/signs/LayoutPainter.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

namespace {

// Sizes of the signs beside a word, in logical pixels.
constexpr QSize kSigns(128, 38);
constexpr int kBlock = 32;

/// A word with its signs in blocks before it.
class WordRow : public QStyledItemDelegate {
  public:
    WordRow(Desktop& desktop, QObject* parent) : QStyledItemDelegate(parent), desktop_(desktop) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::paint(painter, option, index);
        QStyleOptionViewItem row = option;
        initStyleOption(&row, index);
        const bool selected = row.state.testFlag(QStyle::State_Selected);
        const PhraseLook look{.ink =
                                  row.palette.color(selected ? QPalette::HighlightedText : QPalette::Text)};
        const QRect place =
            row.widget->style()->subElementRect(QStyle::SE_ItemViewItemDecoration, &row, row.widget);
        paintPhrase(*painter, place, utf8(index.data(Qt::UserRole).toString()), kBlock, look, desktop_);
    }

  protected:
    /// Leaves space for the signs where the style draws an icon.
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->features |= QStyleOptionViewItem::HasDecoration;
        option->decorationSize = kSigns;
    }

  private:
    Desktop& desktop_;
};

}  // namespace

Form4::Form4(Desktop& desktop, QWidget* parent)
    : QDialog(parent),
      desktop_(desktop),
      list1_(new QListWidget(this)),
      clear_(new QPushButton(QStringLiteral("Cancella tutto"), this))
{
    setObjectName(QStringLiteral("Form4"));
    setWindowTitle(QStringLiteral("Parole tradotte:"));
    setAttribute(Qt::WA_DeleteOnClose);
    list1_->setObjectName(QStringLiteral("List1"));
    list1_->setAccessibleName(QStringLiteral("parole tradotte, nell'ordine della frase"));
    list1_->setAlternatingRowColors(true);
    list1_->setWordWrap(true);
    list1_->setItemDelegate(new WordRow(desktop, list1_));
    clear_->setObjectName(QStringLiteral("Command2"));
    clear_->setAccessibleName(QStringLiteral("cancella tutte le parole dell'elenco"));
    clear_->setAutoDefault(false);
    auto* const shut = new QPushButton(QStringLiteral("Chiudi"), this);
    shut->setObjectName(QStringLiteral("Command1"));
    shut->setAccessibleName(QStringLiteral("chiude la finestra; l'elenco resta"));
    shut->setDefault(true);
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(clear_);
    buttons->addStretch(1);
    buttons->addWidget(shut);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(12, 12, 12, 12);
    column->setSpacing(10);
    column->addWidget(list1_, 1);
    column->addLayout(buttons);
    connect(clear_, &QPushButton::clicked, this,
            [this] { desktop_.handle([this] { desktop_.session().translatedWords().clear(); }); });
    connect(shut, &QPushButton::clicked, this, &Form4::close);
    connect(&desktop_, &Desktop::changed, this, &Form4::showWords);
    showWords();
    resize(420, 340);
}

void Form4::showWords()
{
    const auto& words = desktop_.session().translatedWords().List1();
    clear_->setEnabled(!words.empty());
    // Lines are added at the end or all removed, so an equal number means equal lines.
    if (list1_->count() == static_cast<int>(words.size())) {
        return;
    }
    list1_->clear();
    for (std::size_t line = 0; line < words.size(); ++line) {
        auto* const item = new QListWidgetItem(qtext(words[line]), list1_);
        item->setData(Qt::UserRole, qtext(desktop_.session().translatedWords().signsOf(line)));
    }
    list1_->scrollToBottom();
}

}  // namespace karvel
