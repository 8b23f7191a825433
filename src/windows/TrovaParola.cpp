#include "windows/TrovaParola.hpp"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "app/EntryList.hpp"
#include "windows/signs/AnswerList.hpp"
#include "windows/signs/AnswerPane.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/PlaceKeeper.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

TrovaParola::TrovaParola(Desktop& desktop, QWidget* parent)
    : QDialog(parent),
      desktop_(desktop),
      finder_(desktop.session().files()),
      field_(new QLineEdit(this)),
      understood_(new QToolButton(this)),
      counts_(new QLabel(this)),
      pane_(new AnswerPane(desktop, "TrovaLista", this))
{
    setObjectName(QStringLiteral("TrovaParola"));
    setWindowTitle(QStringLiteral("Trova parola"));
    field_->setObjectName(QStringLiteral("TrovaCampo"));
    field_->setAccessibleName(QStringLiteral("parola da trovare"));
    field_->setPlaceholderText(
        QStringLiteral("Italiano (amare), traslitterazione (nfr, n*r) o segni (F35 I9, F35 + D21)"));
    field_->setClearButtonEnabled(true);
    field_->installEventFilter(this);
    connect(field_, &QLineEdit::textChanged, this, &TrovaParola::ask);
    understood_->setObjectName(QStringLiteral("TrovaInteso"));
    understood_->setToolTip(QStringLiteral("come si è inteso il testo; un clic lo cambia"));
    understood_->setPopupMode(QToolButton::InstantPopup);
    understood_->setFocusPolicy(Qt::StrongFocus);
    auto* const kinds = new QMenu(understood_);
    connect(kinds->addAction(QStringLiteral("&automatico")), &QAction::triggered, this,
            [this] { understandAs({}); });
    for (const QuestionKind kind : kQuestionKinds) {
        connect(kinds->addAction(QLatin1Char('&') + qtext(nameOf(kind))), &QAction::triggered, this,
                [this, kind] { understandAs(kind); });
    }
    understood_->setMenu(kinds);
    int widest = 0;  // one width for all texts, so that the field keeps its size while the user types
    for (const QAction* const kind : kinds->actions()) {
        understood_->setText(kind->text().remove(QLatin1Char('&')));
        widest = std::max(widest, understood_->sizeHint().width());
    }
    understood_->setMinimumWidth(widest);
    counts_->setObjectName(QStringLiteral("counts"));
    auto* const line = new QHBoxLayout;
    line->addWidget(field_, 1);
    line->addWidget(understood_);
    auto* const column = new QVBoxLayout(this);
    column->addLayout(line);
    column->addWidget(counts_);
    column->addWidget(pane_, 1);
    new PlaceKeeper(*this, parent, {980, 480}, desktop.session());
    connect(pane_, &AnswerPane::shown, this, &TrovaParola::showAnswers);
}

void TrovaParola::start(const QString& text)
{
    field_->setFocus(Qt::ShortcutFocusReason);
    if (!text.isEmpty()) {
        field_->setText(text);
    }
    field_->selectAll();
    ask();  // the dictionary may have changed since
}

void TrovaParola::understandAs(std::optional<QuestionKind> kind)
{
    kind_ = kind;
    ask();
    field_->setFocus();
}

void TrovaParola::ask()
{
    asked_ = finder_.search(typed(field_->text()), kind_);
    pane_->setHeading(typed(field_->text()));
    pane_->follow(asked_);
}

void TrovaParola::showAnswers()
{
    const bool asked = !field_->text().trimmed().isEmpty();
    understood_->setText(kind_ || asked ? qtext(nameOf(asked_->kind())) : QStringLiteral("automatico"));
    understood_->setAccessibleName(QStringLiteral("inteso come: ") + understood_->text());
    const Answers& answers = pane_->list().answers().answers();
    counts_->setText(!asked             ? QStringLiteral(" ")
                     : !answers.empty() ? qtext(answers.counts())
                     : pane_->reading() ? QStringLiteral("ricerca in corso ...")
                                        : QStringLiteral("nessuna voce"));
}

void TrovaParola::reject()
{
    if (!pane_->stop()) {
        QDialog::reject();
    }
}

void TrovaParola::closeEvent(QCloseEvent* event)
{
    pane_->stop();
    QDialog::closeEvent(event);
}

/// The text goes into the history when the user turns to another window, not at each key.
bool TrovaParola::event(QEvent* event)
{
    if (event->type() == QEvent::WindowDeactivate || event->type() == QEvent::Hide) {
        desktop_.session().history().rememberText(typed(field_->text()));
    }
    return QDialog::event(event);
}

/// The keys that move in the list, and those that choose from it, work while the user types.
bool TrovaParola::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == field_ && event->type() == QEvent::KeyPress) {
        const auto& key = static_cast<QKeyEvent&>(*event);
        switch (key.key()) {
            case Qt::Key_Up:
            case Qt::Key_Down:
            case Qt::Key_PageUp:
            case Qt::Key_PageDown:
            case Qt::Key_Return:
            case Qt::Key_Enter:
                QApplication::sendEvent(&pane_->list(), event);
                return true;
            default:
                break;
        }
    }
    return QDialog::eventFilter(watched, event);
}

}  // namespace karvel
