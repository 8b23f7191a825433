#include <QAbstractButton>
#include <QFrame>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QStatusBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "windows/MagnifierWindow.hpp"
#include "windows/TrovaParola.hpp"
#include "windows/VociWindow.hpp"
#include "windows/main/FindSign.hpp"
#include "windows/main/Form1.hpp"
#include "windows/main/PageBox.hpp"
#include "windows/signs/PhraseNote.hpp"
#include "windows/signs/SignButton.hpp"
#include "windows/signs/SignCell.hpp"
#include "windows/signs/SquareGrid.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Text.hpp"
#include "windows/support/WindowSet.hpp"

namespace karvel {

namespace {

// Logical pixels.
constexpr int kGap = 8;      // between the parts of a window of usual height
constexpr int kMargin = 12;  // left and right of them
constexpr int kHighestPhrase = 48;
constexpr int kLargestKey = 110;  // a larger sign is no easier to read

constexpr int kGapsInHeight = 84;  // the window is so many gaps high
constexpr int kPageRests = 150;    // milliseconds without a page turn before other pages are scaled

QLabel* label(const char* name, QWidget* parent)
{
    auto* const made = new QLabel(parent);
    made->setObjectName(QLatin1String(name));
    made->setTextFormat(Qt::PlainText);
    return made;
}

}  // namespace

QToolButton* Form1::button(const char* name, const QString& tooltip, std::function<void()> handler)
{
    auto* const made = new QToolButton(centre_);
    made->setObjectName(QLatin1String(name));
    made->setToolTip(tooltip);
    made->setAccessibleName(tooltip);
    made->setIconSize({24, 24});
    made->setAutoRaise(false);
    made->setFocusPolicy(Qt::StrongFocus);
    made->setEnabled(static_cast<bool>(handler));
    if (handler) {
        connect(made, &QToolButton::clicked, this,
                [this, handler = std::move(handler)] { desktop_.handle(handler); });
    }
    return made;
}

QToolButton* Form1::button(const char* name, Symbol symbol, const QString& tooltip,
                           std::function<void()> handler)
{
    QToolButton* const made = button(name, tooltip, std::move(handler));
    symbols_.emplace_back(made, symbol);
    return made;
}

QWidget* Form1::displayLine()
{
    DisplayLine& display = desktop_.session().display();
    picture1_ = new QFrame(centre_);
    picture1_->setObjectName(QStringLiteral("Picture1"));
    picture1_->setAccessibleName(QStringLiteral("frase composta"));
    picture1_->setAutoFillBackground(true);
    auto* const cells = new SquareGrid(1, picture1_);
    cells->setObjectName(QStringLiteral("Picture2"));
    cells->setLargestSide(200);
    for (std::size_t i = 0; i < vendol_.size(); ++i) {
        vendol_[i] = new SignCell(desktop_.pictures(), cells);
        vendol_[i]->setObjectName(element("Vendol", i));
        cells->add(vendol_[i]);
        connect(vendol_[i], &QAbstractButton::clicked, this,
                [this, &display, i] { desktop_.handle([&display, i] { display.clickCell(i); }); });
    }
    picture1_->setFocusProxy(vendol_.front());
    desktop_.setDisplay(*picture1_);
    hint_ = label("hint", picture1_);
    hint_->setText(QStringLiteral(
        "Premete i segni della tavolozza, oppure scrivete un valore (nfr)\n"
        "o una parola (gufo) e premete Invio. Poi premete Cerca, o Elenco per tutte le voci."));
    hint_->setAlignment(Qt::AlignCenter);
    hint_->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto* const framed = new QGridLayout(picture1_);
    framed->setContentsMargins(kGap, kGap, kGap, kGap);
    framed->addWidget(cells, 0, 0);
    framed->addWidget(hint_, 0, 0, Qt::AlignCenter);

    csx_ = button("CSX", Symbol::Left, QStringLiteral("cursore a sinistra"),
                  [&display] { display.cursorLeft(); });
    cdx_ = button("CDX", Symbol::Right, QStringLiteral("cursore a destra"),
                  [&display] { display.cursorRight(); });
    for (QToolButton* const cursor : {csx_, cdx_}) {
        cursor->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
        cursor->setAutoRepeat(true);
    }
    auto* const line = new QWidget(centre_);
    auto* const row = new QHBoxLayout(line);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(kGap / 2);
    row->addWidget(csx_);
    row->addWidget(picture1_, 1);
    row->addWidget(cdx_);
    return line;
}

QBoxLayout* Form1::displayButtons()
{
    Session& session = desktop_.session();
    DisplayLine& display = session.display();
    command12_ = new QPushButton(QStringLiteral("Cerca"), centre_);
    command12_->setObjectName(QStringLiteral("Command12"));
    command12_->setToolTip(QStringLiteral("traduce i geroglifici del display"));
    command12_->setAccessibleName(QStringLiteral("cerca nel dizionario"));
    command12_->setIconSize({24, 24});
    command12_->setMinimumWidth(120);
    connect(command12_, &QPushButton::clicked, this,
            [this, &session] { desktop_.handle([&session] { session.search(); }); });

    elenco_ = new QPushButton(QStringLiteral("Elenco"), centre_);
    elenco_->setObjectName(QStringLiteral("Elenco"));
    elenco_->setToolTip(QStringLiteral("tutte le voci in un elenco (Ctrl+Invio)"));
    elenco_->setAccessibleName(QStringLiteral("elenco delle voci"));
    elenco_->setIconSize({24, 24});
    elenco_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(elenco_, &QPushButton::clicked, this,
            [this] { desktop_.handle([this] { Voci::openFromMenu(desktop_, windows_); }); });

    deleteSign_ = button("Command4", Symbol::DeleteSign, QStringLiteral("cancella geroglifico selezionato"),
                         [&display] { display.deleteSelected(); });
    auto* const row = new QHBoxLayout;
    row->setSpacing(kGap / 2);
    row->addWidget(command12_);
    row->addWidget(elenco_);
    row->addSpacing(kGap * 2);
    row->addWidget(button("Command1", Symbol::Start, QStringLiteral("vai a inizio frase"),
                          [&display] { display.startOfPhrase(); }));
    row->addWidget(button("Command3", Symbol::End, QStringLiteral("vai a fine frase"),
                          [&display] { display.endOfPhrase(); }));
    row->addSpacing(kGap * 2);
    row->addWidget(deleteSign_);
    row->addWidget(button("Command8", Symbol::ClearAll, QStringLiteral("cancella i geroglifici"),
                          [&display] { display.clearAll(); }));
    row->addSpacing(kGap * 2);
    row->addWidget(button("Command7", Symbol::Magnify, QStringLiteral("ingrandimento"),
                          [this] { windows_.open<Ingrandimento>(); }));
    row->addWidget(button("Command9", Symbol::AddToDictionary, QStringLiteral("inserisci nel dizionario"),
                          [this] { insertInDictionary(); }));
    row->addSpacing(kGap * 2);
    note_ = new PhraseNote(desktop_, centre_);
    row->addWidget(note_, 1);
    return row;
}

QBoxLayout* Form1::pageLine()
{
    Palette& palette = desktop_.session().palette();
    find_ = new FindSign(desktop_, *keys_, centre_);
    text1_ = new PageBox(centre_);
    text1_->setObjectName(QStringLiteral("Text1"));
    text1_->setAccessibleName(QStringLiteral("lettera della pagina"));
    text1_->setToolTip(QStringLiteral("lettera della pagina: scriverla e premere Invio"));
    text1_->setAlignment(Qt::AlignCenter);
    text1_->setMaxLength(8);
    text1_->setFixedWidth(48);
    hScroll1_ = new QScrollBar(Qt::Horizontal, centre_);
    hScroll1_->setObjectName(QStringLiteral("HScroll1"));
    hScroll1_->setAccessibleName(QStringLiteral("pagina della tavolozza"));
    hScroll1_->setRange(1, static_cast<int>(kPages));
    hScroll1_->setPageStep(1);
    hScroll1_->setTracking(false);  // a page is loaded when the thumb is released, not while it is dragged
    hScroll1_->setFocusPolicy(Qt::StrongFocus);
    pageRange_ = label("pageRange", centre_);
    int widest = 0;  // one width for all pages, so that the bar's arrow does not move under the pointer
    for (std::size_t page = 1; page <= kPages; ++page) {
        const QString text = gardinerRange(signCode(page, 0), signCode(page, kKeys - 1));
        widest = std::max(widest, pageRange_->fontMetrics().horizontalAdvance(text));
    }
    pageRange_->setFixedWidth(widest + 2);
    pageRange_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    connect(hScroll1_, &QScrollBar::sliderMoved, this,
            [this, &palette](int value) { desktop_.handle([&palette, value] { palette.scrolled(value); }); });
    connect(hScroll1_, &QScrollBar::valueChanged, this,
            [this, &palette](int value) { desktop_.handle([&palette, value] { palette.changed(value); }); });
    connect(text1_, &QLineEdit::textEdited, this,
            [&palette](const QString& text) { palette.typed(typed(text)); });
    connect(text1_, &PageBox::enterPressed, this, [this, &palette] {
        desktop_.handle([&] { palette.enterPage(typed(text1_->text())); });
        text1_->selectAll();
    });
    connect(text1_, &PageBox::keyPressed, this,
            [this, &palette] { hScroll1_->setValue(palette.CurrentPage()); });
    auto* const row = new QHBoxLayout;
    row->setSpacing(kGap);
    row->addWidget(find_);
    row->addWidget(text1_);
    row->addWidget(hScroll1_, 1);
    row->addWidget(pageRange_);
    connect(find_, &FindSign::inserted, this, &Form1::pointAt);
    connect(find_, &FindSign::finished, command12_, &QPushButton::click);
    connect(find_, &FindSign::wordWanted, this,
            [this](const QString& text) { windows_.open<TrovaParola>().start(text); });
    return row;
}

void Form1::buildCentre()
{
    centre_ = new QWidget(this);
    centre_->setObjectName(QStringLiteral("centre"));
    label1_ = label("Label1", centre_);
    QFont heading = label1_->font();
    heading.setBold(true);
    label1_->setFont(heading);

    Palette& palette = desktop_.session().palette();
    keys_ = new SquareGrid(0, centre_);
    keys_->setObjectName(QStringLiteral("palette"));
    keys_->setAccessibleName(QStringLiteral("tavolozza dei segni"));
    keys_->setLargestSide(kLargestKey);
    keys_->fillArea();
    for (std::size_t i = 0; i < tasto_.size(); ++i) {
        tasto_[i] = new SignButton(desktop_.pictures(), keys_);
        tasto_[i]->setObjectName(element("tasto", i));
        keys_->add(tasto_[i]);
        connect(tasto_[i], &QAbstractButton::clicked, this,
                [this, &palette, i] { desktop_.handle([&palette, i] { palette.press(i); }); });
    }
    pageTurned_.setSingleShot(true);
    pageTurned_.setInterval(kPageRests);
    connect(&pageTurned_, &QTimer::timeout, this, &Form1::preparePages);

    auto* const column = new QVBoxLayout(centre_);
    column->addWidget(label1_);
    column->addWidget(displayLine());
    column->addLayout(displayButtons());
    column->addLayout(favouritesStrip());
    column->addLayout(pageLine());
    column->addWidget(keys_, 1);
    setCentralWidget(centre_);
}

void Form1::buildStatusBar()
{
    statusBar()->setObjectName(QStringLiteral("StatusBar1"));
    statusBar()->setContentsMargins(kMargin - 6, 0, 0, 0);  // 6: the bar's and the label's own margins
    for (std::size_t i = 0; i < panels_.size(); ++i) {
        panels_[i] = label("", statusBar());
        panels_[i]->setObjectName(element("Panel", i + 1));
        panels_[i]->setMinimumWidth(120);
        panels_[i]->setIndent(4);
        statusBar()->addWidget(panels_[i], i == 2 ? 1 : 0);
    }
}

/// Makes the display line as high as its cells are wide, but no higher than a fifth of the window. A high
/// window has more space between its parts, and draws the phrase below the display larger.
void Form1::fitParts()
{
    const int cells = static_cast<int>(vendol_.size());
    const int side = (width() - 2 * csx_->sizeHint().width() - 8 * kGap) / cells;
    picture1_->setFixedHeight(std::clamp(side, 40, std::max(40, height() / 5)) + 2 * kGap);
    note_->setMinimumHeight(std::clamp(height() / 30, note_->minimumSizeHint().height(), kHighestPhrase));
    const int gap = std::clamp(height() / kGapsInHeight, kGap / 2, 2 * kGap);
    centre_->layout()->setContentsMargins(kMargin, gap, kMargin, gap);
    centre_->layout()->setSpacing(gap);
    centre_->layout()->activate();  // at once, so that no frame shows the line half resized
    picture1_->parentWidget()->layout()->activate();
}

void Form1::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    fitParts();
    pageTurned_.start();
}

/// The first size and place: large enough for the signs, and within the free area of the screen.
void Form1::placeOnScreen()
{
    const QRect free = QGuiApplication::primaryScreen()->availableGeometry();
    constexpr int kFrame = 40;  // for the window manager's title bar
    const int width = std::min(free.width() - kFrame, std::max(1180, free.width() * 6 / 10));
    const int height = std::min(free.height() - 2 * kFrame, std::max(690, width * 58 / 100));
    resize(width, height);
    move(free.left() + (free.width() - width) / 2, free.top() + (free.height() - kFrame - height) / 2);
}

}  // namespace karvel
