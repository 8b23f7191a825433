#include "windows/PictureWindow.hpp"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "windows/support/Desktop.hpp"
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
    picture_->setMinimumSize(240, 180);
    auto* const close = new QPushButton(QStringLiteral("Chiudi immagine"), this);
    close->setObjectName(QStringLiteral("Command1"));
    close->setAccessibleName(close->text());
    connect(close, &QPushButton::clicked, this, &imm1::close);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(picture_, 1);
    layout->addWidget(close, 0, Qt::AlignHCenter);
    resize(560, 460);
}

void imm1::showPicture(const std::string& path, const std::string& name)
{
    image_ = path.empty() ? QImage() : desktop_.pictures().image(path);
    picture_->setAccessibleName(QStringLiteral("immagine ") + qtext(name));
    if (image_.isNull()) {
        picture_->setTextFormat(Qt::PlainText);
        picture_->setText(QStringLiteral("Immagine non trovata: ") + qtext(name));
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
    const QSize room = (QSizeF(picture_->size()) * ratio).toSize();
    QPixmap fitted = QPixmap::fromImage(image_.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    fitted.setDevicePixelRatio(ratio);
    picture_->setPixmap(fitted);
}

}  // namespace karvel
