#pragma once

#include <QDialog>
#include <QTimer>

#include "windows/DirectoryReader.hpp"

class QComboBox;
class QLabel;

namespace karvel {

class Desktop;
class DirectoryList;
class GlyphDirectoryChooser;

/// "Sistema": the directory from which the signs are read.
class Sysform : public QDialog {
    Q_OBJECT

  public:
    /// `list` reads directories, on a thread of its own.
    Sysform(Desktop& desktop, QWidget* parent, DirectoryReader::List list = listDirectory);

  private:
    void build();
    [[nodiscard]] QWidget* readingLine();
    void showState();
    void showReading();
    void driveChosen(const QString& entry);
    void readDirectory();
    void confirm();

    Desktop& desktop_;
    GlyphDirectoryChooser& chooser_;
    DirectoryReader* reader_;
    QComboBox* drive1_;
    DirectoryList* dir1_;
    QPushButton* command1_ = nullptr;
    QPushButton* command2_ = nullptr;
    QLabel* label2_;
    QLabel* inUse_;
    QLabel* note_;
    QLabel* readingNote_ = nullptr;
    QWidget* readingLine_ = nullptr;
    QTimer patience_;  ///< delays the progress bar, which would flicker at a quick reading
};

}  // namespace karvel
