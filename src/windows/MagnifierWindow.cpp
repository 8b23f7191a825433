#include "windows/MagnifierWindow.hpp"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "base/SignCode.hpp"
#include "windows/signs/MagnifiedPhrase.hpp"
#include "windows/signs/PhraseBlocks.hpp"
#include "windows/signs/PictureSwitches.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/ScreenFit.hpp"
#include "windows/support/Theme.hpp"

namespace karvel {

namespace {

/// Where the window opens: the distance below the upper edge of the main window, in 1/1440 inch.
constexpr int kBelowMainWindow = 3300;

constexpr double kUnitsPerInch = 1440;

/// Below the display line, in the middle of the main window, but wholly on the screen.
void placeBelowDisplay(QWidget& window, const QWidget& mainWindow)
{
    const int drop = qRound(kBelowMainWindow / kUnitsPerInch * mainWindow.logicalDpiY());
    window.move(mainWindow.frameGeometry().center().x() - window.width() / 2,
                mainWindow.frameGeometry().top() + drop);
    keepOnScreen(window);
}

QScrollArea* scrolled(QWidget* content, const char* name, const QString& spoken, QWidget* parent)
{
    auto* const area = new QScrollArea(parent);
    area->setObjectName(QLatin1String(name));
    area->setAccessibleName(spoken);
    area->setFrameShape(QFrame::StyledPanel);
    area->setWidget(content);
    return area;
}

}  // namespace

Ingrandimento::Ingrandimento(Desktop& desktop, QWidget* parent)
    : QDialog(parent),
      desktop_(desktop),
      phrase_(new MagnifiedPhrase(desktop.pictures(), nullptr)),
      area_(scrolled(phrase_, "vista", QStringLiteral("frase ingrandita"), this)),
      blocks_(new PhraseBlocks(desktop, QStringLiteral("Il display è vuoto."), nullptr)),
      blocksArea_(scrolled(blocks_, "vistaBlocchi", QStringLiteral("frase in blocchi"), this)),
      views_(new QStackedWidget(this)),
      count_(new QLabel(this)),
      switches_(new PictureSwitches(desktop.session(), QStringLiteral("Ingrandimento"),
                                    {.codes = {}, .look = {.inRow = true}, .blockHeight = 96}, this))
{
    setObjectName(QStringLiteral("Ingrandimento"));
    setWindowTitle(QStringLiteral("Ingrandimento"));
    setAttribute(Qt::WA_DeleteOnClose);
    area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    blocks_->setObjectName(QStringLiteral("frasePerBlocchi"));
    views_->addWidget(area_);
    views_->addWidget(blocksArea_);
    count_->setObjectName(QStringLiteral("Label1"));
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(12, 12, 12, 12);
    column->addWidget(switches_);
    column->addWidget(views_, 1);
    column->addWidget(buttons());
    resize(860, 420);
    if (parent != nullptr) {
        placeBelowDisplay(*this, *parent);
    }
    connect(&desktop_, &Desktop::changed, this, &Ingrandimento::showPhrase);
    connect(switches_, &PictureSwitches::changed, this, &Ingrandimento::showPicture);
    showPhrase();
}

QWidget* Ingrandimento::buttons()
{
    auto* const bar = new QWidget(this);
    auto* const close = new QPushButton(QStringLiteral("Chiudi"), bar);
    close->setObjectName(QStringLiteral("Command1"));
    close->setAccessibleName(QStringLiteral("chiudi"));
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &Ingrandimento::close);
    auto* const line = new QHBoxLayout(bar);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(count_);
    line->addStretch(1);
    const PictureButtons pictures = pictureButtons(bar);
    // Pictures are of the phrase in blocks, so that is what is shown from then on.
    connect(pictures.copy, &QPushButton::clicked, this, [this] {
        switches_->setInBlocks(true);
        blocks_->copy();
    });
    connect(pictures.save, &QPushButton::clicked, this, [this] {
        switches_->setInBlocks(true);
        blocks_->save();
    });
    line->addWidget(pictures.copy);
    line->addWidget(pictures.save);
    line->addWidget(close);
    return bar;
}

/// Shows the view that is chosen, and the phrase in blocks as the switches say.
void Ingrandimento::showPicture()
{
    const bool inBlocks = switches_->inBlocks();
    switches_->setShaping(inBlocks);
    views_->setCurrentWidget(inBlocks ? blocksArea_ : area_);
    blocks_->setPicture(switches_->pictureOf(desktop_.session().display().DisplayCodes()));
    fit();
}

void Ingrandimento::showPhrase()
{
    Session& session = desktop_.session();
    QPalette surface = paletteFor(colour(session.colours().display));
    phrase_->setPalette(surface);
    std::vector<MagnifiedPhrase::Sign> signs;
    for (const std::string_view code : splitCodes(session.display().DisplayCodes())) {
        signs.push_back({session.images().path(code), std::string(code)});
    }
    count_->setText(signs.size() == 1 ? QStringLiteral("1 segno")
                                      : QStringLiteral("%1 segni").arg(signs.size()));
    const bool longer = signs.size() > phrase_->signs().size();
    phrase_->setSigns(std::move(signs));
    showPicture();
    if (longer) {
        area_->ensureVisible(0, phrase_->height());  // the sign just added
    }
}

void Ingrandimento::fit()
{
    fitSigns();
    fitBlocks();
}

void Ingrandimento::fitBlocks()
{
    QSize view = blocksArea_->maximumViewportSize();
    blocks_->fit(view);
    if (blocks_->height() > view.height()) {  // the scroll bars narrow the view
        view.rwidth() -= blocksArea_->verticalScrollBar()->sizeHint().width();
        blocks_->fit(view);
    } else if (blocks_->width() > view.width()) {
        view.rheight() -= blocksArea_->horizontalScrollBar()->sizeHint().height();
        blocks_->fit(view);
    }
}

void Ingrandimento::fitSigns()
{
    QSize view = area_->maximumViewportSize();
    phrase_->fit(view);
    if (phrase_->height() > view.height()) {  // the scroll bar narrows the view
        view.rwidth() -= area_->verticalScrollBar()->sizeHint().width();
        phrase_->fit(view);
    }
}

void Ingrandimento::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    fit();
}

void Ingrandimento::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    fit();
}

}  // namespace karvel
