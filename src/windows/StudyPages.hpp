#pragma once

#include <memory>
#include <vector>

#include "print/StudySheet.hpp"
#include "windows/PrintJob.hpp"

class QPainter;
class QPrinter;
class QWidget;

namespace karvel {

class Desktop;

/// The pages of a study sheet, painted in units of 1/1440 inch. Signs are vectors.
class StudyPages {
  public:
    /// `desktop` must outlive the pages.
    StudyPages(Desktop& desktop, const StudySheet& study, const Sheet& sheet);

    [[nodiscard]] std::size_t count() const { return pages_.size(); }

    /// Paints page `page`, from 0, the corner inside the margins at the painter's origin.
    void paint(QPainter& painter, std::size_t page) const;

  private:
    Desktop& desktop_;
    std::vector<StudyPage> pages_;
};

/// Prints a study sheet. Throws as printWith does.
void printStudy(QPrinter& printer, const StudySheet& study, Desktop& desktop);

/// Asks for a printer and prints a study sheet. A failure is reported in a box.
void askAndPrintStudy(QWidget& parent, const StudySheet& study, Desktop& desktop);

}  // namespace karvel
