#pragma once

#include <QMargins>
#include <QObject>
#include <QSize>
#include <optional>

#include "print/PrintPage.hpp"

class QPageLayout;
class QPainter;
class QPrinter;

namespace karvel {

inline constexpr int kUnitsPerPoint = 20;  ///< units of 1/1440 inch, in which the sheet is measured

class Desktop;

/// A sheet of paper as the printer is set up, in units of 1/1440 inch.
struct Sheet {
    QSize paper{11906, 16838};  ///< turned as the user wants it; A4 where no printer says otherwise
    QMargins margins{PrintPage::kMargin, PrintPage::kMargin, PrintPage::kMargin, PrintPage::kMargin};

    [[nodiscard]] static Sheet of(const QPageLayout& layout);
    /// The size of the part inside the margins.
    [[nodiscard]] int width() const { return paper.width() - margins.left() - margins.right(); }
    [[nodiscard]] int height() const { return paper.height() - margins.top() - margins.bottom(); }
};

/// The page that is sent to the printer; it is never shown. It is painted in units of 1/1440 inch, so that it
/// has the same size on every device and the device's full resolution.
class form7 : public QObject {
    Q_OBJECT

  public:
    /// `desktop` must outlive the page.
    form7(Desktop& desktop, QObject* parent);

    [[nodiscard]] PrintPage& page() { return page_; }
    [[nodiscard]] const PrintPage& page() const { return page_; }

    /// Paints the row of signs, its top at `top`, on a page `width` wide. The first sign's left edge is the
    /// page's own, as it is that of the text.
    void paintRow(QPainter& painter, int width, int top) const;

    /// Paints the text from its line `first` on, wrapped to the width of `box`, down to its lower edge.
    /// Returns the first line that did not fit; nothing when all lines did.
    std::optional<std::size_t> paintText(QPainter& painter, const SheetBox& box, std::size_t first = 0) const;

    /// Sets up a new printer: its paper, A4 where it does not say, and margins of 20 mm.
    static void setUp(QPrinter& printer);

    /// Prints the page; text that is longer than the sheet continues on further sheets.
    /// Throws RuntimeError 57 when the printer fails or is there no more, 61 when the disk of the file to
    /// print to is full, 75 when that file cannot be written. A file cut short is removed.
    void print(QPrinter& printer) const;

  private:
    struct Sign;

    [[nodiscard]] Sign signIn(const PrintPage::Cell& cell, const SheetBox& box) const;
    [[nodiscard]] bool paintPages(QPainter& painter, QPrinter& printer) const;

    Desktop& desktop_;
    PrintPage page_;
};

}  // namespace karvel
