#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <string>

#include "files/FileSystem.hpp"
#include "reading/Passage.hpp"

class QBoxLayout;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QScrollArea;

namespace karvel {

class Desktop;
class ReadingLines;

/// "Lettura": a passage read word by word, which the user corrects.
class Lettura : public QDialog {
    Q_OBJECT

  public:
    Lettura(Desktop& desktop, QWidget* parent);

    /// Saves as a page, as text, or (any other name) with the choices made by hand; the ending of `path`
    /// decides. Throws RuntimeError.
    void saveTo(const std::string& path);

    /// Opens saved work, or a text. A damaged file is reported, and what is shown stays. Throws
    /// RuntimeError.
    void openFrom(const std::string& path);

    /// False when corrections are not saved and the user, who is asked, wants to keep them.
    [[nodiscard]] bool mayClose();

    /// Escape: closes the window, unless the user wants to keep corrections that are not saved.
    void reject() override;

  private:
    QLabel* caption(const QString& text);
    QPlainTextEdit* addText(QBoxLayout& column, const char* name, const QString& caption);
    QPushButton* button(const char* name, const QString& caption, const QString& spoken);
    void buildTop(QBoxLayout& column);
    void buildLines(QBoxLayout& column);
    void buildBottom(QBoxLayout& column);
    [[nodiscard]] bool prepareReader();
    void read(const std::function<void()>& step);
    void readText();
    void showPassage();
    void showUnknown();
    void change(const std::function<void()>& step);
    void undo();
    void openMenu();
    void typeReading(std::size_t word);
    void save();
    void openFile();

    Desktop& desktop_;
    std::unique_ptr<Reader> reader_;
    FileState dictionary_;  ///< as it was when `reader_` was made
    Passage passage_;
    HandWork saved_;
    QPlainTextEdit* text_ = nullptr;
    QLabel* unknown_ = nullptr;
    QScrollArea* area_ = nullptr;
    ReadingLines* lines_ = nullptr;
    QPlainTextEdit* transliteration_ = nullptr;
    QPlainTextEdit* translation_ = nullptr;
    QPushButton* undo_ = nullptr;
};

}  // namespace karvel
