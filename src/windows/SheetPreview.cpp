#include "windows/SheetPreview.hpp"

#include <QLabel>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>

#include "print/PrintWindow.hpp"
#include "windows/PrintSheet.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

namespace {

constexpr int kMargin = PrintPage::kMargin;
constexpr QSize kA4(11906, 16838);  // 1/1440 inch

QLabel* piece(QWidget* parent, std::size_t index, const QString& meaning)
{
    auto* const label = new QLabel(parent);
    label->setObjectName(element("Label1", index));
    label->setAccessibleName(meaning);
    return label;
}

}  // namespace

SheetPreview::SheetPreview(const form7& sheet, QWidget* parent)
    : QWidget(parent),
      sheet_(sheet),
      row_(piece(this, 0, QStringLiteral("anteprima: riga dei segni"))),
      text_(piece(this, 1, QStringLiteral("anteprima: testo"))),
      paper_(kA4)
{
    setAccessibleName(QStringLiteral("anteprima del foglio"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void SheetPreview::showPage(const PrintWindow& window)
{
    rowTop_ = window.previewRowTop();
    textTop_ = window.previewTextTop();
    textIncluded_ = window.textIncluded();
    arrange();
}

void SheetPreview::setPaper(QSize paper)
{
    if (!paper.isEmpty()) {
        paper_ = paper;
        arrange();
        update();
    }
}

qreal SheetPreview::scale() const
{
    return std::min((width() - 6) / qreal(paper_.width()), (height() - 6) / qreal(paper_.height()));
}

QRectF SheetPreview::paperOnScreen() const
{
    const QSizeF size = QSizeF(paper_) * scale();
    return {QPointF((width() - size.width()) / 2, (height() - size.height()) / 2), size};
}

void SheetPreview::arrange()
{
    place(*row_, rowTop_, PrintPage::kCellSide, false);
    place(*text_, textTop_, paper_.height() - 2 * kMargin - textTop_, true);
    text_->setVisible(textIncluded_);
}

void SheetPreview::place(QLabel& label, int top, int height, bool text)
{
    const int width = paper_.width() - 2 * kMargin;
    const QRectF paper = paperOnScreen();
    const QRect place = QRectF(paper.left() + kMargin * scale(), paper.top() + (kMargin + top) * scale(),
                               width * scale(), std::max(0, height) * scale())
                            .toAlignedRect();
    label.setGeometry(place);
    if (place.isEmpty()) {
        return;
    }
    QPixmap drawn(place.size() * devicePixelRatioF());
    drawn.setDevicePixelRatio(devicePixelRatioF());
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.scale(scale(), scale());
    if (text) {
        sheet_.paintText(painter, {.left = 0,
                                   .top = PrintWindow::kPreviewTextInset,
                                   .width = width,
                                   .height = height - PrintWindow::kPreviewTextInset});
    } else {
        sheet_.paintRow(painter, width, 0);
    }
    painter.end();
    label.setPixmap(drawn);
}

void SheetPreview::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF paper = paperOnScreen();
    painter.fillRect(paper.translated(3, 3), QColor(0, 0, 0, 60));
    painter.fillRect(paper, Qt::white);
    painter.setPen(QPen(QColor(120, 120, 120), 1));
    painter.drawRect(paper);
    const qreal margin = kMargin * scale();
    painter.setPen(QPen(QColor(200, 205, 210), 1, Qt::DotLine));
    painter.drawRect(paper.adjusted(margin, margin, -margin, -margin));
}

void SheetPreview::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    arrange();
}

}  // namespace karvel
