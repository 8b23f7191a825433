#include "windows/UsedIn.hpp"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "base/SignRepertoire.hpp"
#include "dictionary/UsedIn.hpp"
#include "text/PhraseText.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

namespace {

enum Column { kSigns, kTranslation, kTransliteration, kNote, kColumns };

// Logical pixels; the translation takes the rest.
constexpr int kWidestSigns = 240;
constexpr int kTransliterationWidth = 150;
constexpr int kNoteWidth = 220;

}  // namespace

UsedIn::UsedIn(Desktop& desktop, QWidget* parent)
    : QDialog(parent),
      desktop_(desktop),
      heading_(new QLabel(this)),
      table_(new QTableWidget(0, kColumns, this))
{
    setObjectName(QStringLiteral("UsedIn"));
    setWindowTitle(QStringLiteral("Usato in ..."));
    setAttribute(Qt::WA_DeleteOnClose);
    heading_->setTextFormat(Qt::PlainText);
    table_->setObjectName(QStringLiteral("entries"));
    table_->setAccessibleName(QStringLiteral("voci che contengono il segno"));
    table_->setHorizontalHeaderLabels({QStringLiteral("Segni"), QStringLiteral("Traduzione"),
                                       QStringLiteral("Traslitterazione"), QStringLiteral("Note")});
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setWordWrap(false);
    table_->verticalHeader()->hide();
    table_->horizontalHeader()->setSectionResizeMode(kTranslation, QHeaderView::Stretch);
    auto* const buttons = new QDialogButtonBox(this);
    buttons->addButton(QStringLiteral("Chiudi"), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::rejected, this, &UsedIn::close);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(heading_);
    column->addWidget(table_, 1);
    column->addWidget(buttons);
    resize(860, 480);
}

void UsedIn::show(const std::string& code)
{
    table_->setRowCount(0);
    const QPointer<UsedIn> window = this;  // it may be closed while a box is open
    desktop_.handle([&] {
        const auto entries = entriesWith(desktop_.session().files(), desktop_.session().ui(), code);
        if (window) {
            list(entries);
        }
    });
    if (!window) {
        return;
    }
    table_->resizeColumnToContents(kSigns);
    table_->setColumnWidth(kSigns, std::min(table_->columnWidth(kSigns), kWidestSigns));
    table_->setColumnWidth(kTransliteration, kTransliterationWidth);
    table_->setColumnWidth(kNote, kNoteWidth);
    heading_->setText(qtext(signCaption(code)) + QStringLiteral("\nVoci: %1").arg(table_->rowCount()));
    QDialog::show();
}

void UsedIn::list(const std::vector<DictionaryEntry>& entries)
{
    table_->setRowCount(static_cast<int>(entries.size()));
    for (int row = 0; row < table_->rowCount(); ++row) {
        const DictionaryEntry& entry = entries[static_cast<std::size_t>(row)];
        const std::string texts[] = {gardinerOf(entry.signs), entry.translation, entry.transliteration,
                                     entry.note};
        for (int column = 0; column < table_->columnCount(); ++column) {
            table_->setItem(row, column, new QTableWidgetItem(qtext(texts[column])));
        }
    }
}

}  // namespace karvel
