#include "windows/InsertionWindow.hpp"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

#include "text/Transliteration.hpp"
#include "windows/signs/PhraseStrip.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

Inserimento::Inserimento(Desktop& desktop, QWidget* parent)
    : QDialog(parent), desktop_(desktop), signs_(new PhraseStrip(desktop, this))
{
    setObjectName(QStringLiteral("Inserimento"));
    setWindowTitle(QStringLiteral("Inserimento nel dizionario."));
    setAttribute(Qt::WA_DeleteOnClose);
    signs_->setObjectName(QStringLiteral("signs"));
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(16, 16, 16, 12);
    column->setSpacing(6);
    column->addWidget(signs_);
    column->addSpacing(8);
    text1_ = addLine("Text1", QStringLiteral("Inserire corrispondenza figura o traduzione italiana"));
    text2_ = addLine("Text2",
                     QStringLiteral("Inserire possibile traslitterazione o corrispondenza alla grammatica"));
    connect(text2_, &QLineEdit::textEdited, this, &Inserimento::writeInAscii);
    text3_ = addLine("Text3", QStringLiteral("Note:"));
    auto* const ok = new QPushButton(QStringLiteral("Conferma"), this);
    ok->setObjectName(QStringLiteral("Command1"));
    ok->setAccessibleName(QStringLiteral("aggiunge la voce al dizionario"));
    ok->setDefault(true);
    auto* const cancel = new QPushButton(QStringLiteral("Annulla"), this);
    cancel->setObjectName(QStringLiteral("Command2"));
    cancel->setAccessibleName(QStringLiteral("chiude senza aggiungere nulla"));
    cancel->setAutoDefault(false);
    auto* const buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    column->addSpacing(6);
    column->addStretch(1);
    column->addLayout(buttons);
    connect(ok, &QPushButton::clicked, this, &Inserimento::confirm);
    connect(cancel, &QPushButton::clicked, this, &Inserimento::close);
    const auto showSigns = [this] { signs_->setCodes(desktop_.session().display().DisplayCodes()); };
    connect(&desktop_, &Desktop::changed, this, showSigns);
    showSigns();
    text1_->setFocus();
    resize(540, sizeHint().height());
}

QLineEdit* Inserimento::addLine(const char* name, const QString& caption)
{
    auto* const label = new QLabel(caption, this);
    auto* const line = new QLineEdit(this);
    line->setObjectName(QLatin1String(name));
    line->setAccessibleName(caption);
    label->setBuddy(line);
    layout()->addWidget(label);
    layout()->addWidget(line);
    static_cast<QVBoxLayout*>(layout())->addSpacing(4);
    return line;
}

/// The dictionary has the ASCII letters; what is copied from a book or a page has others.
void Inserimento::writeInAscii(const QString& text)
{
    const QString ascii = qtext(asciiWords(typed(text)));
    if (ascii != text) {
        const int behind = static_cast<int>(text.size()) - text2_->cursorPosition();
        text2_->setText(ascii);
        text2_->setCursorPosition(static_cast<int>(ascii.size()) - behind);
    }
}

void Inserimento::confirm()
{
    auto end = DictionaryInsertion::End::Failed;
    const QPointer<Inserimento> window = this;  // it may be closed while a box is open
    desktop_.handle([&] {
        Session& session = desktop_.session();
        end = session.dictionaryInsertion().confirm(
            session.display().DisplayCodes(),
            {typed(text1_->text()), typed(text2_->text()), typed(text3_->text())});
    });
    if (!window) {
        return;
    }
    if (end == DictionaryInsertion::End::Written || end == DictionaryInsertion::End::Duplicate) {
        close();
        desktop_.focusDisplay();
    } else if (end == DictionaryInsertion::End::Refused) {
        showDoubtfulText();
    }
}

/// Moves the focus to the text that was refused.
void Inserimento::showDoubtfulText()
{
    for (QLineEdit* const line : {text1_, text2_, text3_}) {
        if ((line == text1_ && line->text().isEmpty()) || line->text().contains(QLatin1Char('"'))) {
            line->setFocus();
            return;
        }
    }
}

/// Escape closes the window only while nothing is typed, so that one key cannot lose a whole entry.
void Inserimento::keyPressEvent(QKeyEvent* event)
{
    const bool typedIn = !text1_->text().isEmpty() || !text2_->text().isEmpty() || !text3_->text().isEmpty();
    if (event->key() != Qt::Key_Escape || !typedIn) {
        QDialog::keyPressEvent(event);
    }
}

}  // namespace karvel
