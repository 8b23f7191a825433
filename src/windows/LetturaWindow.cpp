#include "windows/LetturaWindow.hpp"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QShortcut>
#include <QStandardPaths>
#include <QVBoxLayout>

#include "base/SignCode.hpp"
#include "text/PhraseText.hpp"
#include "text/Transliteration.hpp"
#include "windows/ReadingLines.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Text.hpp"
#include "windows/support/Theme.hpp"

namespace karvel {

namespace {

constexpr std::string_view kEnding = ".karvel-lettura";
constexpr std::size_t kLargestFile = std::size_t{1} << 20;
constexpr int kTextLines = 3;  ///< that a box for text shows
constexpr std::size_t kPlacesShown = 4;

/// A choice in one line of a menu, with its note; "&" is no mark of a key there.
QString line(const ReadingChoice& choice)
{
    QString text =
        qtext(printedTransliteration(choice.transliteration)) + QStringLiteral("  —  ") +
        (choice.translation.empty() ? QStringLiteral("(senza traduzione)") : qtext(choice.translation));
    if (!choice.note.empty()) {
        text += QStringLiteral("   [") + qtext(choice.note) + QLatin1Char(']');
    }
    return text.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

QString documents()
{
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
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
    buildTop();
    area_ = new QScrollArea(this);
    lines_ = new ReadingLines(desktop_, passage_, area_);
    lines_->setObjectName(QStringLiteral("LetturaRighe"));
    area_->setObjectName(QStringLiteral("LetturaVista"));
    area_->setAccessibleName(QStringLiteral("parole del brano"));
    area_->setFocusPolicy(Qt::NoFocus);
    area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area_->setWidgetResizable(true);
    area_->setWidget(lines_);
    area_->setMinimumHeight(150);
    column->addWidget(area_, 1);
    addCaption(qtext(kProposal));
    buildBottom();
    connect(lines_, &ReadingLines::opened, this, &Lettura::openMenu);
    connect(lines_, &ReadingLines::nextWanted, this,
            [this] { change([this] { passage_.chooseNext(lines_->current()); }); });
    connect(lines_, &ReadingLines::currentChanged, this, [this] {
        const QRect place = lines_->place(lines_->current());
        area_->ensureVisible(place.center().x(), place.center().y(), 0, place.height() / 2 + 8);
    });
    connect(&desktop_, &Desktop::changed, this, [this] {
        lines_->setPalette(paletteFor(colour(desktop_.session().colours().display)));
        lines_->update();
    });
    lines_->setPalette(paletteFor(colour(desktop_.session().colours().display)));
    resize(980, 640);
    text_->setFocus();
    showPassage();
}

QLabel* Lettura::addCaption(const QString& text)
{
    auto* const caption = new QLabel(text, this);
    caption->setTextFormat(Qt::PlainText);
    caption->setWordWrap(true);
    layout()->addWidget(caption);
    return caption;
}

QPlainTextEdit* Lettura::addText(const char* name, const QString& caption)
{
    QLabel* const label = addCaption(caption);
    auto* const text = new QPlainTextEdit(this);
    text->setObjectName(QLatin1String(name));
    text->setAccessibleName(caption);
    text->setTabChangesFocus(true);
    text->setFixedHeight(kTextLines * text->fontMetrics().lineSpacing() + 12);
    label->setBuddy(text);
    layout()->addWidget(text);
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

void Lettura::buildTop()
{
    text_ = addText("LetturaTesto", QStringLiteral("Testo: geroglifici Unicode, numeri di Gardiner come "
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
    unknown_ = new QLabel(this);
    unknown_->setObjectName(QStringLiteral("LetturaNonCompreso"));
    unknown_->setTextFormat(Qt::PlainText);
    unknown_->setWordWrap(true);
    auto* const row = new QHBoxLayout;
    row->addWidget(fromPhrase);
    row->addWidget(readButton);
    row->addWidget(unknown_, 1);
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

void Lettura::buildBottom()
{
    transliteration_ = addText("LetturaTraslitterazione", QStringLiteral("Traslitterazione"));
    translation_ = addText("LetturaTraduzione", QStringLiteral("Traduzione parola per parola"));
    transliteration_->setReadOnly(true);
    translation_->setReadOnly(true);
    auto* const openButton = button("LetturaApri", QStringLiteral("&Apri..."),
                                    QStringLiteral("apre una lettura salvata o un file di testo"));
    auto* const saveButton = button("LetturaSalva", QStringLiteral("&Salva..."),
                                    QStringLiteral("salva la lettura, o la scrive come pagina o come testo"));
    undo_ = button("LetturaAnnulla", QStringLiteral("Ann&ulla modifica"),
                   QStringLiteral("toglie l'ultima correzione"));
    undo_->setToolTip(QStringLiteral("Ctrl+Z"));
    auto* const shut = button("Command1", QStringLiteral("&Chiudi"), QStringLiteral("chiude la finestra"));
    connect(openButton, &QPushButton::clicked, this, &Lettura::open);
    connect(saveButton, &QPushButton::clicked, this, &Lettura::save);
    connect(undo_, &QPushButton::clicked, this, [this] {
        change([this] {
            const std::string before = passage_.work().text;
            passage_.undo();
            if (passage_.work().text != before) {
                text_->setPlainText(qtext(passage_.work().text));
            }
        });
    });
    connect(new QShortcut(QKeySequence::Undo, this), &QShortcut::activated, undo_, &QPushButton::click);
    connect(shut, &QPushButton::clicked, this, &Lettura::close);
    auto* const row = new QHBoxLayout;
    row->addWidget(openButton);
    row->addWidget(saveButton);
    row->addWidget(undo_);
    row->addStretch(1);
    row->addWidget(shut);
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

/// Makes the reader at its first use, and again after the dictionary changed. False when the dictionary
/// cannot be read, which is told.
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
                      .arg(qtext(unknown.text))
                      .arg(unknown.line)
                      .arg(unknown.column);
    }
    QString text = reader_ ? qtext(reader_->warning()) : QString();
    if (!places.isEmpty()) {
        const auto shown = std::min(places.size(), static_cast<qsizetype>(kPlacesShown));
        text += (text.isEmpty() ? QString() : QStringLiteral("\n")) + QStringLiteral("Non compreso: ") +
                places.first(shown).join(QStringLiteral(", "));
        if (shown < places.size()) {
            text += QStringLiteral(" e altri %1").arg(places.size() - shown);
        }
    }
    unknown_->setText(text);
    unknown_->setToolTip(places.join(QLatin1Char('\n')));
}

void Lettura::change(const std::function<void()>& step)
{
    step();
    showPassage();
}

void Lettura::openMenu()
{
    const std::size_t word = lines_->current();
    if (word >= passage_.words().size()) {
        return;
    }
    auto* const menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("LetturaMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    addChoices(*menu, word);
    QAction* const other = menu->addAction(QStringLiteral("Altra &lettura..."));
    connect(
        other, &QAction::triggered, this, [this, word] { typeReading(word); }, Qt::QueuedConnection);
    menu->addSeparator();
    QAction* const join = menu->addAction(QStringLiteral("&Unisci con la parola seguente"));
    join->setObjectName(QStringLiteral("LetturaUnisci"));
    join->setEnabled(word + 1 < passage_.words().size());
    connect(join, &QAction::triggered, this,
            [this, word] { change([this, word] { passage_.joinWithNext(word); }); });
    addCuts(*menu, word);
    QAction* const release = menu->addAction(QStringLiteral("Lascia scegliere a &Karvel"));
    release->setEnabled(passage_.words()[word].fixed);
    connect(release, &QAction::triggered, this,
            [this, word] { change([this, word] { passage_.release(word); }); });
    menu->popup(lines_->mapToGlobal(lines_->place(word).bottomLeft()));
}

/// The present choice, with a mark, and the alternatives.
void Lettura::addChoices(QMenu& menu, std::size_t word)
{
    const ReadWord& read = passage_.words()[word];
    QAction* const present = menu.addAction(
        read.known ? line(read.choice)
                   : QStringLiteral("Nessuna parola; valori dei segni: ") + qtext(printedReading(read)));
    present->setCheckable(true);
    present->setChecked(true);
    present->setEnabled(read.known);
    const auto offer = [&](QAction* action, const ReadingChoice& choice) {
        connect(action, &QAction::triggered, this,
                [this, word, choice] { change([&] { passage_.choose(word, choice); }); });
    };
    offer(present, read.choice);
    for (const ReadingChoice& choice : read.alternatives) {
        QAction* const action = menu.addAction(line(choice));
        action->setCheckable(true);
        offer(action, choice);
    }
}

/// "Dividi qui": a submenu with each place between two signs.
void Lettura::addCuts(QMenu& menu, std::size_t word)
{
    const std::string codes = passage_.codesOf(passage_.words()[word]);
    QMenu* const cuts = menu.addMenu(QStringLiteral("&Dividi qui"));
    cuts->setObjectName(QStringLiteral("LetturaDividi"));
    const std::size_t signs = codes.size() / kCodeLength;
    cuts->setEnabled(signs > 1);
    for (std::size_t after = 1; after < signs; ++after) {
        QAction* const cut = cuts->addAction(qtext(gardinerOf(codes.substr(0, after * kCodeLength)) +
                                                   "  |  " + gardinerOf(codes.substr(after * kCodeLength))));
        connect(cut, &QAction::triggered, this,
                [this, word, after] { change([&] { passage_.divide(word, after); }); });
    }
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
    if (path.ends_with(".html") || path.ends_with(".htm")) {
        files.replace(path, passage_.html());
    } else if (path.ends_with(".txt")) {
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
    if (path.ends_with(kEnding)) {
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
    QFileDialog dialog(this, QStringLiteral("Salva la lettura"), documents());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters({QStringLiteral("Lettura con le scelte (*.karvel-lettura)"),
                           QStringLiteral("Pagina HTML (*.html)"), QStringLiteral("Testo (*.txt)")});
    dialog.setDefaultSuffix(QStringLiteral("karvel-lettura"));
    connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog](const QString& filter) {
        const qsizetype from = filter.lastIndexOf(QLatin1Char('.')) + 1;
        dialog.setDefaultSuffix(filter.mid(from, filter.size() - from - 1));
    });
    if (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty()) {
        const std::string path = utf8(dialog.selectedFiles().constFirst());
        desktop_.handle([&] { saveTo(desktop_.session().files().drives().toSystem(hostPath(path))); });
    }
}

void Lettura::open()
{
    QFileDialog dialog(this, QStringLiteral("Apri una lettura o un testo"), documents());
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters(
        {QStringLiteral("Letture e testi (*.karvel-lettura *.txt)"), QStringLiteral("Tutti i file (*)")});
    if (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty()) {
        const std::string path = utf8(dialog.selectedFiles().constFirst());
        desktop_.handle([&] { openFrom(desktop_.session().files().drives().toSystem(hostPath(path))); });
    }
}

/// Escape and the close box: corrections are not lost without a question.
void Lettura::reject()
{
    const QPointer<Lettura> window = this;
    const bool lost = !passage_.work().fixed.empty() && passage_.work() != saved_;
    if (lost && desktop_.session().ui().ask(
                    {.title = "Lettura",
                     .text = "Le scelte fatte a mano non sono salvate.\n\nChiudere lo stesso ?",
                     .icon = Icon::Question,
                     .buttons = Buttons::YesNo,
                     .defaultButton = Button::No}) != Button::Yes) {
        return;
    }
    if (window) {
        QDialog::reject();
    }
}

}  // namespace karvel
