#pragma once

#include <QObject>
#include <QPoint>
#include <string>

class QWidget;

namespace karvel {

class Desktop;
class Session;
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

/// Puts the phrase or sign `codes` on the clipboard: Unicode hieroglyphs, Gardiner numbers, and Manuel de
/// Codage with the groups.
void copyPhrase(Session& session, const std::string& codes);

/// Appends what is on the clipboard to the phrase, a copied phrase with its groups.
void pastePhrase(Session& session);

}  // namespace karvel
