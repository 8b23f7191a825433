#include "windows/ReadingLines.hpp"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cstdlib>

#include "base/SignCode.hpp"
#include "text/PhraseText.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Text.hpp"
#include "windows/support/Theme.hpp"

namespace karvel {

namespace {

// Logical pixels.
constexpr int kSign = 44;
constexpr int kMargin = 10;
constexpr int kPadding = 4;
constexpr int kGap = 6;
constexpr int kTranslationWidth = 130;

constexpr int kTranslationLines = 3;
constexpr qreal kPale = 0.4;  ///< how much of the surface is in the colour of a doubtful word
constexpr int kWrapped = Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap;

int signsInRow(int width)
{
    return std::max(1, (width - 2 * kMargin - 2 * kPadding) / kSign);
}

}  // namespace

ReadingLines::ReadingLines(Desktop& desktop, const Passage& passage, QWidget* parent)
    : QWidget(parent), desktop_(desktop), passage_(passage)
{
    setFocusPolicy(Qt::StrongFocus);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    showPassage();
}

void ReadingLines::showPassage()
{
    const auto& words = passage_.words();
    const auto at = std::ranges::find_if(
        words, [this](const ReadWord& word) { return currentSign_ < word.begin + word.length; });
    places_ = arranged(width());
    setCurrent(at == words.end() ? 0 : static_cast<std::size_t>(at - words.begin()));
    updateGeometry();
    update();
}

void ReadingLines::setCurrent(std::size_t word)
{
    const auto& words = passage_.words();
    current_ = word < words.size() ? word : 0;
    currentSign_ = words.empty() ? 0 : words[current_].begin;
    setAccessibleName(words.empty() ? QStringLiteral("lettura: nessuna parola") : spoken(current_));
    update();
    emit currentChanged();
}

QRect ReadingLines::place(std::size_t word) const
{
    return word < places_.size() ? places_[word] : QRect();
}

/// What a screen reader says: signs, reading and meaning.
QString ReadingLines::spoken(std::size_t word) const
{
    const ReadWord& read = passage_.words()[word];
    const std::string& meaning = read.choice.translation;
    return QStringLiteral("parola %1 di %2: segni %3; lettura %4; significato %5%6%7")
        .arg(word + 1)
        .arg(passage_.words().size())
        .arg(qtext(gardinerOf(passage_.codesOf(read))), qtext(printedReading(read)),
             meaning.empty() ? QStringLiteral("sconosciuto") : qtext(meaning),
             isDoubtful(read) ? QStringLiteral("; incerta") : QString(),
             read.fixed ? QStringLiteral("; scelta a mano") : QString());
}

QSize ReadingLines::sizeOf(const ReadWord& word, int width) const
{
    const int signs = static_cast<int>(word.length);
    const int inRow = std::min(signs, signsInRow(width));
    const QFontMetrics metrics = fontMetrics();
    const QString meaning = qtext(word.choice.translation);
    const int widest = width - 2 * kMargin - 2 * kPadding;
    int wide = std::max({inRow * kSign, metrics.horizontalAdvance(qtext(printedReading(word))) + kPadding,
                         std::min(kTranslationWidth, metrics.horizontalAdvance(meaning) + kPadding)});
    wide = std::min(wide, std::max(kSign, widest));
    const QRect text = metrics.boundingRect(QRect(0, 0, wide, QWIDGETSIZE_MAX), kWrapped, meaning);
    const int tall = (signs + inRow - 1) / inRow * kSign + metrics.height() + kPadding +
                     std::min(text.height(), kTranslationLines * metrics.lineSpacing());
    return {wide + 2 * kPadding, tall + 2 * kPadding};
}

std::vector<QRect> ReadingLines::arranged(int width) const
{
    std::vector<QRect> places;
    QPoint corner(kMargin, kMargin);
    int tallest = 0;
    const auto breakLine = [&] {
        corner = {kMargin, corner.y() + tallest + kGap};
        tallest = 0;
    };
    for (const ReadWord& word : passage_.words()) {
        const QSize size = sizeOf(word, width);
        if (corner.x() > kMargin && corner.x() + size.width() > width - kMargin) {
            breakLine();
        }
        places.emplace_back(corner, size);
        tallest = std::max(tallest, size.height());
        corner.rx() += size.width() + kGap;
        if (passage_.endsLine(word)) {
            breakLine();
        }
    }
    return places;
}

int ReadingLines::heightForWidth(int width) const
{
    int bottom = 0;
    for (const QRect& place : arranged(width)) {
        bottom = std::max(bottom, place.bottom() + 1);
    }
    return bottom + kMargin;
}

void ReadingLines::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    places_ = arranged(width());
}

void ReadingLines::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    const QColor surface = palette().color(QPalette::Window);
    painter.fillRect(event->rect(), surface);
    painter.setPen(inkOn(surface));
    if (places_.empty()) {
        painter.drawText(rect().adjusted(kMargin, kMargin, -kMargin, -kMargin), kWrapped,
                         QStringLiteral("Scrivere o incollare un testo e premere Leggi."));
    }
    for (std::size_t word = 0; word < places_.size(); ++word) {
        if (places_[word].intersects(event->rect())) {
            paintWord(painter, word);
        }
    }
}

void ReadingLines::paintSigns(QPainter& painter, const std::string& codes, const QRect& place)
{
    const int inRow = std::max(1, place.width() / kSign);
    const auto signs = splitCodes(codes);
    const int count = static_cast<int>(signs.size());
    const int left = place.left() + (place.width() - std::min(count, inRow) * kSign) / 2;
    for (int i = 0; i < count; ++i) {
        const QPointF centre(left + (i % inRow + 0.5) * kSign, place.top() + (i / inRow + 0.5) * kSign);
        desktop_.pictures().draw(
            painter, desktop_.session().images().path(signs[static_cast<std::size_t>(i)]), centre, kSign);
    }
}

void ReadingLines::paintWord(QPainter& painter, std::size_t word)
{
    const ReadWord& read = passage_.words()[word];
    const QRect inner = places_[word].adjusted(kPadding, kPadding, -kPadding, -kPadding);
    const QColor surface = palette().color(QPalette::Window);
    const bool doubtful = isDoubtful(read);
    const QColor ink =
        doubtful && !strongContrast() ? between(inkOn(surface), surface, kPale) : inkOn(surface);
    const int inRow = std::max(1, inner.width() / kSign);
    const int rows = (static_cast<int>(read.length) + inRow - 1) / inRow;
    paintSigns(painter, passage_.codesOf(read), inner);
    const QRect reading(inner.left(), inner.top() + rows * kSign, inner.width(), fontMetrics().height());
    painter.save();
    painter.setPen(ink);
    QFont italic = font();
    italic.setItalic(true);
    painter.setFont(italic);
    const QString printed =
        QFontMetrics(italic).elidedText(qtext(printedReading(read)), Qt::ElideRight, reading.width());
    painter.drawText(reading, Qt::AlignCenter, printed);
    if (doubtful) {
        const int half = std::min(reading.width(), QFontMetrics(italic).horizontalAdvance(printed)) / 2;
        painter.setPen(QPen(ink, 1.5, Qt::DotLine));
        painter.drawLine(reading.center().x() - half, reading.bottom() + 1, reading.center().x() + half,
                         reading.bottom() + 1);
    }
    painter.setFont(font());
    painter.setPen(ink);
    const QRect meaning(inner.left(), reading.bottom() + 1 + kPadding, inner.width(),
                        inner.bottom() - reading.bottom() - kPadding);
    painter.setClipRect(meaning.adjusted(-kPadding, 0, kPadding, kPadding));
    painter.drawText(meaning, kWrapped, qtext(read.choice.translation));
    painter.setClipping(false);
    if (word == current_) {
        painter.setPen(hasFocus() ? focusPen(surface) : QPen(outlineOn(surface, 0.5)));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(places_[word].adjusted(1, 1, -2, -2));
    }
    painter.restore();
}

std::size_t ReadingLines::wordAt(QPoint point) const
{
    const auto at = std::ranges::find_if(places_, [&](const QRect& place) { return place.contains(point); });
    return static_cast<std::size_t>(at - places_.begin());
}

/// The word nearest to the middle of the current one, in the line above or below; without such a line the
/// current one.
std::size_t ReadingLines::wordInLine(bool below) const
{
    std::size_t best = current_;
    const QRect from = place(current_);
    for (std::size_t i = 0; i < places_.size(); ++i) {
        const QRect& to = places_[i];
        if (below ? to.top() <= from.top() : to.top() >= from.top()) {
            continue;
        }
        const bool nearerLine =
            best == current_ || (below ? to.top() < places_[best].top() : to.top() > places_[best].top());
        const auto away = [&](const QRect& any) { return std::abs(any.center().x() - from.center().x()); };
        if (nearerLine || (to.top() == places_[best].top() && away(to) < away(places_[best]))) {
            best = i;
        }
    }
    return best;
}

void ReadingLines::mousePressEvent(QMouseEvent* event)
{
    const std::size_t word = wordAt(event->pos());
    if (word < places_.size()) {
        setCurrent(word);
        emit opened();
    }
}

void ReadingLines::keyPressEvent(QKeyEvent* event)
{
    const std::size_t last = places_.empty() ? 0 : places_.size() - 1;
    switch (event->key()) {
        case Qt::Key_Left:
            setCurrent(current_ > 0 ? current_ - 1 : 0);
            break;
        case Qt::Key_Right:
            setCurrent(std::min(current_ + 1, last));
            break;
        case Qt::Key_Up:
            setCurrent(wordInLine(false));
            break;
        case Qt::Key_Down:
            setCurrent(wordInLine(true));
            break;
        case Qt::Key_Home:
            setCurrent(0);
            break;
        case Qt::Key_End:
            setCurrent(last);
            break;
        case Qt::Key_Space:
            emit nextWanted();
            break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Menu:
            emit opened();
            break;
        default:
            QWidget::keyPressEvent(event);
    }
}

bool ReadingLines::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip) {
        return QWidget::event(event);
    }
    const auto* const help = static_cast<QHelpEvent*>(event);
    const std::size_t word = wordAt(help->pos());
    if (word < places_.size()) {
        QToolTip::showText(help->globalPos(), spoken(word), this, places_[word]);
    } else {
        QToolTip::hideText();
    }
    return true;
}

}  // namespace karvel
