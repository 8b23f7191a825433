#include "windows/SheetPreview.hpp"

#include <QLabel>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>

#include "print/PrintWindow.hpp"
#include "windows/StudyPages.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

namespace {

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
      text_(piece(this, 1, QStringLiteral("anteprima: testo")))
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

void SheetPreview::showStudy(const StudyPages* pages, std::size_t page)
{
    study_ = pages;
    studyPage_ = page;
    arrange();
    update();
}

void SheetPreview::setSheet(const Sheet& sheet)
{
    if (sheet.width() > 0 && sheet.height() > 0) {
        paper_ = sheet;
        arrange();
        update();
    }
}

qreal SheetPreview::scale() const
{
    return std::min((width() - 6) / qreal(paper_.paper.width()),
                    (height() - 6) / qreal(paper_.paper.height()));
}

QRectF SheetPreview::paperOnScreen() const
{
    const QSizeF size = QSizeF(paper_.paper) * scale();
    return {QPointF((width() - size.width()) / 2, (height() - size.height()) / 2), size};
}

void SheetPreview::arrange()
{
    place(*row_, rowTop_, PrintPage::kCellSide, false);
    place(*text_, textTop_, paper_.height() - textTop_, true);
    row_->setVisible(study_ == nullptr);
    text_->setVisible(study_ == nullptr && textIncluded_ && sheet_.page().textBeginsHere(paper_.height()));
}

void SheetPreview::place(QLabel& label, int top, int height, bool text)
{
    const int width = paper_.width();
    const QRectF paper = paperOnScreen();
    const QRect place = QRectF(paper.left() + paper_.margins.left() * scale(),
                               paper.top() + (paper_.margins.top() + top) * scale(), width * scale(),
                               std::max(0, height) * scale())
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
    painter.setPen(QPen(QColor(200, 205, 210), 1, Qt::DotLine));
    const QRectF inside = paper.marginsRemoved(QMarginsF(paper_.margins) * scale());
    painter.drawRect(inside);
    if (study_ != nullptr && studyPage_ < study_->count()) {
        painter.translate(inside.topLeft());
        painter.scale(scale(), scale());
        study_->paint(painter, studyPage_);
    }
}

void SheetPreview::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    arrange();
}

}  // namespace karvel
