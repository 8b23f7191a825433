#pragma once

#include <QObject>

class QKeyEvent;
class QWidget;

namespace karvel {

class Desktop;
class FindSign;
class Form1;

/// Everything that the main window does without a mouse. Keys typed into a text field stay with the field.
class Keyboard : public QObject {
    Q_OBJECT

  public:
    /// Watches the keys of `form1`; all three must outlive it.
    Keyboard(Desktop& desktop, Form1& form1, FindSign& find);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    [[nodiscard]] bool concerns(QObject* watched) const;
    bool key(QKeyEvent& event, QWidget& focus);
    bool anywhere(QKeyEvent& event);
    bool withControl(int key);
    bool moves(int key, QWidget& focus);
    bool edits(int key, QWidget& focus);
    bool finds(const QString& typed);
    void turnTo(int page);
    [[nodiscard]] static int pageOf(const QKeyEvent& event);

    Desktop& desktop_;
    Form1& form1_;
    FindSign& find_;
};

}  // namespace karvel
