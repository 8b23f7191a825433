#include "windows/UsedIn.hpp"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <vector>

#include "base/SignRepertoire.hpp"
#include "dictionary/Lookup.hpp"
#include "text/PhraseText.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

UsedIn::UsedIn(Desktop& desktop, QWidget* parent)
    : QDialog(parent), desktop_(desktop), heading_(new QLabel(this)), table_(new QTableWidget(0, 4, this))
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
    table_->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
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
    desktop_.handle([&] { list(code); });
    table_->resizeColumnToContents(0);
    table_->setColumnWidth(0, std::min(table_->columnWidth(0), 240));
    table_->setColumnWidth(2, 150);
    table_->setColumnWidth(3, 220);
    heading_->setText(qtext(signCaption(code)) + QStringLiteral("\nVoci: %1").arg(table_->rowCount()));
    QDialog::show();
}

void UsedIn::list(const std::string& code)
{
    Session& session = desktop_.session();
    const BusyPointer hourglass(session.ui());
    std::vector<DictionaryEntry> entries;
    const auto fill = [&] {
        table_->setRowCount(static_cast<int>(entries.size()));
        for (int row = 0; row < table_->rowCount(); ++row) {
            const DictionaryEntry& entry = entries[static_cast<std::size_t>(row)];
            const std::string texts[] = {gardinerOf(entry.signs), entry.translation, entry.transliteration,
                                         entry.note};
            for (int column = 0; column < 4; ++column) {
                table_->setItem(row, column, new QTableWidgetItem(qtext(texts[column])));
            }
        }
    };
    try {
        RecordReader reader(openDictionary(session.files(), session.ui()));
        Lookup lookup(reader, MatchRule(Mode::Contains, code));
        while (lookup.next()) {
            entries.push_back(reader.record().decoded());
        }
    } catch (const RuntimeError& error) {
        fill();
        session.ui().ask(dictionaryErrorBox(error));
        return;
    } catch (const ReadingStopped&) {
        // What was found so far is shown.
    }
    fill();
}

}  // namespace karvel
