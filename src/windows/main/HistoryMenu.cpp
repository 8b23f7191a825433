#include "windows/main/HistoryMenu.hpp"

#include <QIconEngine>
#include <QPainter>
#include <algorithm>
#include <string>
#include <utility>

#include "app/EntryList.hpp"
#include "text/PhraseText.hpp"
#include "windows/TrovaParola.hpp"
#include "windows/signs/LayoutPainter.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Text.hpp"
#include "windows/support/Theme.hpp"
#include "windows/support/WindowSet.hpp"

namespace karvel {

namespace {

constexpr std::size_t kListed = 20;
constexpr std::size_t kDrawn = 12;  // signs of a phrase that the picture shows
constexpr int kPictureWidth = 150;  // logical pixels
constexpr int kCaptionWidth = 320;  // the Gardiner numbers; longer ones are cut in the middle

/// The signs of a phrase as the icon of an item, drawn when the item is.
class PhraseIcon : public QIconEngine {
  public:
    PhraseIcon(std::string codes, const QWidget& menu, Desktop& desktop)
        : codes_(std::move(codes)), menu_(menu), desktop_(desktop)
    {
    }

    void paint(QPainter* painter, const QRect& area, QIcon::Mode mode, QIcon::State /*state*/) override
    {
        const QPalette::ColorRole ink =
            mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::WindowText;
        paintPhrase(*painter, area, codes_, area.height(), {.ink = menu_.palette().color(ink)}, desktop_);
    }

    [[nodiscard]] QIconEngine* clone() const override { return new PhraseIcon(codes_, menu_, desktop_); }

  private:
    std::string codes_;
    const QWidget& menu_;
    Desktop& desktop_;
};

}  // namespace

HistoryMenu::HistoryMenu(Desktop& desktop, WindowSet& windows, QWidget* parent)
    : QMenu(QStringLiteral("Cr&onologia"), parent), desktop_(desktop), windows_(windows)
{
    setObjectName(QStringLiteral("cronologia"));
    setProperty(kIconWidth, kPictureWidth);
    QAction* const earlier =
        item("frasePrecedente", QStringLiteral("Frase &precedente"), &Session::earlierPhrase);
    earlier->setShortcut(QKeySequence(QStringLiteral("Alt+Left")));
    QAction* const later = item("fraseSeguente", QStringLiteral("Frase &seguente"), &Session::laterPhrase);
    later->setShortcut(QKeySequence(QStringLiteral("Alt+Right")));
    addSeparator();
    end_ = addSeparator();
    item("cancellaCronologia", QStringLiteral("&Cancella la cronologia..."), &Session::clearHistory);
    connect(this, &QMenu::aboutToShow, this, &HistoryMenu::fill);
}

QAction* HistoryMenu::item(const char* name, const QString& caption, void (Session::*handler)())
{
    QAction* const action = addAction(caption);
    action->setObjectName(QLatin1String(name));
    connect(action, &QAction::triggered, this,
            [this, handler] { desktop_.handle([this, handler] { (desktop_.session().*handler)(); }); });
    return action;
}

/// The newest search comes first.
void HistoryMenu::fill()
{
    qDeleteAll(std::exchange(listed_, {}));
    const std::size_t count = desktop_.session().history().searches().size();
    for (std::size_t i = 0; i < std::min(count, kListed); ++i) {
        addSearch(count - 1 - i);
    }
    if (count == 0) {
        auto* const none = new QAction(QStringLiteral("nessuna ricerca"), this);
        none->setEnabled(false);
        insertAction(end_, none);
        listed_.append(none);
    }
}

void HistoryMenu::addSearch(std::size_t index)
{
    const History::Search search = desktop_.session().history().searches()[index];
    auto* const action = new QAction(this);
    if (search.isText()) {
        action->setText(QStringLiteral("«%1»").arg(
            fontMetrics().elidedText(qtext(search.text).replace(QLatin1Char('&'), QStringLiteral("&&")),
                                     Qt::ElideRight, kCaptionWidth)));
        connect(action, &QAction::triggered, this,
                [this, text = search.text] { windows_.open<TrovaParola>().start(qtext(text)); });
    } else {
        const QString numbers =
            fontMetrics().elidedText(qtext(gardinerOf(search.text)), Qt::ElideMiddle, kCaptionWidth);
        action->setText(numbers + QStringLiteral(" · ") + qtext(nameOf(static_cast<Mode>(search.mode))));
        action->setIcon(QIcon(new PhraseIcon(search.text.substr(0, kDrawn * kCodeLength), *this, desktop_)));
        connect(action, &QAction::triggered, this, [this, index, codes = search.text] {
            desktop_.handle([&] {
                desktop_.session().history().stepFrom(index);
                desktop_.session().bringBack(codes);
            });
        });
    }
    insertAction(end_, action);
    listed_.append(action);
}

}  // namespace karvel
