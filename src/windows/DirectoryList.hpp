#pragma once

#include <QListWidget>

#include "settings/DirectoryListing.hpp"

namespace karvel {

/// Lists the directories from a drive's root down to one of them, and its subdirectories.
class DirectoryList : public QListWidget {
    Q_OBJECT

  public:
    explicit DirectoryList(QWidget* parent = nullptr);

    void show(const DirectoryListing& listing);
    using QListWidget::show;

  signals:
    /// A double click or Enter on the directory with this path, UTF-8.
    void entered(const std::string& path);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void add(const QString& name, const std::string& path, int depth, bool open);
    void enter(const QListWidgetItem* item);
};

}  // namespace karvel
