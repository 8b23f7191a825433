#pragma once

#include <QObject>
#include <QPoint>
#include <string>

class QWidget;

namespace karvel {

class Desktop;
class WindowSet;

/// The menu of a right click on a sign, in every window: insert, copy, "Usato in ...". A sign whose context
/// menu policy is Qt::PreventContextMenu has none.
class SignMenu : public QObject {
    Q_OBJECT

  public:
    /// Watches the whole application until it is destroyed; both must outlive it.
    SignMenu(Desktop& desktop, WindowSet& windows);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void popUp(QWidget& sign, const std::string& code, const QPoint& at);
    void insert(QWidget& sign, const std::string& code);

    Desktop& desktop_;
    WindowSet& windows_;
};

/// Puts the phrase or sign `codes` on the clipboard: Unicode hieroglyphs, and Gardiner numbers as a second
/// form.
void copyPhrase(const std::string& codes);

}  // namespace karvel
