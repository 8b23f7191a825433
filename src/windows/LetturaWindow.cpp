#include "windows/LetturaWindow.hpp"

#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QShortcut>
#include <QVBoxLayout>

#include "app/PassageStudy.hpp"
#include "text/Transliteration.hpp"
#include "windows/ReadingFiles.hpp"
#include "windows/ReadingLines.hpp"
#include "windows/ReadingMenu.hpp"
#include "windows/StudyPages.hpp"
#include "windows/signs/PhrasePicture.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/PlainTip.hpp"
#include "windows/support/Text.hpp"
#include "windows/support/Theme.hpp"

namespace karvel {

namespace {

constexpr std::string_view kEnding = ".karvel-lettura";
constexpr int kPageBlocks = 48;  ///< height of the blocks on a saved page, in pixels
constexpr std::size_t kLargestFile = std::size_t{1} << 20;
constexpr int kTextLines = 3;  ///< that a box for text shows
constexpr qsizetype kPlacesShown = 4;
constexpr qsizetype kPlacesInTip = 25;
constexpr qsizetype kLettersShown = 24;  ///< of a piece of text that was not understood

QString shortened(const QString& text)
{
    return text.size() <= kLettersShown ? text : text.left(kLettersShown) + QChar(0x2026);
}

/// In any letter case.
bool endsWith(const std::string& path, std::string_view ending)
{
    return qtext(path).endsWith(qtext(ending), Qt::CaseInsensitive);
}

}  // namespace

Lettura::Lettura(Desktop& desktop, QWidget* parent) : QDialog(parent), desktop_(desktop)
{
    setObjectName(QStringLiteral("Lettura"));
    setWindowTitle(QStringLiteral("Lettura"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(12, 10, 12, 10);
    column->setSpacing(5);
    buildTop(*column);
    buildLines(*column);
    column->addWidget(caption(qtext(kProposal)));
    buildBottom(*column);
    resize(980, 640);
    text_->setFocus();
    showPassage();
}

QLabel* Lettura::caption(const QString& text)
{
    auto* const label = new QLabel(text, this);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

QPlainTextEdit* Lettura::addText(QBoxLayout& column, const char* name, const QString& captionText)
{
    QLabel* const label = caption(captionText);
    auto* const text = new QPlainTextEdit(this);
    text->setObjectName(QLatin1String(name));
    text->setAccessibleName(captionText);
    text->setTabChangesFocus(true);
    text->setFixedHeight(kTextLines * text->fontMetrics().lineSpacing() + 12);
    label->setBuddy(text);
    column.addWidget(label);
    column.addWidget(text);
    return text;
}

QPushButton* Lettura::button(const char* name, const QString& caption, const QString& spoken)
{
    auto* const made = new QPushButton(caption, this);
    made->setObjectName(QLatin1String(name));
    made->setAccessibleName(spoken);
    made->setAutoDefault(false);
    return made;
}

void Lettura::buildTop(QBoxLayout& column)
{
    text_ = addText(column, "LetturaTesto",
                    QStringLiteral("Testo: geroglifici Unicode, numeri di Gardiner come "
                                   "M23-X1:R4, o codici dei segni"));
    auto* const fromPhrase = button("LetturaDallaFrase", QStringLiteral("Dalla &frase"),
                                    QStringLiteral("prende i segni composti nel display e li legge"));
    auto* const readButton =
        button("LetturaLeggi", QStringLiteral("&Leggi"), QStringLiteral("legge il testo parola per parola"));
    readButton->setToolTip(QStringLiteral("Ctrl+Invio"));
    connect(fromPhrase, &QPushButton::clicked, this, [this] {
        text_->setPlainText(qtext(desktop_.session().display().DisplayCodes()));
        readText();
    });
    connect(readButton, &QPushButton::clicked, this, &Lettura::readText);
    connect(new QShortcut(QKeySequence(QStringLiteral("Ctrl+Return")), this), &QShortcut::activated,
            readButton, &QPushButton::click);
    unknown_ = caption({});
    unknown_->setObjectName(QStringLiteral("LetturaNonCompreso"));
    auto* const row = new QHBoxLayout;
    row->addWidget(fromPhrase);
    row->addWidget(readButton);
    row->addWidget(unknown_, 1);
    column.addLayout(row);
}

void Lettura::buildLines(QBoxLayout& column)
{
    auto* const area = new QScrollArea(this);
    lines_ = new ReadingLines(desktop_, passage_, area);
    lines_->setObjectName(QStringLiteral("LetturaRighe"));
    area->setObjectName(QStringLiteral("LetturaVista"));
    area->setAccessibleName(QStringLiteral("parole del brano"));
    area->setFocusPolicy(Qt::NoFocus);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidgetResizable(true);
    area->setWidget(lines_);
    area->setMinimumHeight(150);
    column.addWidget(area, 1);
    connect(lines_, &ReadingLines::opened, this, &Lettura::openMenu);
    connect(lines_, &ReadingLines::nextWanted, this,
            [this] { change([this] { passage_.chooseNext(lines_->current()); }); });
    connect(lines_, &ReadingLines::currentChanged, this, [this, area] {
        const QRect place = lines_->place(lines_->current());
        area->ensureVisible(place.center().x(), place.center().y(), 0, place.height() / 2 + 8);
    });
    const auto setColours = [this] {
        lines_->setPalette(paletteFor(colour(desktop_.session().colours().display)));
        lines_->update();
    };
    connect(&desktop_, &Desktop::changed, lines_, setColours);
    setColours();
}

void Lettura::buildBottom(QBoxLayout& column)
{
    auto* const texts = new QHBoxLayout;
    const auto addResult = [&](const char* name, const QString& captionText) {
        auto* const side = new QVBoxLayout;
        QPlainTextEdit* const text = addText(*side, name, captionText);
        text->setReadOnly(true);
        texts->addLayout(side);
        return text;
    };
    transliteration_ = addResult("LetturaTraslitterazione", QStringLiteral("Traslitterazione"));
    translation_ = addResult("LetturaTraduzione", QStringLiteral("Traduzione parola per parola"));
    column.addLayout(texts);
    auto* const openButton = button("LetturaApri", QStringLiteral("&Apri..."),
                                    QStringLiteral("apre una lettura salvata o un file di testo"));
    auto* const saveButton = button("LetturaSalva", QStringLiteral("&Salva..."),
                                    QStringLiteral("salva la lettura, o la scrive come pagina o come testo"));
    auto* const printButton = button("LetturaStampa", QStringLiteral("S&tampa..."),
                                     QStringLiteral("stampa la lettura come foglio di studio"));
    undo_ = button("LetturaAnnulla", QStringLiteral("Ann&ulla modifica"),
                   QStringLiteral("toglie l'ultima correzione"));
    undo_->setToolTip(QStringLiteral("Ctrl+Z"));
    auto* const shut = button("Command1", QStringLiteral("&Chiudi"), QStringLiteral("chiude la finestra"));
    connect(openButton, &QPushButton::clicked, this, &Lettura::openFile);
    connect(saveButton, &QPushButton::clicked, this, &Lettura::save);
    connect(printButton, &QPushButton::clicked, this,
            [this] { askAndPrintStudy(*this, studyOf(passage_), desktop_); });
    connect(undo_, &QPushButton::clicked, this, &Lettura::undo);
    connect(new QShortcut(QKeySequence::Undo, this), &QShortcut::activated, undo_, &QPushButton::click);
    connect(shut, &QPushButton::clicked, this, &Lettura::close);
    auto* const row = new QHBoxLayout;
    row->addWidget(openButton);
    row->addWidget(saveButton);
    row->addWidget(printButton);
    row->addWidget(undo_);
    row->addStretch(1);
    row->addWidget(shut);
    column.addLayout(row);
}

/// Makes the reader at its first use, and again after the dictionary changed. False when the dictionary
/// cannot be read, after a box that says so.
bool Lettura::prepareReader()
{
    Session& session = desktop_.session();
    try {
        const BusyPointer hourglass(session.ui());
        const FileState now = session.files().state(kDictionaryPath);
        if (!reader_ || now != dictionary_) {
            auto made = std::make_unique<Reader>(session.files());
            passage_.use(*made);
            reader_ = std::move(made);
            dictionary_ = now;
        }
        return true;
    } catch (const RuntimeError& error) {
        session.ui().ask(dictionaryErrorBox(error));
        return false;
    }
}

/// Runs a step that needs the reader, and shows the passage after it.
void Lettura::read(const std::function<void()>& step)
{
    const QPointer<Lettura> window = this;  // it may be closed while a box is open
    if (!prepareReader() || !window) {
        return;
    }
    step();
    showPassage();
    if (!passage_.words().empty()) {
        lines_->setFocus();
    }
}

void Lettura::readText()
{
    read([this] { passage_.setText(typed(text_->toPlainText())); });
}

void Lettura::showPassage()
{
    lines_->showPassage();
    transliteration_->setPlainText(qtext(passage_.transliteration()));
    translation_->setPlainText(qtext(passage_.translation()));
    undo_->setEnabled(passage_.canUndo());
    showUnknown();
}

void Lettura::showUnknown()
{
    QStringList places;
    for (const UnknownText& unknown : passage_.signs().unknown) {
        places << QStringLiteral("«%1» (riga %2, carattere %3)")
                      .arg(shortened(qtext(unknown.text)))
                      .arg(unknown.line)
                      .arg(unknown.column);
    }
    QString text = reader_ ? qtext(reader_->warning()) : QString();
    if (!places.isEmpty()) {
        const auto shown = std::min(places.size(), kPlacesShown);
        text += (text.isEmpty() ? QString() : QStringLiteral("\n")) + QStringLiteral("Non compreso: ") +
                places.first(shown).join(QStringLiteral(", "));
        if (shown < places.size()) {
            text += QStringLiteral(" e altri %1").arg(places.size() - shown);
        }
    }
    unknown_->setText(text);
    unknown_->setToolTip(
        plainTip(places.first(std::min(places.size(), kPlacesInTip)).join(QLatin1Char('\n'))));
}

void Lettura::change(const std::function<void()>& step)
{
    step();
    showPassage();
}

/// Takes back the last change, which may be a change of the text.
void Lettura::undo()
{
    const std::string before = passage_.work().text;
    passage_.undo();
    if (passage_.work().text != before) {
        text_->setPlainText(qtext(passage_.work().text));
    }
    showPassage();
}

void Lettura::openMenu()
{
    const std::size_t word = lines_->current();
    if (word >= passage_.words().size()) {
        return;
    }
    auto* const menu = new ReadingMenu(passage_, word, this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    connect(menu, &ReadingMenu::chosen, this,
            [this, word](const ReadingChoice& choice) { change([&] { passage_.choose(word, choice); }); });
    // Queued: the box opens when the menu is gone.
    connect(
        menu, &ReadingMenu::otherWanted, this, [this, word] { typeReading(word); }, Qt::QueuedConnection);
    connect(menu, &ReadingMenu::joinWanted, this,
            [this, word] { change([&] { passage_.joinWithNext(word); }); });
    connect(menu, &ReadingMenu::cutWanted, this,
            [this, word](std::size_t signs) { change([&] { passage_.divide(word, signs); }); });
    connect(menu, &ReadingMenu::releaseWanted, this,
            [this, word] { change([&] { passage_.release(word); }); });
    menu->popup(lines_->mapToGlobal(lines_->place(word).bottomLeft()));
}

/// A reading that Karvel does not offer.
void Lettura::typeReading(std::size_t word)
{
    UserInterface& ui = desktop_.session().ui();
    const QPointer<Lettura> window = this;  // it may be closed while a box is open
    const auto reading = ui.input("Altra lettura", "Traslitterazione:");
    if (!reading || reading->empty() || !window) {
        return;
    }
    const auto meaning = ui.input("Altra lettura", "Traduzione:");
    if (meaning && window) {
        change([&] { passage_.choose(word, {asciiTransliteration(*reading), *meaning, "a mano"}); });
    }
}

void Lettura::saveTo(const std::string& path)
{
    const FileSystem& files = desktop_.session().files();
    if (endsWith(path, ".html") || endsWith(path, ".htm")) {
        files.replace(path, passage_.html([this](const std::string& codes) {
            return svgOf(PhrasePicture{codes, {}, kPageBlocks}, desktop_).toStdString();
        }));
    } else if (endsWith(path, ".txt")) {
        files.replace(path, passage_.plainText());
    } else {
        files.replace(path, writeHandWork(passage_.work()));
        saved_ = passage_.work();
    }
}

void Lettura::openFrom(const std::string& path)
{
    const std::string bytes = desktop_.session().files().readAll(path, kLargestFile);
    HandWork work{passageText(bytes), {}};
    if (endsWith(path, kEnding)) {
        auto known = readHandWork(bytes);
        if (!known) {
            desktop_.session().ui().ask({.title = "Lettura",
                                         .text = path +
                                                 "\nè danneggiato o non è una lettura salvata da Karvel.\n\n"
                                                 "La lettura aperta resta com'era.",
                                         .icon = Icon::Exclamation});
            return;
        }
        work = std::move(*known);
    }
    text_->setPlainText(qtext(work.text));
    work.text = typed(text_->toPlainText());  // with the line ends that the box gives back later
    saved_ = work;
    read([&] { passage_.open(std::move(work)); });
}

void Lettura::save()
{
    const std::string path = askWhereToSaveReading(*this, desktop_);
    if (!path.empty()) {
        desktop_.handle([&] { saveTo(path); });
    }
}

void Lettura::openFile()
{
    if (!mayClose()) {
        return;
    }
    const std::string path = askWhichReadingToOpen(*this, desktop_);
    if (!path.empty()) {
        desktop_.handle([&] { openFrom(path); });
    }
}

bool Lettura::mayClose()
{
    const bool unsaved = !passage_.work().fixed.empty() && passage_.work() != saved_;
    if (unsaved && desktop_.session().ui().ask(
                       {.title = "Lettura",
                        .text = "Le scelte fatte a mano non sono salvate.\n\nChiudere lo stesso ?",
                        .icon = Icon::Question,
                        .buttons = Buttons::YesNo,
                        .defaultButton = Button::No}) != Button::Yes) {
        return false;
    }
    saved_ = passage_.work();  // one question is enough
    return true;
}

/// Escape and the close box.
void Lettura::reject()
{
    const QPointer<Lettura> window = this;  // it may be closed while a box is open
    if (mayClose() && window) {
        QDialog::reject();
    }
}

}  // namespace karvel
