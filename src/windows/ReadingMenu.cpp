#include "windows/ReadingMenu.hpp"

#include "base/SignCode.hpp"
#include "text/PhraseText.hpp"
#include "text/Transliteration.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

namespace {

/// A choice in one line, with its note; "&" is no mark of a key there.
QString line(const ReadingChoice& choice)
{
    QString text =
        qtext(printedTransliteration(choice.transliteration)) + QStringLiteral("  —  ") +
        (choice.translation.empty() ? QStringLiteral("(senza traduzione)") : qtext(choice.translation));
    if (!choice.note.empty()) {
        text += QStringLiteral("   [") + qtext(choice.note) + QLatin1Char(']');
    }
    return text.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

}  // namespace

ReadingMenu::ReadingMenu(const Passage& passage, std::size_t word, QWidget* parent) : QMenu(parent)
{
    setObjectName(QStringLiteral("LetturaMenu"));
    const ReadWord& read = passage.words()[word];
    addChoices(read);
    connect(addAction(QStringLiteral("Altra &lettura...")), &QAction::triggered, this,
            &ReadingMenu::otherWanted);
    addSeparator();
    QAction* const join = addAction(QStringLiteral("&Unisci con la parola seguente"));
    join->setObjectName(QStringLiteral("LetturaUnisci"));
    join->setEnabled(word + 1 < passage.words().size());
    connect(join, &QAction::triggered, this, &ReadingMenu::joinWanted);
    addCuts(passage.codesOf(read));
    QAction* const release = addAction(QStringLiteral("Lascia scegliere a &Karvel"));
    release->setEnabled(read.fixed);
    connect(release, &QAction::triggered, this, &ReadingMenu::releaseWanted);
}

void ReadingMenu::addChoice(const ReadingChoice& choice, bool present)
{
    QAction* const action = addAction(line(choice));
    action->setCheckable(true);
    action->setChecked(present);
    connect(action, &QAction::triggered, this, [this, choice] { emit chosen(choice); });
}

/// The present choice, with a mark, and the alternatives.
void ReadingMenu::addChoices(const ReadWord& word)
{
    if (word.known) {
        addChoice(word.choice, true);
    } else {
        addAction(QStringLiteral("Nessuna parola; valori dei segni: ") + qtext(printedReading(word)))
            ->setEnabled(false);
    }
    for (const ReadingChoice& choice : word.alternatives) {
        addChoice(choice, false);
    }
}

/// "Dividi qui": a submenu with each place between two signs.
void ReadingMenu::addCuts(const std::string& codes)
{
    QMenu* const cuts = addMenu(QStringLiteral("&Dividi qui"));
    cuts->setObjectName(QStringLiteral("LetturaDividi"));
    const std::size_t signs = codes.size() / kCodeLength;
    cuts->setEnabled(signs > 1);
    for (std::size_t after = 1; after < signs; ++after) {
        const std::size_t at = after * kCodeLength;
        QAction* const cut =
            cuts->addAction(qtext(gardinerOf(codes.substr(0, at)) + "  |  " + gardinerOf(codes.substr(at))));
        connect(cut, &QAction::triggered, this, [this, after] { emit cutWanted(after); });
    }
}

}  // namespace karvel
