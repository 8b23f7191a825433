#pragma once

#include <QWidget>

#include "windows/PrintJob.hpp"
#include "windows/PrintSheet.hpp"

class QLabel;

namespace karvel {

class PrintWindow;
class StudyPages;

/// The sheet at a small scale, with the row of signs (`Label1(0)`) and the text (`Label1(1)`) in place, or a
/// page of a study sheet.
class SheetPreview : public QWidget {
    Q_OBJECT

  public:
    /// `sheet` must outlive the preview.
    SheetPreview(const form7& sheet, QWidget* parent);

    /// Shows the page as `window` now lays it out.
    void showPage(const PrintWindow& window);

    /// Shows page `page` of a study sheet in place of the row of signs; null shows the row again. `pages`
    /// must outlive its use here.
    void showStudy(const StudyPages* pages, std::size_t page);

    [[nodiscard]] const Sheet& sheet() const { return paper_; }
    void setSheet(const Sheet& sheet);

    [[nodiscard]] QSize sizeHint() const override { return {360, 500}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {180, 250}; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void arrange();
    void place(QLabel& label, int top, int height, bool text);
    [[nodiscard]] QRectF paperOnScreen() const;
    [[nodiscard]] qreal scale() const;

    const form7& sheet_;
    QLabel* row_;
    QLabel* text_;
    Sheet paper_;
    int rowTop_ = 0;
    int textTop_ = 0;
    bool textIncluded_ = true;
    const StudyPages* study_ = nullptr;
    std::size_t studyPage_ = 0;
};

}  // namespace karvel
