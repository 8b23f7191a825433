#include "windows/signs/PictureSwitches.hpp"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSpinBox>
#include <QStringList>

#include "app/Session.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

PictureSwitches::PictureSwitches(Session& session, const QString& window, const PhrasePicture& usual,
                                 QWidget* parent)
    : QWidget(parent),
      session_(session),
      name_("figura." + utf8(window)),
      inBlocks_(checkBox("blocchi", QStringLiteral("A &blocchi"), !usual.look.inRow)),
      ring_(checkBox("cartiglio", QStringLiteral("Ca&rtiglio"), usual.look.ring)),
      fromRight_(checkBox("destra", QStringLiteral("Da &destra a sinistra"), false)),
      inColumns_(checkBox("colonna", QStringLiteral("In c&olonna"), false)),
      height_(new QSpinBox(this))
{
    height_->setObjectName(QStringLiteral("altezza"));
    height_->setAccessibleName(QStringLiteral("altezza dei blocchi, in pixel"));
    height_->setRange(16, 400);
    height_->setSingleStep(8);
    height_->setValue(usual.blockHeight);
    height_->setSuffix(QStringLiteral(" px"));
    connect(height_, &QSpinBox::valueChanged, this, &PictureSwitches::changed);
    auto* const caption = new QLabel(QStringLiteral("Alte&zza:"), this);
    caption->setBuddy(height_);
    auto* const line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    for (QCheckBox* const box : {inBlocks_, ring_, fromRight_, inColumns_}) {
        line->addWidget(box);
    }
    line->addStretch(1);
    line->addWidget(caption);
    line->addWidget(height_);
    recall();
}

PictureSwitches::~PictureSwitches()
{
    keep();  // the program ends while the window is open
}

QCheckBox* PictureSwitches::checkBox(const char* name, const QString& caption, bool checked)
{
    auto* const made = new QCheckBox(caption, this);
    made->setObjectName(QLatin1String(name));
    made->setChecked(checked);
    connect(made, &QCheckBox::toggled, this, &PictureSwitches::changed);
    return made;
}

bool PictureSwitches::inBlocks() const
{
    return inBlocks_->isChecked();
}

void PictureSwitches::setInBlocks(bool inBlocks)
{
    inBlocks_->setChecked(inBlocks);
}

void PictureSwitches::setShaping(bool shaping)
{
    for (QWidget* const control : std::initializer_list<QWidget*>{ring_, fromRight_, inColumns_, height_}) {
        control->setEnabled(shaping);
    }
}

PhrasePicture PictureSwitches::pictureOf(const std::string& codes) const
{
    PhrasePicture picture{.codes = codes, .blockHeight = height_->value()};
    picture.look.inRow = !inBlocks_->isChecked();
    picture.look.ring = ring_->isChecked();
    picture.look.placement.rightToLeft = fromRight_->isChecked();
    picture.look.placement.columns = inColumns_->isChecked();
    return picture;
}

void PictureSwitches::hideEvent(QHideEvent* event)
{
    keep();
    QWidget::hideEvent(event);
}

/// The names of the checked boxes, then the height.
void PictureSwitches::keep()
{
    QStringList words;
    for (const QCheckBox* const box : {inBlocks_, ring_, fromRight_, inColumns_}) {
        if (box->isChecked()) {
            words += box->objectName();
        }
    }
    words += QString::number(height_->value());
    session_.choices().set(name_, utf8(words.join(QLatin1Char(' '))));
}

void PictureSwitches::recall()
{
    const QStringList words = qtext(session_.choices().get(name_)).split(QLatin1Char(' '));
    bool number = false;
    const int height = words.constLast().toInt(&number);
    if (!number) {
        return;
    }
    for (QCheckBox* const box : {inBlocks_, ring_, fromRight_, inColumns_}) {
        box->setChecked(words.contains(box->objectName()));
    }
    height_->setValue(height);
}

}  // namespace karvel
