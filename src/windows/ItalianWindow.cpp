#include "windows/ItalianWindow.hpp"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPointer>
#include <QPushButton>

#include "app/EntryList.hpp"
#include "windows/WordBox.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

italiano::italiano(Desktop& desktop, QWidget* parent)
    : QDialog(parent), desktop_(desktop), combo1_(new WordBox(this)), count_(new QLabel(this))
{
    setObjectName(QStringLiteral("italiano"));
    setWindowTitle(QStringLiteral("Ricerca italiano geroglifico"));
    setAttribute(Qt::WA_DeleteOnClose);
    ItalianSearch& search = desktop_.session().italianSearch();
    const auto word = [this] { return typed(combo1_->currentText()); };

    auto* const caption = new QLabel(QStringLiteral("Seleziona o scrivi la parola da ricercare"), this);
    combo1_->setObjectName(QStringLiteral("combo1"));
    combo1_->setAccessibleName(caption->text());
    caption->setBuddy(combo1_);
    connect(combo1_, &QComboBox::activated, this,
            [this, &search, word] { run([&] { search.choose(word()); }); });
    count_->setObjectName(QStringLiteral("count"));

    QPushButton* const exact =
        button("Command1", QStringLiteral("CERCA"), QStringLiteral("cerca le voci con questa traduzione"),
               [&search, word] { search.search(word()); });
    exact->setDefault(true);
    // Queued: the list of matches is closed before a box is shown.
    connect(combo1_, &WordBox::enteredOverList, exact, &QPushButton::click, Qt::QueuedConnection);
    QPushButton* const specific = button("Command3", QStringLiteral("Ricerca specifica"),
                                         QStringLiteral("cerca le voci che contengono una parola"),
                                         [&search] { search.searchSpecific(); });
    use_ = button("use", QStringLiteral("&Usa questi segni"),
                  QStringLiteral("aggiunge alla frase tutti i segni della voce trovata per ultima"),
                  [this, &search] { (void)useSigns(desktop_.session(), search.shownSigns()); });
    const auto enable = [this, &search] { use_->setEnabled(!search.shownSigns().empty()); };
    connect(&desktop_, &Desktop::changed, this, enable);
    enable();
    auto* const cancel = new QPushButton(QStringLiteral("ANNULLA"), this);
    cancel->setObjectName(QStringLiteral("Command2"));
    cancel->setAccessibleName(QStringLiteral("chiude la ricerca"));
    cancel->setAutoDefault(false);
    connect(cancel, &QPushButton::clicked, this, &italiano::close);

    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(16, 16, 16, 14);
    grid->setVerticalSpacing(6);
    grid->addWidget(caption, 0, 0, 1, 5);
    grid->addWidget(combo1_, 1, 0, 1, 5);
    grid->addWidget(count_, 2, 0, 1, 5);
    grid->setRowMinimumHeight(3, 6);
    grid->setRowStretch(3, 1);
    grid->addWidget(exact, 4, 0);
    grid->addWidget(specific, 4, 1);
    grid->addWidget(use_, 4, 2);
    grid->setColumnStretch(3, 1);
    grid->addWidget(cancel, 4, 4);
    combo1_->setFocus();
    resize(560, sizeHint().height());
}

QPushButton* italiano::button(const char* name, const QString& caption, const QString& spoken,
                              const std::function<void()>& handler)
{
    auto* const made = new QPushButton(caption, this);
    made->setObjectName(QLatin1String(name));
    made->setAccessibleName(spoken);
    made->setToolTip(spoken);
    made->setAutoDefault(false);
    connect(made, &QPushButton::clicked, this, [this, handler] { run(handler); });
    return made;
}

/// Afterwards the focus is in the field, so that the next word can be typed at once.
void italiano::run(const std::function<void()>& handler)
{
    const QPointer<italiano> window = this;  // it may be closed while a box of the search is open
    desktop_.handle(handler);
    if (window) {
        combo1_->setFocus();
        combo1_->lineEdit()->selectAll();
    }
}

void italiano::fill()
{
    combo1_->setWords({});
    combo1_->clearEditText();
    count_->clear();
    QStringList words;
    for (const std::string& word : desktop_.session().italianSearch().buildWordList()) {
        words.append(qtext(word));
    }
    combo1_->setWords(words);
    const qsizetype filled = words.size() - (words.constLast().isEmpty() ? 1 : 0);
    count_->setText(QStringLiteral("Traduzioni nell'elenco: ") + QLocale().toString(filled));
    combo1_->setFocus();
}

/// All ways to close the window end here. A search that is still open ends with it.
void italiano::reject()
{
    desktop_.session().italianSearch().close();
    QDialog::reject();
}

}  // namespace karvel
