#include "windows/PrintSheet.hpp"

#include <QFontDatabase>
#include <QPainter>
#include <QPrinter>
#include <QTextLayout>
#include <QtMath>
#include <memory>
#include <vector>

#include "base/RuntimeError.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

namespace {

constexpr int kUnitsPerInch = 1440;

QFont sheetFont()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(PrintPage::kFontHeight);  // a pixel of the painter is 1/1440 inch
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

/// The text in lines no wider than `width` (1/1440 inch), one layout for each paragraph.
std::vector<std::unique_ptr<QTextLayout>> wrapped(const QString& text, int width)
{
    std::vector<std::unique_ptr<QTextLayout>> paragraphs;
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    for (const QString& paragraph : text.split(QLatin1Char('\n'))) {
        auto layout = std::make_unique<QTextLayout>(paragraph, sheetFont());
        layout->setTextOption(option);
        layout->beginLayout();
        for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
            line.setLineWidth(width);
        }
        layout->endLayout();
        paragraphs.push_back(std::move(layout));
    }
    return paragraphs;
}

/// The image, smoothly reduced when it has more pixels than the device shows.
QImage notLargerThan(QSizeF devicePixels, const QImage& image)
{
    const QSize pixels(qCeil(devicePixels.width()), qCeil(devicePixels.height()));
    return pixels.width() >= image.width()
               ? image
               : image.convertToFormat(QImage::Format_ARGB32_Premultiplied)
                     .scaled(pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

void begin(QPainter& painter, QPrinter& printer)
{
    if (!painter.begin(&printer)) {
        throw RuntimeError(printer.outputFileName().isEmpty() ? ErrorNumber::DeviceIo
                                                              : ErrorNumber::PathFileAccess);
    }
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform |
                           QPainter::LosslessImageRendering);
    painter.scale(printer.logicalDpiX() / double(kUnitsPerInch),
                  printer.logicalDpiY() / double(kUnitsPerInch));
}

}  // namespace

form7::form7(PictureStore& pictures, QObject* parent) : QObject(parent), pictures_(pictures)
{
    setObjectName(QStringLiteral("form7"));
}

void form7::paintRow(QPainter& painter, int width, int top) const
{
    for (std::size_t cell = 0; cell < PrintPage::kCells; ++cell) {
        const std::string& path = page_.pic()[cell].path;
        if (!page_.pic()[cell].visible || path.empty()) {
            continue;
        }
        const QImage image = pictures_.image(path);
        if (image.isNull()) {
            continue;
        }
        const SheetBox box = page_.cellBox(cell, width);
        const QSizeF size = QSizeF(image.size()).scaled(box.width, box.height, Qt::KeepAspectRatio);
        const QPointF corner(box.left + (box.width - size.width()) / 2,
                             top + (box.height - size.height()) / 2);
        painter.drawImage(
            QRectF(corner, size),
            notLargerThan(painter.worldTransform().mapRect(QRectF(corner, size)).size(), image));
    }
}

std::optional<std::size_t> form7::paintText(QPainter& painter, const SheetBox& box, std::size_t first) const
{
    painter.setPen(Qt::black);
    const auto paragraphs = wrapped(qtext(page_.text()), box.width);
    std::size_t number = 0;
    qreal y = box.top;
    for (const auto& paragraph : paragraphs) {
        for (int i = 0; i < paragraph->lineCount(); ++i, ++number) {
            const QTextLine line = paragraph->lineAt(i);
            if (number < first) {
                continue;
            }
            if (number > first && y + line.height() > box.bottom()) {
                return number;  // at least one line on each page, however small it is
            }
            line.draw(&painter, QPointF(box.left, y - line.y()));
            y += line.height();
        }
    }
    return std::nullopt;
}

void form7::print(QPrinter& printer) const
{
    const QMarginsF margins(PrintPage::kMargin, PrintPage::kMargin, PrintPage::kMargin, PrintPage::kMargin);
    printer.setFullPage(false);
    printer.setPageMargins(margins / double(kUnitsPerPoint), QPageLayout::Point);
    const QSizeF paper = printer.pageLayout().paintRect(QPageLayout::Point).size() * double(kUnitsPerPoint);
    const int width = qRound(paper.width());
    const int height = qRound(paper.height());

    QPainter painter;
    begin(painter, printer);
    paintRow(painter, width, page_.rowTop());
    if (page_.labelVisible()) {
        const SheetBox wholePage{.left = 0, .top = 0, .width = width, .height = height};
        std::optional<std::size_t> line = 0;
        if (page_.textBeginsHere(height)) {
            line = paintText(painter, page_.textBox(width, height));
        }
        for (; line; line = paintText(painter, wholePage, *line)) {
            if (!printer.newPage()) {
                throw RuntimeError(ErrorNumber::DeviceIo);
            }
        }
    }
    if (!painter.end() || printer.printerState() == QPrinter::Error) {
        throw RuntimeError(ErrorNumber::DeviceIo);
    }
}

}  // namespace karvel
