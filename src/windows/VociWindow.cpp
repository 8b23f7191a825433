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
#include "windows/support/PlaceKeeper.hpp"
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
        showHeading();
    });
    connect(pane_, &AnswerPane::shown, this, &Voci::showHeading);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(heading_);
    column->addWidget(filter_);
    column->addWidget(pane_, 1);
    new PlaceKeeper(*this, parent, {980, 480}, desktop.session());
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
    {
        const QSignalBlocker quiet(filter_);
        filter_->clear();
    }
    pane_->list().answers().filter({});
    listed_ = std::make_shared<EntryList>(desktop_.session().files(), mode, phrase);
    pane_->setSearched(phrase);
    pane_->follow(listed_);
    pane_->list().setFocus();
}

void Voci::showHeading()
{
    if (!listed_) {
        return;
    }
    const std::string heading = listed_->heading(pane_->list().answers().answers());
    pane_->setHeading(heading);
    const AnswerModel& model = pane_->list().answers();
    const int words = model.rowCount() - (model.rest().empty() ? 0 : 1);
    const bool filtered = !filter_->text().trimmed().isEmpty();
    heading_->setText(qtext(heading) +
                      (filtered ? QStringLiteral(" · con il filtro: %1").arg(words) : QString()));
    heading_->setToolTip(heading_->text());
    pane_->list().setEmptyText(
        pane_->reading() ? QString()
        : model.answers().empty()
            ? QStringLiteral("Nessuna voce risponde alla ricerca. Se ne può scegliere un altro "
                             "tipo nel menu Ricerca, o provare con Trova parola (Ctrl+I).")
        : filtered ? QStringLiteral("Nessuna parola passa il filtro.")
                   : QString());
}

void Voci::reject()
{
    if (!pane_->stop()) {
        QDialog::reject();
    }
}

void Voci::closeEvent(QCloseEvent* event)
{
    pane_->stop();
    QDialog::closeEvent(event);
}

}  // namespace karvel
