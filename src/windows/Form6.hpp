#pragma once

#include <QDialog>
#include <array>
#include <functional>
#include <string>
#include <vector>

#include "cards/CardEditor.hpp"

class QAction;
class QComboBox;
class QLabel;
class QMenu;
class QTabBar;

namespace karvel {

class Desktop;
class SignButton;

/// "Schede": the cards of signs, one at a time, and the menu that makes and changes them.
class Form6 : public QDialog {
    Q_OBJECT

  public:
    Form6(Desktop& desktop, QWidget* parent);

  private:
    [[nodiscard]] QWidget* headLine();
    [[nodiscard]] QWidget* grid();
    void buildMenu();
    QAction* addItem(QMenu& menu, const char* name, const QString& caption, std::function<void()> handler);

    void showState();
    void showNames();
    void showCurrent();
    void showSigns();
    void showHints();

    Desktop& desktop_;
    CardEditor editor_;

    QMenu* load_ = nullptr;
    std::vector<QAction*> changing_;  ///< what the first card does not allow
    QComboBox* combo1_ = nullptr;
    QTabBar* tabs_ = nullptr;
    QLabel* signCount_ = nullptr;
    QLabel* hint_ = nullptr;
    std::array<SignButton*, kCardSigns> cmd_{};
    std::vector<std::string> shownNames_;
    bool namesShown_ = false;
};

}  // namespace karvel
