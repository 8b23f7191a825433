#include "windows/PrintSheet.hpp"

#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QImage>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStorageInfo>
#include <QTextLayout>
#include <QtMath>
#include <algorithm>
#include <memory>
#include <vector>

#include "base/RuntimeError.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

namespace {

constexpr int kUnitsPerInch = 1440;

/// A font `height` units of 1/1440 inch high; one of them is a pixel of the painter.
QFont sheetFont(int height)
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(height);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

using Paragraphs = std::vector<std::unique_ptr<QTextLayout>>;

/// Adds the text in lines no wider than `width` (1/1440 inch), one layout for each paragraph.
void addWrapped(Paragraphs& paragraphs, const QString& text, int width, int fontHeight)
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    for (const QString& paragraph : text.split(QLatin1Char('\n'))) {
        auto layout = std::make_unique<QTextLayout>(paragraph, sheetFont(fontHeight));
        layout->setTextOption(option);
        layout->beginLayout();
        for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
            line.setLineWidth(width);
        }
        layout->endLayout();
        paragraphs.push_back(std::move(layout));
    }
}

/// The image on white: an edge that is half transparent would be printed as a dark rim. Smoothly reduced when
/// it has more pixels than the device shows in `devicePixels`.
QImage flattened(const QImage& image, QSizeF devicePixels)
{
    QImage flat(image.size(), QImage::Format_RGB32);
    flat.fill(Qt::white);
    QPainter(&flat).drawImage(0, 0, image);
    const QSize pixels(qCeil(devicePixels.width()), qCeil(devicePixels.height()));
    return pixels.width() >= flat.width()
               ? flat
               : flat.scaled(pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

/// The first column that is not white; the width when all are.
int firstInk(const QImage& flat)
{
    for (int x = 0; x < flat.width(); ++x) {
        for (int y = 0; y < flat.height(); ++y) {
            if (qGray(flat.pixel(x, y)) < 128) {
                return x;
            }
        }
    }
    return flat.width();
}

bool diskIsFull(const QString& file)
{
    constexpr qint64 kBlock = 4096;  // bytes; less than one cannot be used
    const QStorageInfo disk(QFileInfo(file).absolutePath());
    return disk.isValid() && disk.isReady() && disk.bytesAvailable() < kBlock;
}

bool endsWhole(const QString& pdf)
{
    QFile file(pdf);
    constexpr qint64 kTail = 16;
    return file.open(QIODevice::ReadOnly) && file.seek(std::max(qint64(0), file.size() - kTail)) &&
           file.readAll().contains("%%EOF");
}

void begin(QPainter& painter, QPrinter& printer)
{
    const QString file = printer.outputFileName();
    if (!painter.begin(&printer)) {
        throw RuntimeError(file.isEmpty()     ? ErrorNumber::DeviceIo
                           : diskIsFull(file) ? ErrorNumber::DiskFull
                                              : ErrorNumber::PathFileAccess);
    }
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform |
                           QPainter::LosslessImageRendering);
    painter.scale(printer.logicalDpiX() / double(kUnitsPerInch),
                  printer.logicalDpiY() / double(kUnitsPerInch));
}

/// Whether the sheets arrived. The toolkit tells neither of a full disk nor of a queue that is gone.
bool arrived(const QPrinter& printer)
{
    if (printer.printerState() == QPrinter::Error) {
        return false;
    }
    if (printer.outputFileName().isEmpty()) {
        return !QPrinterInfo::printerInfo(printer.printerName()).isNull();
    }
    // Other files are written by the system's own printer driver, in its own form and time.
    return printer.outputFormat() != QPrinter::PdfFormat || endsWhole(printer.outputFileName());
}

}  // namespace

Sheet Sheet::of(const QPageLayout& layout)
{
    return {.paper = (layout.fullRect(QPageLayout::Point).size() * double(kUnitsPerPoint)).toSize(),
            .margins = (layout.margins(QPageLayout::Point) * double(kUnitsPerPoint)).toMargins()};
}

/// A sign in its place on the page: its image.
struct form7::Sign {
    QImage image;
    QRectF place;   ///< of the image
    qreal ink = 0;  ///< the sign's left edge
};

form7::form7(Desktop& desktop, QObject* parent) : QObject(parent), desktop_(desktop)
{
    setObjectName(QStringLiteral("form7"));
}

form7::Sign form7::signIn(const PrintPage::Cell& cell, const SheetBox& box) const
{
    Sign sign{.image = {}, .place = {}, .ink = qreal(box.left)};
    if (!cell.visible || cell.path.empty()) {
        return sign;
    }
    const QImage image = desktop_.pictures().image(cell.path);
    const QSizeF size = QSizeF(image.size()).scaled(box.width, box.height, Qt::KeepAspectRatio);
    sign.place = QRectF(
        QPointF(box.left + (box.width - size.width()) / 2, box.top + (box.height - size.height()) / 2), size);
    sign.image = image;
    return sign;
}

void form7::paintRow(QPainter& painter, int width, int top) const
{
    qreal shift = 0;
    for (std::size_t cell = 0; cell < PrintPage::kCells; ++cell) {
        SheetBox box = page_.cellBox(cell, width);
        box.top = top;
        Sign sign = signIn(page_.pic()[cell], box);
        if (!sign.image.isNull()) {
            sign.image = flattened(sign.image, painter.worldTransform().mapRect(sign.place).size());
            sign.ink = sign.place.left() + sign.place.width() * firstInk(sign.image) / sign.image.width();
        }
        if (cell == 0) {
            shift = box.left - sign.ink;
        }
        if (!sign.image.isNull()) {
            painter.drawImage(sign.place.translated(shift, 0), sign.image);
        }
    }
}

std::optional<std::size_t> form7::paintText(QPainter& painter, const SheetBox& box, std::size_t first) const
{
    painter.setPen(Qt::black);
    Paragraphs paragraphs;
    addWrapped(paragraphs, qtext(page_.translation() + "\n"), box.width, PrintPage::kFontHeight);
    addWrapped(paragraphs, qtext(page_.note()), box.width, PrintPage::kNoteHeight);
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

void form7::setUp(QPrinter& printer)
{
    if (!printer.pageLayout().isValid()) {
        printer.setPageSize(QPageSize(QPageSize::A4));
    }
    printer.setFullPage(false);
    printer.setPageMargins(QMarginsF(Sheet().margins) / double(kUnitsPerPoint), QPageLayout::Point);
    printer.setDocName(QStringLiteral("Karvel"));
}

/// False when the printer takes no further page.
bool form7::paintPages(QPainter& painter, QPrinter& printer) const
{
    const Sheet sheet = Sheet::of(printer.pageLayout());
    paintRow(painter, sheet.width(), page_.rowTop());
    if (!page_.labelVisible()) {
        return true;
    }
    const SheetBox wholePage{.left = 0, .top = 0, .width = sheet.width(), .height = sheet.height()};
    std::optional<std::size_t> line = 0;
    if (page_.textBeginsHere(sheet.height())) {
        line = paintText(painter, page_.textBox(sheet.width(), sheet.height()));
    }
    for (; line; line = paintText(painter, wholePage, *line)) {
        if (!printer.newPage()) {
            return false;
        }
    }
    return true;
}

void form7::print(QPrinter& printer) const
{
    QPainter painter;
    begin(painter, printer);
    const bool painted = paintPages(painter, printer);
    if (painter.end() && painted && arrived(printer)) {
        return;
    }
    const QString file = printer.outputFileName();
    const bool full = !file.isEmpty() && diskIsFull(file);
    if (!file.isEmpty()) {
        QFile::remove(file);
    }
    throw RuntimeError(full ? ErrorNumber::DiskFull : ErrorNumber::DeviceIo);
}

}  // namespace karvel
