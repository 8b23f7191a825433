#include "windows/VociWindow.hpp"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "app/EntryList.hpp"
#include "windows/TrovaParola.hpp"
#include "windows/signs/AnswerList.hpp"
#include "windows/signs/AnswerPane.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/ScreenFit.hpp"
#include "windows/support/Text.hpp"
#include "windows/support/WindowSet.hpp"

namespace karvel {

Voci::Voci(Desktop& desktop, QWidget* parent)
    : QDialog(parent),
      desktop_(desktop),
      heading_(new QLabel(this)),
      filter_(new QLineEdit(this)),
      pane_(new AnswerPane(desktop, "VociLista", this))
{
    setObjectName(QStringLiteral("Voci"));
    setWindowTitle(QStringLiteral("Voci trovate"));
    heading_->setObjectName(QStringLiteral("VociTitolo"));
    heading_->setTextFormat(Qt::PlainText);
    QFont bold = heading_->font();
    bold.setBold(true);
    heading_->setFont(bold);
    heading_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    filter_->setObjectName(QStringLiteral("VociFiltro"));
    filter_->setPlaceholderText(QStringLiteral("Filtra: italiano, traslitterazione, numero di Gardiner"));
    filter_->setAccessibleName(QStringLiteral("filtro dell'elenco"));
    filter_->setClearButtonEnabled(true);
    connect(filter_, &QLineEdit::textChanged, this, [this](const QString& text) {
        pane_->list().answers().filter(typed(text));
        pane_->list().toStart();
    });
    auto* const column = new QVBoxLayout(this);
    column->addWidget(heading_);
    column->addWidget(filter_);
    column->addWidget(pane_, 1);
    if (parent != nullptr) {
        placeOverPalette(*this, *parent, {980, 480});
    }
}

void Voci::openFromMenu(Desktop& desktop, WindowSet& windows)
{
    Session& session = desktop.session();
    if (session.display().DisplayCodes().empty()) {
        windows.open<TrovaParola>().start();
        return;
    }
    session.rememberPhrase();
    windows.open<Voci>().list(session.modes().mode(), session.display().DisplayCodes());
}

void Voci::list(Mode mode, const std::string& phrase)
{
    desktop_.handle([&] {
        Session& session = desktop_.session();
        EntryList found = listEntries(session.files(), session.ui(), mode, phrase);
        const std::string heading = found.heading();
        {
            const QSignalBlocker quiet(filter_);
            filter_->clear();
        }
        pane_->list().answers().filter({});
        pane_->show(std::move(found.answers), found.rest, heading,
                    found.failure ? faultLine(*found.failure) : std::string());
        heading_->setText(qtext(heading));
        heading_->setToolTip(heading_->text());
        pane_->list().setFocus();
    });
}

}  // namespace karvel
