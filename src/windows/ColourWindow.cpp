#include "windows/ColourWindow.hpp"

#include <QGridLayout>
#include <QLabel>
#include <QPointer>

#include "windows/ColourButton.hpp"
#include "windows/ColourChooser.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Theme.hpp"
#include "windows/support/WindowSet.hpp"

namespace karvel {

Form5::Form5(Desktop& desktop, QWidget* parent)
    : QDialog(parent),
      desktop_(desktop),
      command1_(new ColourButton(QStringLiteral("COLORE DISPLAY"), this)),
      command2_(new ColourButton(QStringLiteral("COLORE FINESTRA"), this))
{
    setObjectName(QStringLiteral("Form5"));
    setWindowTitle(QStringLiteral("Impostazione colori"));
    setAttribute(Qt::WA_DeleteOnClose);
    command1_->setObjectName(QStringLiteral("Command1"));
    command2_->setObjectName(QStringLiteral("Command2"));

    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(16, 16, 16, 16);
    grid->setSpacing(10);
    grid->setColumnStretch(0, 1);
    Session& session = desktop.session();
    addLine(0, command1_, "Command3", QStringLiteral("display"), Colours::kDisplayDefault,
            [&session](Colour chosen) { applyDisplayColour(session.files(), session.colours(), chosen); });
    addLine(1, command2_, "Command4", QStringLiteral("finestra"), Colours::kWindowDefault,
            [&session](Colour chosen) { applyWindowColour(session.files(), session.colours(), chosen); });

    auto* const hint =
        new QLabel(QStringLiteral("I colori scelti valgono subito e restano alla prossima apertura."), this);
    hint->setWordWrap(true);
    grid->addWidget(hint, 2, 0, 1, 2);
    grid->setRowStretch(2, 1);
    auto* const close = new QPushButton(QStringLiteral("Chiudi"), this);
    close->setObjectName(QStringLiteral("chiudi"));
    close->setAccessibleName(QStringLiteral("chiudi"));
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &Form5::close);
    grid->addWidget(close, 3, 1);

    command1_->setColour(karvel::colour(session.colours().display));
    command2_->setColour(karvel::colour(session.colours().window));
    resize(420, sizeHint().height());
}

void Form5::openFromMenu(Desktop& desktop, WindowSet& windows)
{
    const Colours saved = readColours(desktop.session().files());
    auto& opened = windows.open<Form5>();
    opened.command1_->setColour(karvel::colour(saved.display));
    opened.command2_->setColour(karvel::colour(saved.window));
}

void Form5::addLine(int row, ColourButton* chooser, const char* original, const QString& purpose,
                    Colour defaultColour, const Apply& apply)
{
    chooser->setAccessibleName(QStringLiteral("colore ") + purpose);
    chooser->setToolTip(QStringLiteral("sceglie il colore: ") + purpose);
    chooser->setAutoDefault(false);
    connect(chooser, &QPushButton::clicked, this, [this, chooser, apply, purpose] {
        const QPointer<Form5> window = this;  // it may be closed while the chooser is open
        const QColor chosen = chooseColour(chooser->colour(), *this, QStringLiteral("Colore: ") + purpose);
        if (window && chosen.isValid()) {
            applyTo(chooser, apply, Colour::rgb(chosen.red(), chosen.green(), chosen.blue()));
        }
    });
    auto* const restore = new QPushButton(QStringLiteral("ORIGINALE"), this);
    restore->setObjectName(QLatin1String(original));
    restore->setAccessibleName(QStringLiteral("colore originale: ") + purpose);
    restore->setToolTip(QStringLiteral("rimette il colore originale: ") + purpose);
    restore->setAutoDefault(false);
    restore->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    connect(restore, &QPushButton::clicked, this,
            [this, chooser, apply, defaultColour] { applyTo(chooser, apply, defaultColour); });
    auto* const grid = static_cast<QGridLayout*>(layout());
    grid->addWidget(chooser, row, 0);
    grid->addWidget(restore, row, 1);
}

void Form5::applyTo(ColourButton* chooser, const Apply& apply, Colour chosen)
{
    const QPointer<ColourButton> button = chooser;  // the window may be closed while a box is open
    desktop_.handle([&] {
        apply(chosen);
        if (button) {
            button->setColour(karvel::colour(chosen));
        }
    });
}

}  // namespace karvel
