#pragma once

#include <QMainWindow>
#include <QTimer>
#include <array>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/SignCode.hpp"
#include "compose/DisplayLine.hpp"
#include "windows/support/Icons.hpp"

class QAction;
class QFrame;
class QLabel;
class QScrollBar;
class QToolButton;
class QPushButton;
class QVBoxLayout;
class QBoxLayout;

namespace karvel {

class Desktop;
class FindSign;
class Keyboard;
class PageBox;
class PhraseNote;
class SignButton;
class SignCell;
class SquareGrid;
class WindowColours;
class WindowSet;

/// The main window: palette, display line, favourites strip, menus.
class Form1 : public QMainWindow {
    Q_OBJECT

  public:
    static constexpr std::size_t kFavourites = 8;

    /// Both must outlive the window. It is empty until `showState`, which comes after start-up.
    Form1(Desktop& desktop, WindowSet& windows);
    ~Form1() override;

    /// Shows what the session holds now.
    void showState();

    /// Shows the progress of a long reading, 0 to 100; -1 when it has ended.
    void showProgress(int percent);

  protected:
    void closeEvent(QCloseEvent* event) override;
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    /// One item of a menu; without a handler it is shown, but cannot be chosen.
    struct Item {
        const char* name;  ///< of its control
        QString caption;
        std::function<void()> handler;
        QString shortcut = {};
        bool checkable = false;
        bool separated = false;  ///< a separator stands before it
    };
    struct Menu {
        const char* name;
        QString caption;
        std::vector<Item> items;
    };

    void buildMenus();
    /// Adds the menu; the actions in the order of its items.
    std::vector<QAction*> addMenu(const Menu& menu);
    [[nodiscard]] Menu fileMenu();
    [[nodiscard]] Menu editMenu();
    [[nodiscard]] Menu optionsMenu();
    [[nodiscard]] Menu favouritesMenu();
    [[nodiscard]] Menu searchMenu();

    void buildCentre();
    [[nodiscard]] QWidget* displayLine();
    [[nodiscard]] QBoxLayout* displayButtons();
    [[nodiscard]] QBoxLayout* favouritesStrip();
    [[nodiscard]] QWidget* favouriteKeys();
    [[nodiscard]] QBoxLayout* pageLine();
    void buildStatusBar();
    void placeOnScreen();
    void fitParts();
    QToolButton* button(const char* name, const QString& tooltip, std::function<void()> handler);
    QToolButton* button(const char* name, Symbol symbol, const QString& tooltip,
                        std::function<void()> handler);

    void showColours();
    void showIcons();
    void showDisplay();
    void showPalette();
    void pointAt(const std::string& code);
    void preparePages();
    [[nodiscard]] static QString gardinerRange(const std::string& first, const std::string& last);
    void showFavourites();
    void showModes();

    void leave();
    void insertInDictionary();
    void showTranslatedWords();

    Desktop& desktop_;
    WindowSet& windows_;

    QWidget* centre_ = nullptr;
    QLabel* label1_ = nullptr;
    QFrame* picture1_ = nullptr;
    std::array<SignCell*, DisplayLine::kCells> vendol_{};
    PhraseNote* note_ = nullptr;
    QLabel* hint_ = nullptr;  ///< tells how to begin while the display line is empty
    QToolButton* csx_ = nullptr;
    QToolButton* cdx_ = nullptr;
    QToolButton* deleteSign_ = nullptr;
    QPushButton* command12_ = nullptr;
    QPushButton* elenco_ = nullptr;
    std::array<SignButton*, kFavourites> cmd_{};
    QWidget* slots_ = nullptr;        ///< the eight places of the strip; hidden while it is empty
    QLabel* noFavourites_ = nullptr;  ///< shown in their place
    QLabel* label2_ = nullptr;
    std::array<QToolButton*, 5> panel_{};  ///< the buttons that delete favourites
    SquareGrid* keys_ = nullptr;
    std::array<SignButton*, kKeys> tasto_{};
    QScrollBar* hScroll1_ = nullptr;
    PageBox* text1_ = nullptr;
    QLabel* pageRange_ = nullptr;
    std::string prepared_;   ///< the first picture of the page for which preparePages ran last
    std::string pointedAt_;  ///< the sign that "Trova segno" inserted last
    QTimer pageTurned_;      ///< starts preparePages when a page has been shown for a moment
    FindSign* find_ = nullptr;
    std::unique_ptr<Keyboard> keyboard_;
    std::unique_ptr<WindowColours> windowColours_;
    std::array<QLabel*, 3> panels_{};
    std::vector<std::pair<QToolButton*, Symbol>> symbols_;  ///< the buttons with a symbol
    std::vector<QAction*> modeItems_;                       ///< of the six search modes
    QRgb shownWindow_ = 0;
    QRgb shownDisplay_ = 0;
    bool leaving_ = false;
};

}  // namespace karvel
