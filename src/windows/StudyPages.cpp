#include "windows/StudyPages.hpp"

#include <QFontMetricsF>
#include <QPainter>
#include <QPrinter>
#include <array>

#include "windows/signs/LayoutPainter.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

namespace {

QFont qfont(StudyFont font)
{
    QFont made = sheetFont(fontHeight(font));
    made.setItalic(font == StudyFont::Transliteration);
    return made;
}

}  // namespace

StudyPages::StudyPages(Desktop& desktop, const StudySheet& study, const Sheet& sheet) : desktop_(desktop)
{
    const std::array metrics = {QFontMetricsF(qfont(StudyFont::Transliteration)),
                                QFontMetricsF(qfont(StudyFont::Translation)),
                                QFontMetricsF(qfont(StudyFont::Note))};
    pages_ = layOut(study, sheet.width(), sheet.height(), [&](std::string_view text, StudyFont font) {
        return metrics[static_cast<std::size_t>(font)].horizontalAdvance(qtext(text));
    });
}

void StudyPages::paint(QPainter& painter, std::size_t page) const
{
    painter.setPen(Qt::black);
    for (const StudyPiece& piece : pages_[page]) {
        const QPointF corner(piece.left, piece.top);
        if (!piece.signs.signs.empty()) {
            LayoutPainter::of(desktop_).paint(painter, piece.signs, corner, piece.blockHeight, Qt::black,
                                              Qt::white);
            continue;
        }
        const QFont font = qfont(piece.font);
        painter.setFont(font);
        painter.drawText(corner + QPointF(0, QFontMetricsF(font).ascent()), qtext(piece.text));
    }
}

void printStudy(QPrinter& printer, const StudySheet& study, Desktop& desktop)
{
    const StudyPages pages(desktop, study, Sheet::of(printer.pageLayout()));
    printWith(printer, [&](QPainter& painter) {
        for (std::size_t page = 0; page < pages.count(); ++page) {
            if (page > 0 && !printer.newPage()) {
                return false;
            }
            pages.paint(painter, page);
        }
        return true;
    });
}

void askAndPrintStudy(QWidget& parent, const StudySheet& study, Desktop& desktop)
{
    QPrinter printer(QPrinter::HighResolution);
    setUp(printer);
    if (choosePrinter(printer, &parent)) {
        desktop.handle([&] {
            const BusyPointer hourglass(desktop.session().ui());
            printStudy(printer, study, desktop);
        });
    }
}

}  // namespace karvel
