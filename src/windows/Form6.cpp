#include "windows/Form6.hpp"

#include <QAction>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QSignalBlocker>
#include <QTabBar>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "base/SignRepertoire.hpp"
#include "text/CodePage.hpp"
#include "windows/signs/SignButton.hpp"
#include "windows/signs/SquareGrid.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/ScreenFit.hpp"
#include "windows/support/Text.hpp"
#include "windows/support/Theme.hpp"

namespace karvel {

namespace {

constexpr int kRows = 4;

/// `name` for a caption in which the toolkit reads "&" as the mark of an access key.
QString label(const std::string& name)
{
    return qtext(name).replace(QLatin1Char('&'), QStringLiteral("&&"));
}

}  // namespace

Form6::Form6(Desktop& desktop, QWidget* parent)
    : QDialog(parent),
      desktop_(desktop),
      editor_(desktop.session().files(), desktop.session().ui(), desktop.session().display(),
              desktop.session().palette())
{
    setObjectName(QStringLiteral("Form6"));
    setWindowTitle(QStringLiteral("Schede"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto* const column = new QVBoxLayout(this);
    column->setSpacing(8);
    buildMenu();
    column->addWidget(headLine());
    tabs_ = new QTabBar(this);
    tabs_->setObjectName(QStringLiteral("TabStrip1"));
    tabs_->setAccessibleName(QStringLiteral("schede"));
    tabs_->setExpanding(false);
    tabs_->setDrawBase(false);
    tabs_->setUsesScrollButtons(true);
    column->addWidget(tabs_);
    column->addWidget(grid(), 1);
    hint_ = new QLabel(this);
    hint_->setObjectName(QStringLiteral("hint"));
    hint_->setTextFormat(Qt::PlainText);
    hint_->setWordWrap(true);
    column->addWidget(hint_);
    placeOverPalette(*this, *parent, {980, 480});

    connect(tabs_, &QTabBar::currentChanged, this, [this](int tab) {
        desktop_.handle([this, tab] {
            tab <= 0 ? editor_.showFirst() : editor_.load(static_cast<std::size_t>(tab - 1));
        });
    });
    connect(&desktop_, &Desktop::changed, this, &Form6::showState);
    desktop_.handle([this] { editor_.open(); });
    tabs_->setFocus();
}

QWidget* Form6::headLine()
{
    auto* const line = new QWidget(this);
    combo1_ = new QComboBox(line);
    combo1_->setObjectName(QStringLiteral("combo1"));
    combo1_->setAccessibleName(QStringLiteral("scheda da caricare"));
    combo1_->setPlaceholderText(QStringLiteral("Scegliere una scheda"));
    combo1_->setMinimumWidth(260);
    connect(combo1_, &QComboBox::activated, this, [this](int index) {
        desktop_.handle([this, index] { editor_.load(static_cast<std::size_t>(index)); });
    });
    auto* const caption = new QLabel(QStringLiteral("S&cheda:"), line);
    caption->setBuddy(combo1_);
    signCount_ = new QLabel(line);
    signCount_->setObjectName(QStringLiteral("segniDellaScheda"));
    auto* const row = new QHBoxLayout(line);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(caption);
    row->addWidget(combo1_);
    row->addStretch(1);
    row->addWidget(signCount_);
    return line;
}

QWidget* Form6::grid()
{
    auto* const keys = new SquareGrid(kRows, this);
    keys->setObjectName(QStringLiteral("card"));
    keys->setAccessibleName(QStringLiteral("segni della scheda"));
    for (std::size_t i = 0; i < cmd_.size(); ++i) {
        cmd_[i] = new SignButton(desktop_.pictures(), keys);
        cmd_[i]->setObjectName(element("Cmd", i));
        keys->add(cmd_[i]);
        connect(cmd_[i], &QAbstractButton::clicked, this,
                [this, i] { desktop_.handle([this, i] { editor_.press(i); }); });
    }
    return keys;
}

QAction* Form6::addItem(QMenu& menu, const char* name, const QString& caption, std::function<void()> handler)
{
    QAction* const action = menu.addAction(caption);
    action->setObjectName(QLatin1String(name));
    connect(action, &QAction::triggered, this,
            [this, handler = std::move(handler)] { desktop_.handle(handler); });
    return action;
}

void Form6::buildMenu()
{
    auto* const bar = new QMenuBar(this);
    layout()->setMenuBar(bar);
    QMenu& menu = *bar->addMenu(QStringLiteral("&Schede"));
    menu.setObjectName(QStringLiteral("menuSchede"));
    addItem(menu, "nuova", QStringLiteral("&Nuova scheda..."), [this] { editor_.create(); });
    load_ = menu.addMenu(QStringLiteral("&Carica scheda"));
    load_->setObjectName(QStringLiteral("carica"));
    menu.addSeparator();
    changing_ = {
        addItem(menu, "aggiungi", QStringLiteral("&Aggiungi a questa scheda"), [this] { editor_.add(); }),
        addItem(menu, "elimina", QStringLiteral("&Elimina da questa scheda"),
                [this] { editor_.removeSign(); })};
    menu.addSeparator();
    changing_.push_back(addItem(menu, "eliminascheda", QStringLiteral("Elimina la &scheda"),
                                [this] { editor_.deleteCard(); }));
    menu.addSeparator();
    QAction* const close = menu.addAction(QStringLiteral("C&hiudi"));
    close->setObjectName(QStringLiteral("chiudi"));
    connect(close, &QAction::triggered, this, &QWidget::close);
}

void Form6::showState()
{
    const QColor window = colour(desktop_.session().colours().window);
    if (palette().color(QPalette::Window) != window) {
        setPalette(paletteFor(window));
    }
    showNames();
    showCurrent();
    showSigns();
    showHints();
}

/// Fills the list, the tabs and the submenu with the names of the cards.
void Form6::showNames()
{
    if (namesShown_ && shownNames_ == editor_.names()) {
        return;
    }
    namesShown_ = true;
    shownNames_ = editor_.names();
    const QSignalBlocker quiet(tabs_);
    while (tabs_->count() > 0) {
        tabs_->removeTab(0);
    }
    combo1_->clear();
    load_->clear();
    tabs_->addTab(qtext(CardEditor::kFirstName));
    for (std::size_t i = 0; i < shownNames_.size(); ++i) {
        tabs_->addTab(label(upperCase(shownNames_[i])));
        combo1_->addItem(qtext(shownNames_[i]));
        QAction* const action = load_->addAction(label(shownNames_[i]));
        connect(action, &QAction::triggered, this,
                [this, i] { desktop_.handle([this, i] { editor_.load(i); }); });
    }
    load_->setEnabled(!shownNames_.empty());
}

void Form6::showCurrent()
{
    const int place = editor_.current() ? static_cast<int>(*editor_.current()) : -1;
    const QSignalBlocker quiet(tabs_);
    tabs_->setCurrentIndex(place + 1);
    combo1_->setCurrentIndex(place);
    for (QAction* const action : changing_) {
        action->setEnabled(place >= 0);
    }
}

void Form6::showSigns()
{
    const std::vector<std::string>& fields = editor_.fields();
    for (std::size_t i = 0; i < cmd_.size(); ++i) {
        cmd_[i]->setVisible(i < fields.size());
        if (i >= fields.size()) {
            continue;
        }
        const bool sign = editor_.isSign(i);
        cmd_[i]->setEnabled(sign);
        if (sign) {
            cmd_[i]->setSign(cardImage(fields[i]), fields[i], true);
        } else {
            cmd_[i]->setSign({}, "?", true);
            cmd_[i]->setToolTip(
                QStringLiteral("nel file della scheda questa riga non è il codice di un segno: ") +
                qtext(fields[i]));
        }
    }
}

void Form6::showHints()
{
    const std::size_t count = editor_.fields().size();
    QString said = QStringLiteral("%1 segni su %2").arg(count).arg(kCardSigns);
    if (count == 1) {
        said = QStringLiteral("1 segno su %1").arg(kCardSigns);
    } else if (count > kCardSigns) {
        said = QStringLiteral("%1 segni, se ne vedono %2").arg(count).arg(kCardSigns);
    }
    signCount_->setText(said);
    const std::string first = desktop_.session().display().DisplayCodes().substr(0, kCodeLength);
    if (!editor_.current()) {
        hint_->setText(
            QStringLiteral("Questa scheda non si modifica: per raccogliere segni propri, crearne una "
                           "con Schede, Nuova scheda."));
    } else if (first.empty()) {
        hint_->setText(
            QStringLiteral("Un clic scrive il segno sul display. Aggiungi ed Elimina valgono per il "
                           "primo segno del display, che ora è vuoto."));
    } else {
        hint_->setText(QStringLiteral("Aggiungi ed Elimina valgono per il primo segno del display: ") +
                       qtext(signCaption(first)));
    }
}

}  // namespace karvel
