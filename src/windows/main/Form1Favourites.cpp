#include <QApplication>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

#include "windows/FavouritesDialogs.hpp"
#include "windows/main/Form1.hpp"
#include "windows/signs/SignButton.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

namespace {

// Logical pixels.
constexpr int kSide = 56;  // of a favourite
constexpr int kSmallestSide = 24;
constexpr int kSmallKey = 34;
constexpr int kGap = 4;

/// The sign that the file name of an image stands for.
std::string signOfImage(const std::string& path)
{
    const std::string name = path.substr(path.find_last_of("\\/") + 1);
    return name.substr(0, name.rfind('.'));
}

}  // namespace

QWidget* Form1::favouriteKeys()
{
    FavouritesStrip& favourites = desktop_.session().favourites();
    auto* const strip = new QFrame(centre_);
    strip->setObjectName(QStringLiteral("strip"));
    strip->setAccessibleName(QStringLiteral("preferiti"));
    strip->setFrameShape(QFrame::StyledPanel);
    auto* const layers = new QGridLayout(strip);
    layers->setContentsMargins(2, 2, 2, 2);
    noFavourites_ =
        new QLabel(QStringLiteral("Nessun preferito: F4 inserisce il segno scelto per ultimo"), strip);
    noFavourites_->setToolTip(QStringLiteral("il menu Preferiti mostra le pagine pronte"));
    noFavourites_->setContentsMargins(kGap, 0, kGap, 0);
    layers->addWidget(noFavourites_, 0, 0);
    slots_ = new QWidget(strip);
    layers->addWidget(slots_, 0, 0);
    auto* const keys = new QHBoxLayout(slots_);
    keys->setContentsMargins(0, 0, 0, 0);
    keys->setSpacing(3);
    for (std::size_t i = 0; i < cmd_.size(); ++i) {
        cmd_[i] = new SignButton(desktop_.pictures(), slots_);
        cmd_[i]->setObjectName(element("Cmd", i));
        cmd_[i]->setAccessibleName(QStringLiteral("preferito %1").arg(i + 1));
        cmd_[i]->setMinimumSize(kSmallestSide, kSmallestSide);
        cmd_[i]->setMaximumSize(kSide, kSide);
        cmd_[i]->setContextMenuPolicy(Qt::PreventContextMenu);
        // A hidden button keeps its place, so that the others do not move under the pointer.
        QSizePolicy policy = cmd_[i]->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        cmd_[i]->setSizePolicy(policy);
        cmd_[i]->hide();
        keys->addWidget(cmd_[i]);
        // A favourite acts when it is pressed; a message box may then receive the release.
        connect(cmd_[i], &QAbstractButton::pressed, this, [this, &favourites, i] {
            desktop_.handle([&favourites, i] { favourites.press(i); });
            if (QApplication::mouseButtons() == Qt::NoButton) {
                cmd_[i]->setDown(false);
            }
        });
    }
    return strip;
}

QBoxLayout* Form1::favouritesStrip()
{
    FavouritesStrip& favourites = desktop_.session().favourites();
    const auto made = [this](const char* name, const QString& caption, const QString& tooltip,
                             std::function<void()> handler) {
        QToolButton* const key = button(name, tooltip, std::move(handler));
        key->setText(caption);
        key->setMinimumSize(key->sizeHint().expandedTo({kSmallKey, kSmallKey}));
        return key;
    };
    label2_ = new QLabel(centre_);
    label2_->setObjectName(QStringLiteral("Label2"));
    label2_->setToolTip(QStringLiteral("pagina dei preferiti"));
    panel_ = {
        made("Co3", QStringLiteral("<"), QStringLiteral("Seleziona preferito di sinistra"),
             [&favourites] { favourites.markLeft(); }),
        made("Co2", QStringLiteral(">"), QStringLiteral("Seleziona preferito di destra"),
             [&favourites] { favourites.markRight(); }),
        made("Co4", QStringLiteral("canc"), QStringLiteral("Cancella il preferito selezionato"),
             [&favourites] { favourites.deleteMarked(); }),
        made("Command2", QStringLiteral("tutti"), QStringLiteral("Cancella tutti i preferiti visualizzati"),
             [&favourites] { favourites.deleteAll(); }),
        made("Co5", QString(), QStringLiteral("Chiude questo pannello comandi"),
             [&favourites] { favourites.closePanel(); })};
    symbols_.emplace_back(panel_.back(), Symbol::Cross);

    auto* const row = new QHBoxLayout;
    row->setSpacing(kGap);
    row->addWidget(made("Command5", QStringLiteral("< memoria"),
                        QStringLiteral("pagina precedente dei preferiti"),
                        [&favourites] { favourites.previousPage(); }));
    row->addWidget(favouriteKeys());
    row->addWidget(made("Command6", QStringLiteral("memoria >"),
                        QStringLiteral("pagina seguente dei preferiti"),
                        [&favourites] { favourites.nextPage(); }));
    row->addWidget(label2_);
    row->addSpacing(2 * kGap);
    for (QToolButton* const key : panel_) {
        key->hide();
        row->addWidget(key);
    }
    row->addStretch(1);
    return row;
}

Form1::Menu Form1::favouritesMenu()
{
    Session& session = desktop_.session();
    FavouritesStrip& favourites = session.favourites();
    return {"preferiti",
            QStringLiteral("&Preferiti"),
            {
                {"prefins", QStringLiteral("&Visualizza preferiti"),
                 [&favourites] { favourites.showFirstPage(); }},
                {"inserici", QStringLiteral("&Inserisci preferiti"),
                 [&favourites] { favourites.insertCurrent(); }, QStringLiteral("F4")},
                {"elim", QStringLiteral("&Elimina preferiti"), [&favourites] { favourites.openPanel(); }},
                {"nascondi", QStringLiteral("&Nascondi preferiti"), [&favourites] { favourites.hide(); }},
                {"sep", QStringLiteral("&Load preferiti"),
                 [this, &session, &favourites] { favourites.load(chooseFileToLoad(*this, session)); }},
                {"salva", QStringLiteral("&Save preferiti"),
                 [this, &session, &favourites] { favourites.save(chooseFileToSave(*this, session)); }},
            }};
}

void Form1::showFavourites()
{
    const FavouritesStrip& favourites = desktop_.session().favourites();
    for (std::size_t i = 0; i < cmd_.size(); ++i) {
        const FavouritesStrip::Key& key = favourites.buttons()[i];
        cmd_[i]->setSign(key.picture, signOfImage(key.picture), true);
        cmd_[i]->setText(qtext(key.caption));
        cmd_[i]->setVisible(key.visible);
    }
    slots_->setVisible(!favourites.empty());
    noFavourites_->setVisible(favourites.empty());
    for (QToolButton* const key : panel_) {
        key->setVisible(favourites.panelVisible());
    }
    label2_->setText(qtext(favourites.pageName()));
}

}  // namespace karvel
