#include "windows/signs/SignMenu.hpp"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMimeData>

#include "app/PhraseClipboard.hpp"
#include "base/SignCode.hpp"
#include "base/SignRepertoire.hpp"
#include "windows/VociWindow.hpp"
#include "windows/signs/SignButton.hpp"
#include "windows/signs/SignCell.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Text.hpp"
#include "windows/support/WindowSet.hpp"

namespace karvel {

namespace {

/// The form of the clipboard in which a phrase keeps its groups.
const QString kCodageForm = QStringLiteral("text/x-manuel-de-codage");

std::string codeOf(QObject* widget)
{
    if (const auto* const key = qobject_cast<SignButton*>(widget)) {
        return key->code();
    }
    if (const auto* const cell = qobject_cast<SignCell*>(widget)) {
        return cell->cell().code;
    }
    return {};
}

}  // namespace

void copyPhrase(Session& session, const std::string& codes)
{
    const CopiedPhrase phrase = copied(session, codes);
    auto* const data = new QMimeData;
    data->setText(qtext(phrase.text));
    data->setData(QStringLiteral("text/x-gardiner"), QByteArray::fromStdString(phrase.gardiner));
    data->setData(kCodageForm, QByteArray::fromStdString(phrase.codage));
    data->setHtml(QStringLiteral("<span title=\"%1\">%2</span>")
                      .arg(qtext(phrase.codage).toHtmlEscaped(), qtext(phrase.text)));
    QApplication::clipboard()->setMimeData(data);
}

void pastePhrase(Session& session)
{
    const QMimeData* const data = QApplication::clipboard()->mimeData();
    const std::string codage = data == nullptr ? std::string() : data->data(kCodageForm).toStdString();
    // "?" stands for a sign without Gardiner number. Then the plain text is pasted, which reports such signs.
    const bool whole = !codage.empty() && codage.find('?') == std::string::npos;
    paste(session, whole ? codage : typed(QApplication::clipboard()->text()));
}

SignMenu::SignMenu(Desktop& desktop, WindowSet& windows) : desktop_(desktop), windows_(windows)
{
    qApp->installEventFilter(this);
}

bool SignMenu::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ContextMenu) {
        auto* const sign = qobject_cast<QWidget*>(watched);
        const std::string code = codeOf(watched);
        if (isSignCode(code) && sign->contextMenuPolicy() != Qt::PreventContextMenu) {
            popUp(*sign, code, static_cast<QContextMenuEvent*>(event)->globalPos());
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

/// Does what a left click on the sign does; for a cell of the display, what the sign's palette key does.
void SignMenu::insert(QWidget& sign, const std::string& code)
{
    if (auto* const key = qobject_cast<SignButton*>(&sign)) {
        key->click();
    } else {
        desktop_.handle([&] { desktop_.session().palette().pressCode(code); });
    }
}

void SignMenu::popUp(QWidget& sign, const std::string& code, const QPoint& at)
{
    auto* const menu = new QMenu(QApplication::activeWindow());
    menu->setObjectName(QStringLiteral("signMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const QString caption = qtext(signCaption(code));
    menu->addSection(caption);
    menu->setMinimumWidth(menu->fontMetrics().horizontalAdvance(caption) +
                          40);  // a section does not widen its menu
    QAction* const insertItem = menu->addAction(QStringLiteral("&Inserisci"));
    QAction* const copy = menu->addAction(QStringLiteral("&Copia"));
    QAction* const usedIn = menu->addAction(QStringLiteral("&Usato in ..."));
    copy->setEnabled(SignRepertoire::standard().byCode(code) != nullptr);
    connect(insertItem, &QAction::triggered, &sign, [this, &sign, code] { insert(sign, code); });
    connect(copy, &QAction::triggered, this, [this, code] { copyPhrase(desktop_.session(), code); });
    connect(usedIn, &QAction::triggered, this,
            [this, code] { windows_.open<Voci>().list(Mode::Contains, code); });
    menu->popup(at);
}

}  // namespace karvel
