#include "windows/SplashWindow.hpp"

#include <QCloseEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "Version.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/PictureBox.hpp"
#include "windows/support/Resources.hpp"
#include "windows/support/ScreenFit.hpp"

namespace karvel {

namespace {

// Logical pixels.
constexpr QSize kPicture(640, 400);
constexpr int kBelowPicture = 70;  // the line with the button

}  // namespace

frmSplash::frmSplash(Desktop& desktop, QWidget& form1)
    : QDialog(&form1, Qt::Dialog | Qt::FramelessWindowHint), form1_(form1)
{
    setObjectName(QStringLiteral("frmSplash"));
    setWindowTitle(QStringLiteral("Karvel"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto* const frame = new QFrame(this);
    frame->setObjectName(QStringLiteral("Frame1"));
    frame->setFrameShape(QFrame::StyledPanel);
    const QSize area = usableArea(form1).size() - QSize(0, kBelowPicture);
    const QSize size = kPicture.boundedTo(kPicture.scaled(area, Qt::KeepAspectRatio));
    auto* const picture = new PictureBox(openingPicture(), size, frame);
    picture->setObjectName(QStringLiteral("Picture1"));
    picture->setAccessibleName(QStringLiteral("Karvel, dizionario geroglifico-italiano"));
    auto* const version = new QLabel(QStringLiteral("Versione %1").arg(QLatin1String(kVersion)), frame);
    auto* const enterButton = new QPushButton(QStringLiteral("Entra"), frame);
    enterButton->setObjectName(QStringLiteral("Command1"));
    enterButton->setAccessibleName(QStringLiteral("entra"));
    enterButton->setMinimumSize(120, 34);
    enterButton->setDefault(true);
    connect(enterButton, &QPushButton::clicked, this, &frmSplash::close);
    connect(&desktop, &Desktop::changed, this, [this] {
        begun_ = true;
        close();
    });

    auto* const line = new QHBoxLayout;
    line->setContentsMargins(14, 8, 14, 10);
    line->addWidget(version);
    line->addStretch(1);
    line->addWidget(enterButton);
    auto* const framed = new QVBoxLayout(frame);
    framed->setContentsMargins(0, 0, 0, 0);
    framed->setSpacing(0);
    framed->addWidget(picture);
    framed->addLayout(line);
    auto* const whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(frame);
    whole->setSizeConstraint(QLayout::SetFixedSize);
}

void frmSplash::openInFront()
{
    form1_.show();
    adjustSize();
    move(form1_.frameGeometry().center() - rect().center());
    show();
    raise();
    activateWindow();
}

void frmSplash::done(int /*result*/)
{
    close();  // Escape
}

void frmSplash::closeEvent(QCloseEvent* event)
{
    event->accept();
    form1_.show();
    if (!begun_) {
        form1_.activateWindow();
    }
}

}  // namespace karvel
