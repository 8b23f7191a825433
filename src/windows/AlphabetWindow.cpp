#include "windows/AlphabetWindow.hpp"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/EntryList.hpp"
#include "base/SignRepertoire.hpp"
#include "windows/signs/PhraseBlocks.hpp"
#include "windows/signs/PictureSwitches.hpp"
#include "windows/signs/SignSheet.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Text.hpp"
#include "words/NameTranscription.hpp"

namespace karvel {

namespace {

constexpr int kColumns = 8;
// Logical pixels.
constexpr int kNameHeight = 132;       // of the part that shows the name in its cartouche
constexpr int kNameBlockHeight = 108;  // of the cartouche; a long name is drawn smaller

}  // namespace

Form2::Form2(Desktop& desktop, QWidget* parent)
    : QDialog(parent),
      desktop_(desktop),
      text1_(new QLineEdit(this)),
      signs_(new PhraseBlocks(desktop, QStringLiteral("Qui il nome compare nel cartiglio."), this)),
      switches_(new PictureSwitches(desktop.session(), QStringLiteral("Form2"),
                                    {.codes = {}, .look = {.ring = true}, .blockHeight = kNameBlockHeight},
                                    this)),
      count_(new QLabel(this)),
      chart_(new SignSheet(desktop, QStringLiteral("ALFABETO"),
                           QStringLiteral("I segni fonetici e le lettere che scrivono. Le vocali, che gli "
                                          "Egizi non segnavano, sono una convenzione per i nomi moderni."),
                           kColumns, this))
{
    setObjectName(QStringLiteral("Form2"));
    setWindowTitle(QStringLiteral("Alfabeto"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto* const caption = new QLabel(QStringLiteral("Scrivere il nome da tradurre  nel text-box"), this);
    text1_->setObjectName(QStringLiteral("Text1"));
    text1_->setAccessibleName(QStringLiteral("nome da tradurre"));
    text1_->setPlaceholderText(QStringLiteral("Inserire il nome."));
    text1_->setToolTip(text1_->placeholderText());
    text1_->setClearButtonEnabled(true);
    caption->setBuddy(text1_);
    signs_->setObjectName(QStringLiteral("signs"));
    signs_->setFixedHeight(kNameHeight);
    count_->setObjectName(QStringLiteral("count"));
    chart_->setObjectName(QStringLiteral("chart"));
    fillChart();
    connect(switches_, &PictureSwitches::changed, this, [this] { showName(signs_->picture().codes); });
    // Enter in the field presses this button.
    QPushButton* const go = spokenButton("Command1", QStringLiteral("Trascrivi"),
                                         QStringLiteral("scrive il nome con i segni, sul display"), this);
    go->setDefault(true);
    connect(go, &QPushButton::clicked, this, &Form2::transcribeName);
    use_ = spokenButton("use", QStringLiteral("&Usa questi segni"),
                        QStringLiteral("aggiunge alla frase tutti i segni del nome"), this);
    use_->setEnabled(false);
    connect(use_, &QPushButton::clicked, this, [this] {
        desktop_.handle([this] { (void)useSigns(desktop_.session(), signs_->picture().codes); });
    });
    QPushButton* const print = spokenButton("Command2", QStringLiteral("Stampa la tavola..."),
                                            QStringLiteral("stampa la tavola su un foglio"), this);
    connect(print, &QPushButton::clicked, chart_, &SignSheet::print);

    auto* const line = new QHBoxLayout;
    line->addWidget(caption);
    line->addWidget(text1_, 1);
    line->addWidget(go);
    line->addWidget(use_);
    auto* const below = new QHBoxLayout;
    const PictureButtons pictures = pictureButtons(this);
    connect(pictures.copy, &QPushButton::clicked, signs_, &PhraseBlocks::copy);
    connect(pictures.save, &QPushButton::clicked, signs_, &PhraseBlocks::save);
    below->addWidget(count_, 1);
    below->addWidget(pictures.copy);
    below->addWidget(pictures.save);
    below->addWidget(print);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(12, 12, 12, 10);
    column->setSpacing(8);
    column->addWidget(signs_);
    column->addWidget(switches_);
    column->addLayout(line);
    column->addWidget(scrolling(chart_), 1);
    column->addLayout(below);
    text1_->setFocus();
    resize(980, 630);
}

void Form2::fillChart()
{
    for (const PhoneticSign& phonetic : kPhoneticSigns) {
        const SignInfo* const sign = SignRepertoire::standard().byCode(phonetic.code);
        QString name = sign != nullptr ? qtext(sign->description) : QString();
        SheetSign* const shown = chart_->add(std::string(phonetic.code), qtext(phonetic.letters), name);
        connect(shown, &QAbstractButton::clicked, this, [this, letters = phonetic.appended] {
            text1_->setText(text1_->text() + qtext(letters));
            text1_->setFocus();
        });
    }
}

void Form2::showName(const std::string& codes)
{
    signs_->setPicture(switches_->pictureOf(codes));
}

void Form2::transcribeName()
{
    desktop_.handle([this] {
        Session& session = desktop_.session();
        showTranscription(typed(text1_->text()), session.display(), session.last());
    });
    // On a small screen this window covers the display, so it shows the signs itself too.
    const std::string& codes = desktop_.session().last().foundCodes;
    showName(codes);
    use_->setEnabled(!codes.empty());
    const std::size_t signs = codes.size() / kCodeLength;
    count_->setText(signs > DisplayLine::kCells
                        ? QStringLiteral("Segni: %1; il display mostra i primi 12.").arg(signs)
                        : QStringLiteral("Segni: %1").arg(signs));
}

}  // namespace karvel
