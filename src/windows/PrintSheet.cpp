#include "windows/PrintSheet.hpp"

#include <QPainter>
#include <QPrinter>
#include <QTextLayout>
#include <memory>
#include <vector>

#include "windows/PrintJob.hpp"
#include "windows/signs/PrintedSign.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

namespace {

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

}  // namespace

form7::form7(Desktop& desktop, QObject* parent) : QObject(parent), desktop_(desktop)
{
    setObjectName(QStringLiteral("form7"));
}

PrintedSign form7::signIn(const PrintPage::Cell& cell, const SheetBox& box, const QPainter& painter) const
{
    if (!cell.visible || cell.path.empty()) {
        return {};
    }
    return {desktop_, cell.code, cell.path, QRectF(box.left, box.top, box.width, box.height),
            painter,  Qt::white};
}

void form7::paintRow(QPainter& painter, int width, int top) const
{
    qreal shift = 0;
    for (std::size_t cell = 0; cell < PrintPage::kCells; ++cell) {
        SheetBox box = page_.cellBox(cell, width);
        box.top = top;
        const PrintedSign sign = signIn(page_.pic()[cell], box, painter);
        if (cell == 0 && !sign.isEmpty()) {
            shift = box.left - sign.left();
        }
        sign.paint(painter, Qt::black, shift);
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
    printWith(printer, [&](QPainter& painter) { return paintPages(painter, printer); });
}

}  // namespace karvel
