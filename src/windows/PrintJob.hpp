#pragma once

#include <QFont>
#include <QMargins>
#include <QSize>
#include <functional>

#include "print/PrintPage.hpp"

class QPageLayout;
class QPainter;
class QPrinter;
class QWidget;

namespace karvel {

inline constexpr int kUnitsPerPoint = 20;  ///< units of 1/1440 inch, in which sheets are measured

/// A sheet of paper as the printer is set up, in units of 1/1440 inch.
struct Sheet {
    QSize paper{11906, 16838};  ///< turned as the user wants it; A4 where no printer says otherwise
    QMargins margins{PrintPage::kMargin, PrintPage::kMargin, PrintPage::kMargin, PrintPage::kMargin};

    [[nodiscard]] static Sheet of(const QPageLayout& layout);
    /// The size of the part inside the margins.
    [[nodiscard]] int width() const { return paper.width() - margins.left() - margins.right(); }
    [[nodiscard]] int height() const { return paper.height() - margins.top() - margins.bottom(); }
};

/// A font for paper, `height` units of 1/1440 inch high.
[[nodiscard]] QFont sheetFont(int height);

/// Sets up a new printer: its paper, A4 where it does not say, and margins of 20 mm.
void setUp(QPrinter& printer);

/// The system's print dialog. False when the user cancels it.
[[nodiscard]] bool choosePrinter(QPrinter& printer, QWidget* parent);

/// Prints what `paint` paints, in units of 1/1440 inch from the corner inside the margins. `paint` returns
/// false when the printer takes no further page.
/// Throws RuntimeError 57 when the printer fails or has been removed, 61 when the disk of the file to print
/// to is full, 75 when that file cannot be written. A file cut short is removed.
void printWith(QPrinter& printer, const std::function<bool(QPainter&)>& paint);

}  // namespace karvel
