#pragma once

#include <QObject>
#include <optional>

#include "print/PrintPage.hpp"

class QPainter;
class QPrinter;

namespace karvel {

class Desktop;
class PrintedSign;

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

    /// Prints the page; text that is longer than the sheet continues on further sheets. Throws as printWith
    /// does.
    void print(QPrinter& printer) const;

  private:
    [[nodiscard]] PrintedSign signIn(const PrintPage::Cell& cell, const SheetBox& box,
                                     const QPainter& painter) const;
    [[nodiscard]] bool paintPages(QPainter& painter, QPrinter& printer) const;

    Desktop& desktop_;
    PrintPage page_;
};

}  // namespace karvel
