#include "windows/NumeralsWindow.hpp"

#include <QHBoxLayout>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

#include "base/SignRepertoire.hpp"
#include "windows/signs/SignSheet.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

namespace {

constexpr std::string_view kPowersOfTen[] = {"Z1", "V20", "V1", "M12", "D50", "I8", "C11"};

}  // namespace

Numerals::Numerals(Desktop& desktop, QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("Numerali"));
    setWindowTitle(QStringLiteral("Numeri"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto* const table = new SignSheet(
        desktop, QStringLiteral("NUMERI"),
        QStringLiteral(
            "Ogni segno si ripete quante volte occorre, dal più grande al più piccolo: 23 si scrive "
            "con due pastoie e tre tratti."),
        static_cast<int>(std::size(kPowersOfTen)), this);
    table->setObjectName(QStringLiteral("chart"));
    qlonglong value = 1;
    for (const std::string_view number : kPowersOfTen) {
        if (const SignInfo* const sign = SignRepertoire::standard().byGardiner(number)) {
            const QString name = qtext(sign->description.substr(0, sign->description.find(" (")));
            table->add(std::string(sign->code), QLocale().toString(value), name);
        }
        value *= 10;
    }
    table->setPressable(false);
    auto* const print = new QPushButton(QStringLiteral("Stampa la tavola..."), this);
    print->setObjectName(QStringLiteral("Command2"));
    print->setAccessibleName(QStringLiteral("stampa la tavola su un foglio"));
    print->setAutoDefault(false);
    connect(print, &QPushButton::clicked, table, &SignSheet::print);
    auto* const shut = new QPushButton(QStringLiteral("Chiudi"), this);
    shut->setObjectName(QStringLiteral("Command1"));
    shut->setAccessibleName(QStringLiteral("chiude la finestra"));
    shut->setDefault(true);
    connect(shut, &QPushButton::clicked, this, &Numerals::close);
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(print);
    buttons->addStretch(1);
    buttons->addWidget(shut);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(12, 12, 12, 10);
    column->setSpacing(8);
    column->addWidget(scrolling(table), 1);
    column->addLayout(buttons);
    resize(940, 320);
}

}  // namespace karvel
