#include "windows/signs/PhraseBlocks.hpp"

#include <QPainter>
#include <QPushButton>
#include <algorithm>
#include <utility>

#include "base/SignCode.hpp"
#include "base/SignRepertoire.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Text.hpp"
#include "windows/support/Theme.hpp"
#include "writing/Svg.hpp"

namespace karvel {

namespace {

constexpr int kMargin = 6;  // logical pixels

}  // namespace

QPushButton* spokenButton(const char* name, const QString& caption, const QString& spoken, QWidget* parent)
{
    auto* const made = new QPushButton(caption, parent);
    made->setObjectName(QLatin1String(name));
    made->setAccessibleName(spoken);
    made->setToolTip(spoken);
    made->setAutoDefault(false);
    return made;
}

PictureButtons pictureButtons(QWidget* parent)
{
    const PictureButtons made{
        .copy = spokenButton("copia", QStringLiteral("Copia come &figura"),
                             QStringLiteral("copia i segni in blocchi come figura (Ctrl+Maiusc+C)"), parent),
        .save = spokenButton("salva", QStringLiteral("&Salva figura..."),
                             QStringLiteral("salva i segni in blocchi in un file PNG, SVG o PDF"), parent)};
    made.copy->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C));
    return made;
}

PhraseBlocks::PhraseBlocks(Desktop& desktop, const QString& whenEmpty, QWidget* parent)
    : QWidget(parent), desktop_(desktop), whenEmpty_(whenEmpty)
{
}

void PhraseBlocks::setPicture(PhrasePicture picture)
{
    picture_ = std::move(picture);
    QString spoken = QStringLiteral("in blocchi: ");
    for (const std::string_view code : splitCodes(picture_.codes)) {
        spoken += qtext(signCaption(code)) + QStringLiteral(", ");
    }
    spoken.chop(2);
    setAccessibleName(spoken);
    update();
}

void PhraseBlocks::fit(QSize view)
{
    PlacementOptions& placement = picture_.look.placement;
    const int free = (placement.columns ? view.height() : view.width()) - 2 * kMargin;
    placement.length =
        std::max(1.0, free * kBlockHeight / std::max(1, picture_.blockHeight) - 2 * kPictureMargin);
    const QSizeF size = phraseSize(picture_.codes, picture_.blockHeight, picture_.look, desktop_);
    resize(QSize(qCeil(size.width()), qCeil(size.height()))
               .grownBy(QMargins(kMargin, kMargin, kMargin, kMargin))
               .expandedTo(view));
    update();
}

void PhraseBlocks::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const QColor surface = paletteFor(colour(desktop_.session().colours().display)).color(QPalette::Window);
    painter.fillRect(rect(), surface);
    painter.setPen(inkOn(surface));
    if (picture_.codes.empty()) {
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, whenEmpty_);
        return;
    }
    PhraseLook look = picture_.look;
    look.ink = inkOn(surface);
    const QRectF area = rect().adjusted(kMargin, kMargin, -kMargin, -kMargin);
    paintPhrase(painter, area, picture_.codes, picture_.blockHeight, look, desktop_);
}

}  // namespace karvel
