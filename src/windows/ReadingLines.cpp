#include "windows/ReadingLines.hpp"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cstdlib>

#include "text/PhraseText.hpp"
#include "windows/signs/LayoutPainter.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/PlainTip.hpp"
#include "windows/support/Text.hpp"
#include "windows/support/Theme.hpp"

namespace karvel {

namespace {

// Logical pixels.
constexpr int kBlocks = 44;  ///< height of the blocks of signs
constexpr int kMargin = 10;
constexpr int kPadding = 4;
constexpr int kGap = 6;
constexpr int kBelowSigns = 2;
constexpr int kTranslationWidth = 130;

constexpr int kTranslationLines = 3;
constexpr qreal kCurrent = 0.15;  ///< how much of the ink is in the ground of the current word
constexpr qreal kPale = 0.4;      ///< how much of the surface is in the colour of a doubtful word
constexpr int kWrapped = Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap;

/// Signs stand in blocks; words wider than `width` go on in a row below.
PhraseLook lookOf(int width)
{
    PhraseLook look;
    look.placement.length = width * kBlockHeight / kBlocks;
    return look;
}

int widestIn(int width)
{
    return std::max(kBlocks, width - 2 * kMargin - 2 * kPadding);
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
    arrangement_.width = -1;
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
    return word < places().size() ? places()[word] : QRect();
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
    const QFontMetrics metrics = fontMetrics();
    const QString meaning = qtext(word.choice.translation);
    const int widest = widestIn(width);
    const QSize signs = phraseSize(passage_.codesOf(word), kBlocks, lookOf(widest), desktop_).toSize();
    int wide = std::max({signs.width(), metrics.horizontalAdvance(qtext(printedReading(word))) + kPadding,
                         std::min(kTranslationWidth, metrics.horizontalAdvance(meaning) + kPadding)});
    wide = std::min(wide, widest);
    const QRect text = metrics.boundingRect(QRect(0, 0, wide, QWIDGETSIZE_MAX), kWrapped, meaning);
    const int tall = signs.height() + kBelowSigns + metrics.height() + kPadding +
                     std::min(text.height(), kTranslationLines * metrics.lineSpacing());
    return {wide + 2 * kPadding, tall + 2 * kPadding};
}

const ReadingLines::Arrangement& ReadingLines::arranged(int width) const
{
    if (arrangement_.width == width) {
        return arrangement_;
    }
    arrangement_ = {width, 0, {}};
    QPoint corner(kMargin, kMargin);
    int bottom = kMargin;
    const auto breakLine = [&] { corner = {kMargin, bottom + kGap}; };
    for (const ReadWord& word : passage_.words()) {
        const QSize size = sizeOf(word, width);
        if (corner.x() > kMargin && corner.x() + size.width() > width - kMargin) {
            breakLine();
        }
        arrangement_.places.emplace_back(corner, size);
        bottom = std::max(bottom, corner.y() + size.height());
        corner.rx() += size.width() + kGap;
        if (passage_.endsLine(word)) {
            breakLine();
        }
    }
    arrangement_.height = bottom + kMargin;
    return arrangement_;
}

int ReadingLines::heightForWidth(int width) const
{
    return arranged(width).height;
}

void ReadingLines::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        arrangement_.width = -1;
        updateGeometry();
    }
}

void ReadingLines::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    const QColor surface = palette().color(QPalette::Window);
    painter.fillRect(event->rect(), surface);
    painter.setPen(inkOn(surface));
    if (places().empty()) {
        painter.drawText(rect().adjusted(kMargin, kMargin, -kMargin, -kMargin), kWrapped,
                         QStringLiteral("Scrivere o incollare un testo e premere Leggi."));
    }
    for (std::size_t word = 0; word < places().size(); ++word) {
        if (places()[word].intersects(event->rect())) {
            paintWord(painter, word);
        }
    }
}

void ReadingLines::paintWord(QPainter& painter, std::size_t word)
{
    const ReadWord& read = passage_.words()[word];
    const QRect place = places()[word];
    const QRect inner = place.adjusted(kPadding, kPadding, -kPadding, -kPadding);
    const QColor surface = palette().color(QPalette::Window);
    const std::string codes = passage_.codesOf(read);
    PhraseLook look = lookOf(widestIn(width()));
    const QSize signs = phraseSize(codes, kBlocks, look, desktop_).toSize();
    look.ink = inkOn(surface);
    const int left = inner.left() + (inner.width() - signs.width()) / 2;
    painter.save();
    if (word == current_) {
        painter.fillRect(place, between(surface, inkOn(surface), kCurrent));
    }
    paintPhrase(painter, QRectF(QPoint(left, inner.top()), signs), codes, kBlocks, look, desktop_);
    paintReading(painter, read, inner.adjusted(0, signs.height() + kBelowSigns, 0, 0));
    if (word == current_) {
        painter.setPen(hasFocus() ? focusPen(surface) : QPen(outlineOn(surface, 0.5)));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(place.adjusted(1, 1, -2, -2));
    }
    painter.restore();
}

/// The transliteration, below it the translation.
void ReadingLines::paintReading(QPainter& painter, const ReadWord& read, const QRect& place)
{
    const QColor surface = palette().color(QPalette::Window);
    const bool doubtful = isDoubtful(read);
    const QColor ink =
        doubtful && !strongContrast() ? between(inkOn(surface), surface, kPale) : inkOn(surface);
    const QRect reading(place.left(), place.top(), place.width(), fontMetrics().height());
    QFont italic = font();
    italic.setItalic(true);
    painter.setFont(italic);
    painter.setPen(ink);
    const QFontMetrics metrics(italic);
    const QString printed = metrics.elidedText(qtext(printedReading(read)), Qt::ElideRight, reading.width());
    painter.drawText(reading, Qt::AlignCenter, printed);
    if (doubtful) {
        const int half = std::min(reading.width(), metrics.horizontalAdvance(printed)) / 2;
        painter.setPen(QPen(ink, 1.5, Qt::DotLine));
        painter.drawLine(reading.center().x() - half, reading.bottom() + 1, reading.center().x() + half,
                         reading.bottom() + 1);
    }
    painter.setFont(font());
    painter.setPen(ink);
    const QRect meaning(place.left(), reading.bottom() + 1 + kPadding, place.width(),
                        place.bottom() - reading.bottom() - kPadding);
    painter.setClipRect(meaning.adjusted(-kPadding, 0, kPadding, kPadding));
    painter.drawText(meaning, kWrapped, qtext(read.choice.translation));
    painter.setClipping(false);
}

std::size_t ReadingLines::wordAt(QPoint point) const
{
    const auto at = std::ranges::find_if(places(), [&](const QRect& place) { return place.contains(point); });
    return static_cast<std::size_t>(at - places().begin());
}

/// The word nearest to the middle of the current one, in the line above or below; without such a line the
/// current one.
std::size_t ReadingLines::wordInLine(bool below) const
{
    std::size_t best = current_;
    const QRect from = place(current_);
    const std::vector<QRect>& all = places();
    for (std::size_t i = 0; i < all.size(); ++i) {
        const QRect& to = all[i];
        if (below ? to.top() <= from.top() : to.top() >= from.top()) {
            continue;
        }
        const bool nearerLine =
            best == current_ || (below ? to.top() < all[best].top() : to.top() > all[best].top());
        const auto away = [&](const QRect& any) { return std::abs(any.center().x() - from.center().x()); };
        if (nearerLine || (to.top() == all[best].top() && away(to) < away(all[best]))) {
            best = i;
        }
    }
    return best;
}

void ReadingLines::mousePressEvent(QMouseEvent* event)
{
    const std::size_t word = wordAt(event->pos());
    if (word < places().size()) {
        setCurrent(word);
        emit opened();
    }
}

void ReadingLines::keyPressEvent(QKeyEvent* event)
{
    const std::size_t last = places().empty() ? 0 : places().size() - 1;
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
    if (word < places().size()) {
        QToolTip::showText(help->globalPos(), plainTip(spoken(word)), this, places()[word]);
    } else {
        QToolTip::hideText();
    }
    return true;
}

}  // namespace karvel
