#include "windows/signs/SignSheet.hpp"

#include <QGridLayout>
#include <QGuiApplication>
#include <QPainter>
#include <QPrinter>
#include <QScrollArea>
#include <algorithm>

#include "base/SignRepertoire.hpp"
#include "windows/PrintJob.hpp"
#include "windows/signs/PrintedSign.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Text.hpp"
#include "windows/support/Theme.hpp"

namespace karvel {

namespace {

const QColor kPaper(252, 247, 234);
const QColor kInk(52, 38, 22);
const QColor kRule(160, 128, 76);

constexpr int kMargin = 26;        // logical pixels between the sheet's edge and its signs
constexpr int kTitleHeight = 46;   // above the signs
constexpr int kFooterHeight = 34;  // below them

QFont sheetFont(int pixels, bool bold, bool serif)
{
    QFont made = QGuiApplication::font();
    if (serif) {
        made.setFamily(QStringLiteral("serif"));
        made.setStyleHint(QFont::Serif);
    }
    made.setPixelSize(pixels);
    made.setBold(bold);
    return made;
}

/// `font`, smaller where `text` would be wider than `width` logical pixels.
QFont fitting(QFont font, const QString& text, qreal width)
{
    constexpr int kSmallest = 8;
    while (font.pixelSize() > kSmallest && QFontMetricsF(font).horizontalAdvance(text) > width) {
        font.setPixelSize(font.pixelSize() - 1);
    }
    return font;
}

}  // namespace

SheetSign::SheetSign(Desktop& desktop, std::string code, const QString& meaning, const QString& name,
                     QWidget* parent)
    : QAbstractButton(parent), desktop_(desktop), code_(std::move(code)), meaning_(meaning), name_(name)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAccessibleName(meaning_ + QStringLiteral(": ") + qtext(signCaption(code_)));
    setToolTip(qtext(signCaption(code_)));
}

bool SheetSign::drawSign(QPainter& painter, const QRectF& square, Medium medium) const
{
    const std::string path = desktop_.session().images().path(code_);
    if (medium == Medium::Paper) {
        const PrintedSign sign(desktop_, code_, path, square, painter, kPaper);
        sign.paint(painter, kInk);
        return !sign.isEmpty();
    }
    return desktop_.pictures().draw(painter, path, square.center(), static_cast<int>(square.width()));
}

void SheetSign::draw(QPainter& painter, const QRectF& area, Medium medium) const
{
    constexpr qreal kMeaning = 24;
    constexpr qreal kName = 18;
    painter.setPen(kInk);
    const qreal side = std::min(area.width() - 12, area.height() - kMeaning - kName - 8);
    const QRectF picture(area.left(), area.top() + 4, area.width(), area.height() - kMeaning - kName - 6);
    const QRectF square(picture.center() - QPointF(side / 2, side / 2), QSizeF(side, side));
    if (!drawSign(painter, square, medium)) {
        painter.setFont(sheetFont(16, false, false));
        painter.drawText(picture, Qt::AlignCenter, qtext(code_));
    }
    painter.setFont(fitting(sheetFont(19, true, true), meaning_, area.width() - 16));
    painter.drawText(QRectF(area.left(), picture.bottom(), area.width(), kMeaning), Qt::AlignCenter,
                     meaning_);
    painter.setFont(fitting(sheetFont(11, false, false), name_, area.width() - 4));
    painter.drawText(QRectF(area.left(), picture.bottom() + kMeaning - 2, area.width(), kName),
                     Qt::AlignHCenter | Qt::AlignTop, name_);
}

void SheetSign::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QRectF frame = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
    const bool lit = isEnabled() && (underMouse() || isDown());
    if (lit) {
        painter.setPen(QPen(kRule, 1));
        painter.setBrush(between(kPaper, kRule, isDown() ? 0.32 : 0.16));
        painter.drawRoundedRect(frame, 5, 5);
    }
    draw(painter, QRectF(rect()), Medium::Screen);
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(kAccent, 2));
        painter.drawRoundedRect(frame, 5, 5);
    }
}

void SheetSign::enterEvent(QEnterEvent* event)
{
    QAbstractButton::enterEvent(event);
    update();
}

void SheetSign::leaveEvent(QEvent* event)
{
    QAbstractButton::leaveEvent(event);
    update();
}

SignSheet::SignSheet(Desktop& desktop, const QString& title, const QString& footer, int columns,
                     QWidget* parent)
    : QFrame(parent),
      desktop_(desktop),
      title_(title),
      footer_(footer),
      columns_(columns),
      grid_(new QGridLayout(this))
{
    setAccessibleName(title_);
    grid_->setContentsMargins(kMargin, kMargin + kTitleHeight, kMargin, kMargin + kFooterHeight);
    grid_->setSpacing(4);
}

SheetSign* SignSheet::add(const std::string& code, const QString& meaning, const QString& name)
{
    const int index = static_cast<int>(signs_.size());
    auto* const sign = new SheetSign(desktop_, code, meaning, name, this);
    sign->setObjectName(element("sign", signs_.size()));
    grid_->addWidget(sign, index / columns_, index % columns_);
    signs_.push_back(sign);
    return sign;
}

void SignSheet::setPressable(bool pressable)
{
    for (SheetSign* const sign : signs_) {
        sign->setEnabled(pressable);
    }
}

QFont SignSheet::titleFont() const
{
    QFont made = sheetFont(26, true, true);
    made.setLetterSpacing(QFont::AbsoluteSpacing, 3);
    return made;
}

QFont SignSheet::footerFont() const
{
    QFont made = sheetFont(13, false, true);
    made.setItalic(true);
    return made;
}

/// Draws the background, the double frame, the title and the footer.
void SignSheet::drawFrame(QPainter& painter, const QRectF& area) const
{
    painter.fillRect(area, kPaper);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(kRule, 2));
    painter.drawRect(area.adjusted(9, 9, -9, -9));
    painter.setPen(QPen(kRule, 0.8));
    painter.drawRect(area.adjusted(13.5, 13.5, -13.5, -13.5));
    painter.setPen(kInk);
    painter.setFont(titleFont());
    const QRectF title(area.left(), area.top() + 18, area.width(), 40);
    painter.drawText(title, Qt::AlignCenter, title_);
    painter.setPen(QPen(kRule, 1));
    const qreal half = std::min(area.width() * 0.22, 160.0);
    painter.drawLine(QPointF(area.center().x() - half, title.bottom() + 4),
                     QPointF(area.center().x() + half, title.bottom() + 4));
    painter.setPen(kInk);
    painter.setFont(footerFont());
    painter.drawText(QRectF(area.left() + kMargin, area.bottom() - kFooterHeight - 18,
                            area.width() - 2 * kMargin, kFooterHeight),
                     Qt::AlignCenter | Qt::TextWordWrap, footer_);
}

void SignSheet::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    drawFrame(painter, QRectF(rect()));
}

void SignSheet::draw(QPainter& painter, const QRectF& page) const
{
    const QSizeF own = size();
    const qreal factor = std::min(page.width() / own.width(), page.height() / own.height());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.translate(page.left() + (page.width() - own.width() * factor) / 2, page.top());
    painter.scale(factor, factor);
    drawFrame(painter, QRectF(QPointF(0, 0), own));
    for (const SheetSign* const sign : signs_) {
        sign->draw(painter, QRectF(sign->geometry()), SheetSign::Medium::Paper);
    }
    painter.restore();
}

void SignSheet::print()
{
    QPrinter printer(QPrinter::HighResolution);
    setUp(printer);
    printer.setPageOrientation(width() > height() ? QPageLayout::Landscape : QPageLayout::Portrait);
    printer.setDocName(title_);
    if (!choosePrinter(printer, window())) {
        return;
    }
    desktop_.handle([&] {
        const BusyPointer hourglass(desktop_.session().ui());
        printOn(printer);
    });
}

void SignSheet::printOn(QPrinter& printer) const
{
    const Sheet sheet = Sheet::of(printer.pageLayout());
    printWith(printer, [&](QPainter& painter) {
        draw(painter, QRectF(0, 0, sheet.width(), sheet.height()));
        return true;
    });
}

QWidget* scrolling(SignSheet* sheet)
{
    auto* const area = new QScrollArea(sheet->parentWidget());
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setWidget(sheet);
    area->setFocusPolicy(Qt::NoFocus);
    return area;
}

}  // namespace karvel
