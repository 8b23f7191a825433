#include "windows/PictureWindow.hpp"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "windows/support/Box.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/PlainTip.hpp"
#include "windows/support/ScreenFit.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

imm1::imm1(Desktop& desktop, QWidget* parent) : QDialog(parent), desktop_(desktop), picture_(new QLabel(this))
{
    setObjectName(QStringLiteral("imm1"));
    setWindowTitle(QStringLiteral("Immagine allegata"));
    setAttribute(Qt::WA_DeleteOnClose);
    picture_->setObjectName(QStringLiteral("Picture1"));
    picture_->setAlignment(Qt::AlignCenter);
    picture_->setWordWrap(true);
    picture_->setMinimumSize(160, 120);
    picture_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
    auto* const close = new QPushButton(QStringLiteral("Chiudi immagine"), this);
    close->setObjectName(QStringLiteral("Command1"));
    close->setAccessibleName(close->text());
    connect(close, &QPushButton::clicked, this, &imm1::close);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(picture_, 1);
    layout->addWidget(close, 0, Qt::AlignHCenter);
    // The user reads the box and the display line beside the picture: it neither covers them nor takes the
    // focus.
    setAttribute(Qt::WA_ShowWithoutActivating);
    setProperty(Box::kKeepVisible, true);
}

/// At the lower left of the screen, below the display line; the boxes have the right half.
void imm1::place()
{
    constexpr QSize kLargest(560, 460);
    constexpr QSize kForText(320, 200);
    constexpr QSize kAroundPicture(48, 100);
    constexpr int kGap = 8;
    const QRect area = usableArea(*this);
    const int highest = desktop_.displayOnScreen().bottom() + kGap;
    const QSize most(area.width() * 2 / 5, std::max(area.bottom() - highest, area.height() / 2));
    resize(
        (image_.isNull() ? kForText : (image_.size() + kAroundPicture).boundedTo(kLargest)).boundedTo(most));
    move(area.left(), area.bottom() - height());
    keepOnScreen(*this);
}

void imm1::showPicture(const std::string& path, const std::string& name)
{
    image_ = path.empty() ? QImage() : desktop_.pictures().image(path);
    if (!isVisible()) {
        place();
    }
    picture_->setAccessibleName(QStringLiteral("immagine ") + qtext(name));
    if (image_.isNull()) {
        picture_->setTextFormat(Qt::PlainText);
        picture_->setText(QStringLiteral("Immagine non trovata: ") + qtext(name));
        picture_->setToolTip(plainTip(picture_->text()));
        return;
    }
    fit();
}

void imm1::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    fit();
}

void imm1::fit()
{
    if (image_.isNull()) {
        return;
    }
    const qreal ratio = devicePixelRatioF();
    const bool larger = image_.width() > picture_->width() || image_.height() > picture_->height();
    const QSizeF shown = QSizeF(image_.size());  // a pixel of a small picture is a logical pixel
    const QSizeF size = larger ? shown.scaled(picture_->size(), Qt::KeepAspectRatio) : shown;
    QPixmap fitted = QPixmap::fromImage(
        image_.scaled((size * ratio).toSize(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    fitted.setDevicePixelRatio(ratio);
    picture_->setPixmap(fitted);
}

}  // namespace karvel
