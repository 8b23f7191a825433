#pragma once

#include <QMenu>

namespace karvel {

class Desktop;
class Session;
class WindowSet;

/// "Cronologia": the keys that bring phrases back, the last searches with their signs drawn, and the item
/// that deletes them. It is filled when it opens.
class HistoryMenu : public QMenu {
    Q_OBJECT

  public:
    /// Both must outlive the menu.
    HistoryMenu(Desktop& desktop, WindowSet& windows, QWidget* parent);

  private:
    void fill();
    void addSearch(std::size_t index);
    QAction* item(const char* name, const QString& caption, void (Session::*handler)());

    Desktop& desktop_;
    WindowSet& windows_;
    QAction* end_ = nullptr;  ///< the separator before which the searches stand
    QList<QAction*> listed_;
};

}  // namespace karvel
