#include "windows/TranslatedWordsWindow.hpp"

#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "windows/support/Desktop.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

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
    resize(360, 320);
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
    for (const std::string& word : words) {
        list1_->addItem(qtext(word));
    }
    list1_->scrollToBottom();
}

}  // namespace karvel
