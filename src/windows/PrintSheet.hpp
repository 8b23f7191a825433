#pragma once

#include <QObject>
#include <optional>

#include "print/PrintPage.hpp"
#include "windows/signs/PictureStore.hpp"

class QPainter;
class QPrinter;

namespace karvel {

inline constexpr int kUnitsPerPoint = 20;  ///< units of 1/1440 inch, in which the sheet is measured

/// The page that is sent to the printer; it is never shown. It is painted in units of 1/1440 inch, so that it
/// has the same size on every device and the device's full resolution.
class form7 : public QObject {
    Q_OBJECT

  public:
    /// `pictures` must outlive the page.
    form7(PictureStore& pictures, QObject* parent);

    [[nodiscard]] PrintPage& page() { return page_; }

    /// Paints the row of signs, its top at `top`, on a page `width` wide.
    void paintRow(QPainter& painter, int width, int top) const;

    /// Paints the text from its line `first` on, wrapped to the width of `box`, down to its lower edge.
    /// Returns the first line that did not fit; nothing when all lines did.
    std::optional<std::size_t> paintText(QPainter& painter, const SheetBox& box, std::size_t first = 0) const;

    /// Prints the page; text that is longer than the sheet continues on further sheets.
    /// Throws RuntimeError 57 when the printer fails, 75 when the file to print to cannot be written.
    void print(QPrinter& printer) const;

  private:
    PictureStore& pictures_;
    PrintPage page_;
};

}  // namespace karvel
