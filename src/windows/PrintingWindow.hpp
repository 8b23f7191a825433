#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <optional>

#include "app/PhraseStudy.hpp"
#include "print/PrintWindow.hpp"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPrinter;
class QPushButton;
class QScrollBar;
class QSpinBox;

namespace karvel {

class Desktop;
class form7;
class SheetPreview;
class StudyPages;
class WindowSet;

/// "Stampa": what is printed, and its position on the sheet.
class form9 : public QDialog {
    Q_OBJECT

  public:
    /// Lets the user set up the printer; false cancels the print.
    using ChoosePrinter = std::function<bool(QPrinter&, QWidget*)>;

    form9(Desktop& desktop, QWidget* parent);
    form9(Desktop& desktop, QWidget* parent, ChoosePrinter choosePrinter);
    ~form9() override;

    /// The menu "Stampa": fills the page and opens the window, or says that nothing is composed.
    static void openFromMenu(Desktop& desktop, WindowSet& windows);

    /// Fills the page from the display. False, after a message, when that is empty.
    bool fill();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void build();
    QPushButton* button(const char* name, const QString& caption, void (form9::*handler)());
    void showState();
    void toggle();
    void print();
    void sendToPrinter();
    void closeWindow();
    void chooseStudy(bool chosen);
    void layOutStudy();
    void showStudy();
    QWidget* positionLine();
    QSpinBox* pageBox();

    Desktop& desktop_;
    ChoosePrinter choosePrinter_;
    form7* sheet_;
    PrintWindow window_;
    std::unique_ptr<QPrinter> printer_;  ///< keeps the user's choices while the window is open
    SheetPreview* preview_ = nullptr;
    QScrollBar* vScroll1_ = nullptr;
    QLineEdit* text1_ = nullptr;
    QLabel* millimetres_ = nullptr;
    QLabel* remarks_ = nullptr;
    QPushButton* command1_ = nullptr;
    QLabel* hint_ = nullptr;
    QCheckBox* studyBox_ = nullptr;
    QWidget* position_ = nullptr;        ///< of the row of signs
    QSpinBox* studyPage_ = nullptr;      ///< that the preview shows
    std::optional<PhraseStudy> study_;   ///< while the study sheet is chosen
    std::unique_ptr<StudyPages> pages_;  ///< of `study_`
};

}  // namespace karvel
