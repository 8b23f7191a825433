#include "windows/MagnifierWindow.hpp"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include "base/SignCode.hpp"
#include "windows/signs/MagnifiedPhrase.hpp"
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

}  // namespace

Ingrandimento::Ingrandimento(Desktop& desktop, QWidget* parent)
    : QDialog(parent),
      desktop_(desktop),
      phrase_(new MagnifiedPhrase(desktop.pictures(), nullptr)),
      area_(new QScrollArea(this)),
      count_(new QLabel(this))
{
    setObjectName(QStringLiteral("Ingrandimento"));
    setWindowTitle(QStringLiteral("Ingrandimento"));
    setAttribute(Qt::WA_DeleteOnClose);
    area_->setObjectName(QStringLiteral("vista"));
    area_->setAccessibleName(QStringLiteral("frase ingrandita"));
    area_->setFrameShape(QFrame::StyledPanel);
    area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area_->setWidget(phrase_);
    count_->setObjectName(QStringLiteral("Label1"));
    auto* const close = new QPushButton(QStringLiteral("Chiudi"), this);
    close->setObjectName(QStringLiteral("Command1"));
    close->setAccessibleName(QStringLiteral("chiudi"));
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &Ingrandimento::close);
    auto* const line = new QHBoxLayout;
    line->addWidget(count_);
    line->addStretch(1);
    line->addWidget(close);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(12, 12, 12, 12);
    column->addWidget(area_, 1);
    column->addLayout(line);
    resize(860, 420);
    if (parent != nullptr) {
        placeBelowDisplay(*this, *parent);
    }
    connect(&desktop_, &Desktop::changed, this, &Ingrandimento::showPhrase);
    showPhrase();
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
    fit();
    if (longer) {
        area_->ensureVisible(0, phrase_->height());  // the sign just added
    }
}

void Ingrandimento::fit()
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
