#include "windows/support/PlaceKeeper.hpp"

#include <QEvent>
#include <QGuiApplication>
#include <QStringList>
#include <QWidget>
#include <array>
#include <optional>

#include "app/Session.hpp"
#include "windows/support/ScreenFit.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

namespace {

constexpr int kFarthest = 100'000;  // logical pixels; no desktop is so large
constexpr int kSmallest = 80;

/// "x y width height"; nothing when the text has another form or cannot be a place.
std::optional<QRect> placeFrom(const std::string& text)
{
    const QStringList parts = qtext(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    std::array<int, 4> numbers{};
    if (parts.size() != static_cast<qsizetype>(numbers.size())) {
        return std::nullopt;
    }
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        bool number = false;
        numbers[i] = parts[static_cast<qsizetype>(i)].toInt(&number);
        if (!number || numbers[i] < -kFarthest || numbers[i] > kFarthest) {
            return std::nullopt;
        }
    }
    const QRect place(numbers[0], numbers[1], numbers[2], numbers[3]);
    return place.width() < kSmallest || place.height() < kSmallest ? std::nullopt : std::optional(place);
}

}  // namespace

PlaceKeeper::PlaceKeeper(QWidget& window, const QWidget* main, QSize usual, Session& session)
    : QObject(&window), window_(window), session_(session), name_("finestra." + utf8(window.objectName()))
{
    window.installEventFilter(this);
    if (const auto place = placeFrom(session_.choices().get(name_))) {
        if (QScreen* const screen = QGuiApplication::screenAt(place->center())) {
            window.setScreen(screen);
        }
        window.resize(place->size());
        window.move(place->topLeft());
        keepOnScreen(window);
    } else if (main != nullptr) {
        placeOverPalette(window, *main, usual);
    }
}

PlaceKeeper::~PlaceKeeper()
{
    keep();  // the program ends while the window is open
}

bool PlaceKeeper::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
        case QEvent::Move:
        case QEvent::Resize:
            if (window_.isVisible() && !window_.isMaximized() && !window_.isFullScreen()) {
                place_ = QRect(window_.pos(), window_.size());
            }
            break;
        case QEvent::Hide:
            keep();
            break;
        default:
            break;
    }
    return QObject::eventFilter(watched, event);
}

void PlaceKeeper::keep()
{
    if (!place_.isNull()) {
        session_.choices().set(name_, std::to_string(place_.x()) + " " + std::to_string(place_.y()) + " " +
                                          std::to_string(place_.width()) + " " +
                                          std::to_string(place_.height()));
    }
}

}  // namespace karvel
