#pragma once

#include <QAbstractButton>
#include <QFrame>
#include <string>
#include <vector>

class QGridLayout;
class QPainter;
class QPrinter;

namespace karvel {

class Desktop;

/// A sign on a sheet, with its meaning below it. A window may connect an action to its click.
class SheetSign : public QAbstractButton {
    Q_OBJECT

  public:
    enum class Medium { Screen, Paper };

    /// `meaning` is drawn large below the sign, `name` small below that; `desktop` must outlive the sign.
    SheetSign(Desktop& desktop, std::string code, const QString& meaning, const QString& name,
              QWidget* parent);

    [[nodiscard]] const std::string& code() const { return code_; }

    /// Draws the sign with its texts into `area`.
    void draw(QPainter& painter, const QRectF& area, Medium medium) const;

    [[nodiscard]] QSize sizeHint() const override { return {112, 122}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {84, 100}; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

  private:
    [[nodiscard]] bool drawSign(QPainter& painter, const QRectF& square, Medium medium) const;

    Desktop& desktop_;
    std::string code_;
    QString meaning_;
    QString name_;
};

/// A sheet of signs, on the screen and on paper: a title, the signs in rows, a line below.
class SignSheet : public QFrame {
    Q_OBJECT

  public:
    SignSheet(Desktop& desktop, const QString& title, const QString& footer, int columns,
              QWidget* parent = nullptr);

    /// Adds a sign behind the others; its object name is `sign(INDEX)`.
    SheetSign* add(const std::string& code, const QString& meaning, const QString& name);

    /// Whether the signs can be pressed; otherwise the keyboard skips them.
    void setPressable(bool pressable);

    /// Draws the whole sheet into `page`, as large as it fits, as it is printed.
    void draw(QPainter& painter, const QRectF& page) const;

    /// Asks for a printer and prints the sheet on one page. A failure is reported in a box.
    void print();

    /// Prints the sheet on one page. Throws as printWith does.
    void printOn(QPrinter& printer) const;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void drawFrame(QPainter& painter, const QRectF& area) const;
    [[nodiscard]] QFont titleFont() const;
    [[nodiscard]] QFont footerFont() const;

    Desktop& desktop_;
    QString title_;
    QString footer_;
    int columns_;
    QGridLayout* grid_;
    std::vector<SheetSign*> signs_;
};

/// A view that shows `sheet` as large as the view is, and scrolls where that is smaller than the sheet needs.
[[nodiscard]] QWidget* scrolling(SignSheet* sheet);

}  // namespace karvel
