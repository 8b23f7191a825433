#include "windows/main/Form1.hpp"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QFrame>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QScrollBar>
#include <QStatusBar>
#include <QToolButton>
#include <algorithm>
#include <cstdlib>
#include <numeric>

#include "app/Views.hpp"
#include "base/SignRepertoire.hpp"
#include "text/Transliteration.hpp"
#include "windows/InsertionWindow.hpp"
#include "windows/TranslatedWordsWindow.hpp"
#include "windows/main/FindSign.hpp"
#include "windows/main/Keyboard.hpp"
#include "windows/main/PageBox.hpp"
#include "windows/signs/SignButton.hpp"
#include "windows/signs/SignCell.hpp"
#include "windows/signs/SquareGrid.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Icons.hpp"
#include "windows/support/Text.hpp"
#include "windows/support/Theme.hpp"
#include "windows/support/WindowColours.hpp"
#include "windows/support/WindowSet.hpp"

namespace karvel {

namespace {

/// What stands below a key: "D21 · r" and "bocca".
SquareGrid::Caption captionOf(const std::string& code)
{
    const SignInfo* const sign = SignRepertoire::standard().byCode(code);
    if (sign == nullptr) {
        return {code == kMissingSign ? QStringLiteral("?") : QString(), QString()};
    }
    QString number = qtext(sign->gardiner);
    if (!sign->values.empty()) {
        number += QStringLiteral(" · ") + qtext(printedTransliteration(sign->values.front()));
    }
    return {number, qtext(sign->description)};
}

}  // namespace

QString Form1::gardinerRange(const std::string& first, const std::string& last)
{
    const SignInfo* const from = SignRepertoire::standard().byCode(first);
    const SignInfo* const to = SignRepertoire::standard().byCode(last);
    return from != nullptr && to != nullptr  // neither when start-up stopped at an image
               ? QStringLiteral("Gardiner %1 – %2").arg(qtext(from->gardiner), qtext(to->gardiner))
               : QString();
}

Form1::Form1(Desktop& desktop, WindowSet& windows) : desktop_(desktop), windows_(windows)
{
    setObjectName(QStringLiteral("Form1"));
    windowColours_ = std::make_unique<WindowColours>(desktop_);
    setWindowTitle(QStringLiteral("Karvel - Dizionario geroglifico-italiano"));
    buildMenus();
    buildCentre();
    buildStatusBar();
    placeOnScreen();
    keyboard_ = std::make_unique<Keyboard>(desktop_, Keyboard::Controls{.window = this,
                                                                        .pages = hScroll1_,
                                                                        .firstCell = vendol_.front(),
                                                                        .lastCell = vendol_.back(),
                                                                        .find = find_});
    connect(&desktop_, &Desktop::changed, this, &Form1::showState);
    tasto_[0]->setFocus();
}

Form1::~Form1() = default;

void Form1::closeEvent(QCloseEvent* event)
{
    leaving_ = (leaving_ || confirmClose(desktop_.session().ui())) && windows_.mayLeave();
    if (!leaving_) {
        event->ignore();
        return;
    }
    event->accept();
    QApplication::quit();
}

/// When the system changes its theme, high contrast may begin or end: the colours are set again.
bool Form1::event(QEvent* event)
{
    const bool known = QMainWindow::event(event);
    if (event->type() == QEvent::ApplicationPaletteChange && keyboard_) {
        shownWindow_ = 0;
        emit desktop_.changed();
    }
    return known;
}

void Form1::leave()
{
    if (confirmExit(desktop_.session().ui())) {
        leaving_ = true;  // one question is enough: closeEvent does not ask again
        close();
    }
}

void Form1::insertInDictionary()
{
    Session& session = desktop_.session();
    if (session.dictionaryInsertion().mayOpen(session.display().DisplayCodes())) {
        windows_.open<Inserimento>();
    }
}

void Form1::showTranslatedWords()
{
    if (desktop_.session().translatedWords().mayBeShown(desktop_.session().ui())) {
        windows_.open<Form4>();
    }
}

void Form1::showState()
{
    showColours();
    showModes();
    showDisplay();
    showPalette();
    showFavourites();
    Session& session = desktop_.session();
    panels_[0]->setText(qtext(session.termsPanel));
    panels_[1]->setText(QStringLiteral("Segni: %1").arg(session.display().signs()));
    panels_[2]->setText(qtext(session.palette().codePanel()));
}

void Form1::showProgress(int percent)
{
    if (percent < 0) {
        statusBar()->clearMessage();
        return;
    }
    statusBar()->showMessage(QStringLiteral("Lettura del dizionario: %1%  (Esc interrompe)").arg(percent));
}

void Form1::showColours()
{
    const QColor window = windowColour(desktop_.session().colours());
    const QColor display = colour(desktop_.session().colours().display);
    if (shownWindow_ == window.rgba() && shownDisplay_ == display.rgba()) {
        return;
    }
    shownWindow_ = window.rgba();
    shownDisplay_ = display.rgba();
    setPalette(paletteFor(window));
    QPalette cells = paletteFor(display);
    picture1_->setPalette(cells);
    QPalette action = paletteFor(window);
    const QColor accent = strongContrast() ? action.color(QPalette::Highlight) : kAccent;
    action.setColor(QPalette::Button, accent);
    action.setColor(QPalette::ButtonText, inkOn(accent));
    command12_->setPalette(action);
    showIcons();
}

void Form1::showIcons()
{
    const QColor ink = palette().color(QPalette::ButtonText);
    for (const auto& [button, symbol] : symbols_) {
        button->setIcon(symbolIcon(symbol, ink));
    }
    find_->showIcons();
    elenco_->setIcon(symbolIcon(Symbol::List, ink));
    command12_->setIcon(symbolIcon(Symbol::Search, command12_->palette().color(QPalette::ButtonText)));
}

void Form1::showDisplay()
{
    const DisplayLine& display = desktop_.session().display();
    for (std::size_t i = 0; i < vendol_.size(); ++i) {
        vendol_[i]->setCell(display.cells()[i], display.selected(i));
    }
    hint_->setVisible(display.signs() == 0 &&
                      std::ranges::all_of(display.cells(), &DisplayLine::Cell::blank));
    csx_->setEnabled(display.cursorEnabled());
    cdx_->setEnabled(display.cursorEnabled());
    deleteSign_->setEnabled(display.deleteEnabled());
}

void Form1::showPalette()
{
    const Palette& shown = desktop_.session().palette();
    for (std::size_t i = 0; i < tasto_.size(); ++i) {
        tasto_[i]->setSign(shown.picture(i), shown.codeOf(i));
        keys_->setCaption(i, captionOf(shown.codeOf(i)));
        // The mark is removed when another sign is pressed.
        tasto_[i]->setMarked(shown.codeOf(i) == pointedAt_ && shown.CurrentSignCode() == pointedAt_);
    }
    if (prepared_ != desktop_.session().images().path(signCode(shown.CurrentPage(), 0))) {
        pageTurned_.start();
    }
    if (text1_->text() != qtext(shown.pageText())) {
        text1_->setText(qtext(shown.pageText()));
    }
    pageRange_->setText(gardinerRange(shown.codeOf(0), shown.codeOf(kKeys - 1)));
}

/// Turns to the page of `code` and marks its key, so that the user learns where the sign is.
void Form1::pointAt(const std::string& code)
{
    pointedAt_ = code;
    hScroll1_->setValue(static_cast<int>(kCategories.find(code.front())) + 1);
    showPalette();
}

/// Scales the signs of all pages in the background; the pages next to the current one come first.
void Form1::preparePages()
{
    const int here = desktop_.session().palette().CurrentPage();
    std::array<int, kPages> pages{};
    std::iota(pages.begin(), pages.end(), 1);
    std::ranges::stable_sort(pages, {}, [here](int page) { return std::abs(page - here); });
    std::vector<std::string> pictures;
    for (const int page : pages) {
        for (std::size_t key = 0; key < kKeys; ++key) {
            pictures.push_back(
                desktop_.session().images().path(signCode(static_cast<std::size_t>(page), key)));
        }
    }
    prepared_ = pictures.front();
    desktop_.pictures().prepare(pictures, tasto_[0]->pictureSide(), devicePixelRatioF());
}

void Form1::showModes()
{
    const SearchModes& modes = desktop_.session().modes();
    for (std::size_t i = 0; i < modeItems_.size(); ++i) {
        modeItems_[i]->setChecked(modes.ticked(static_cast<Mode>(i + 1)));
    }
    label1_->setText(qtext(modes.caption()));
}

}  // namespace karvel
