#include <QAbstractButton>
#include <QApplication>
#include <QColorDialog>
#include <QComboBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>

#include "windows/monkey/Monkey.hpp"
#include "windows/support/Text.hpp"

namespace karvel::testing {

/// Answers the box or dialog that stands before all else. False when it is no such thing, or when this time
/// it shall be treated like any window.
bool Monkey::answer(QWidget& modal)
{
    if (auto* const file = qobject_cast<QFileDialog*>(&modal)) {
        chooseFile(*file);
    } else if (auto* const colours = qobject_cast<QColorDialog*>(&modal)) {
        chooseColour(*colours);
    } else if (modal.inherits("QAbstractPrintDialog")) {
        choosePrinter(static_cast<QDialog&>(modal));
    } else if (auto* const box = qobject_cast<QMessageBox*>(&modal); box != nullptr && dice_.below(6) > 0) {
        answerMessage(*box);
    } else if (auto* const input = qobject_cast<QInputDialog*>(&modal);
               input != nullptr && dice_.below(6) > 0) {
        answerInput(*input);
    } else {
        return false;
    }
    return true;
}

void Monkey::answerMessage(QMessageBox& box)
{
    const std::string title = utf8(box.windowTitle());
    ++boxes_[title];
    if (dice_.oneIn(5)) {
        const int key = dice_.oneIn(2) ? Qt::Key_Escape : Qt::Key_Return;
        trail_.add("key " + std::to_string(key) + " in the box [" + title + "]");
        Hands::key(key);
        return;
    }
    const auto buttons = box.buttons();
    QAbstractButton* button = dice_.pick(buttons);
    // A search with a thousand matches is left in time, and the program is not left all the time.
    if (box.button(QMessageBox::Cancel) != nullptr && dice_.oneIn(2)) {
        button = box.button(QMessageBox::Cancel);
    }
    if (title.starts_with("Uscita") && dice_.oneIn(2)) {
        button = box.button(QMessageBox::No);
    }
    trail_.add("answers [" + utf8(button->text()) + "] to the box [" + title + "]");
    hands_.click(*button, button->rect().center());
}

void Monkey::answerInput(QInputDialog& box)
{
    const QString typed = text();
    trail_.add("answers [" + utf8(typed.left(24)) + "] to the box [" + utf8(box.windowTitle()) + "]");
    ++boxes_[utf8(box.windowTitle())];
    box.setTextValue(typed);
    finish(box);
}

void Monkey::finish(QDialog& dialog)
{
    dice_.below(3) > 0 ? dialog.accept() : dialog.reject();
}

/// Names alone: in this dialog a person can delete and rename what he likes, and the files of the machine
/// that runs the test are none of ours.
void Monkey::chooseFile(QFileDialog& dialog)
{
    static const QString kNames[] = {
        QStringLiteral("mia"),    QStringLiteral("pre1.prf"),    QStringLiteral("pre3.prf"),
        QStringLiteral("pre1"),   QStringLiteral("più così"),    QStringLiteral("Ωmega"),
        QStringLiteral("王.prf"), QStringLiteral("mia.prf"),     QStringLiteral("nessuno.prf"),
        QStringLiteral("a,b"),    QString(300, QLatin1Char('x'))};
    const QString name = dice_.pick(kNames);
    trail_.add("chooses the file [" + utf8(name.left(24)) + "]");
    ++boxes_["CommonDialog"];
    if (auto* const field = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))) {
        field->setText(name);
    }
    finish(dialog);
}

/// A sheet goes into a file of ours; where the dialog offers anything else it is refused.
void Monkey::choosePrinter(QDialog& dialog)
{
    ++boxes_["PrintDialog"];
    auto* const file = dialog.findChild<QLineEdit*>(QStringLiteral("filename"));
    const auto* const printers = dialog.findChild<QComboBox*>(QStringLiteral("printers"));
    if (file == nullptr || printers == nullptr || !printers->currentText().contains(QLatin1String("PDF"))) {
        trail_.add("refuses the printer");
        dialog.reject();
        return;
    }
    if (dice_.below(8) > 0) {
        trail_.add("prints nothing");
        dialog.reject();
        return;
    }
    trail_.add("prints into a file");
    const char* const name = dice_.oneIn(6) ? "/manca/foglio.pdf" : dice_.oneIn(2) ? "/uno.pdf" : "/due.pdf";
    file->setText(QString::fromStdString(household_.printouts().string()) + QLatin1String(name));
    finish(dialog);
}

void Monkey::chooseColour(QColorDialog& dialog)
{
    const QColor colour = QColor::fromRgb(static_cast<QRgb>(dice_.below(0x1000000)));
    trail_.add("chooses the colour " + utf8(colour.name()));
    ++boxes_["QColorDialog"];
    dialog.setCurrentColor(dice_.oneIn(4) ? dice_.pick(std::array{QColor(Qt::black), QColor(Qt::white)})
                                          : colour);
    finish(dialog);
}

}  // namespace karvel::testing
