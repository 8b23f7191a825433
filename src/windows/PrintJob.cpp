#include "windows/PrintJob.hpp"

#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStorageInfo>
#include <algorithm>

#include "base/RuntimeError.hpp"

namespace karvel {

namespace {

constexpr int kUnitsPerInch = 1440;

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

/// Whether the sheets arrived. The toolkit reports neither a full disk nor a missing printer queue.
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

QFont sheetFont(int height)
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(height);  // a unit is a pixel of the painter
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

void setUp(QPrinter& printer)
{
    if (!printer.pageLayout().isValid()) {
        printer.setPageSize(QPageSize(QPageSize::A4));
    }
    printer.setFullPage(false);
    printer.setPageMargins(QMarginsF(Sheet().margins) / double(kUnitsPerPoint), QPageLayout::Point);
    printer.setDocName(QStringLiteral("Karvel"));
}

bool choosePrinter(QPrinter& printer, QWidget* parent)
{
    QPrintDialog dialog(&printer, parent);
    dialog.setObjectName(QStringLiteral("PrintDialog"));
    dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize);
    return dialog.exec() == QDialog::Accepted;
}

void printWith(QPrinter& printer, const std::function<bool(QPainter&)>& paint)
{
    QPainter painter;
    begin(painter, printer);
    const bool painted = paint(painter);
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
