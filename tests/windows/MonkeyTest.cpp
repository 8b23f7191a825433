#include <QApplication>
#include <QDesktopServices>
#include <QRegularExpression>
#include <QTest>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include "base/SignCode.hpp"
#include "windows/monkey/Monkey.hpp"
#include "windows/support/Resources.hpp"
#include "windows/support/Theme.hpp"

using namespace karvel;
using namespace karvel::testing;

namespace {

std::uint64_t number(const char* variable, std::uint64_t otherwise)
{
    bool good = false;
    const auto given = qEnvironmentVariable(variable).toULongLong(&good);
    return good ? given : otherwise;
}

/// The class of every window that the sources declare, so that a new one is not forgotten here.
std::set<std::string> windowClasses()
{
    std::set<std::string> found;
    const QRegularExpression declared(QStringLiteral("class (\\w+) : public Q(Dialog|MainWindow)\\b"));
    for (const auto& file : std::filesystem::directory_iterator(KARVEL_SOURCE_DIR "/src/windows")) {
        if (file.path().extension() != ".hpp") {
            continue;
        }
        std::ifstream source(file.path());
        const auto text = QString::fromStdString({std::istreambuf_iterator<char>(source), {}});
        for (auto at = declared.globalMatch(text); at.hasNext();) {
            found.insert(at.next().captured(1).toStdString());
        }
    }
    return found;
}

void print(const char* what, const Monkey::Counts& counts)
{
    std::printf("%s\n", what);
    for (const auto& [name, count] : counts) {
        std::printf("    %6d  %s\n", count, name.c_str());
    }
}

/// Entries that show a picture, one for each sign: few are met by chance among thousands.
std::string entriesWithPictures()
{
    std::string entries;
    for (std::size_t page = 1; page <= kPages; ++page) {
        for (std::size_t key = 0; key < kKeys; ++key) {
            entries +=
                record(signCode(page, key), "immagine", "", key % 3 == 0 ? "*manca.gif" : "*GR\\a01.gif");
        }
    }
    return entries;
}

/// The program's looks without what fades, blinks or waits: how far such a thing has come depends on the
/// machine, and the same seed shall meet the same controls.
class Still : public Style {
  public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override
    {
        switch (hint) {
            case SH_Widget_Animation_Duration:
            case SH_Widget_Animate:
            case SH_Menu_SubMenuPopupDelay:
                return 0;
            default:
                return Style::styleHint(hint, option, widget, data);
        }
    }
};

}  // namespace

class MonkeyTest : public QObject {
    Q_OBJECT

  public:
    explicit MonkeyTest(Household& household) : household_(household) {}

  public slots:
    void openLink(const QUrl& link) { opened_.push_back(link); }

  private slots:
    void drivesEveryWindow();

  private:
    Household& household_;
    QList<QUrl> opened_;
};

void MonkeyTest::drivesEveryWindow()
{
    constexpr std::uint64_t kEnough = 20000;
    const auto seed = number("KARVEL_MONKEY_SEED", 1);
    const auto events = number("KARVEL_MONKEY_EVENTS", kEnough);
    std::printf("seed %llu, %llu events\n", static_cast<unsigned long long>(seed),
                static_cast<unsigned long long>(events));
    constexpr const char* kSchemes[] = {"http", "https", "mailto", "file"};
    for (const char* const scheme : kSchemes) {
        QDesktopServices::setUrlHandler(QLatin1String(scheme), this, "openLink");
    }
    Monkey monkey(seed, events, household_);
    monkey.play();
    for (const char* const scheme : kSchemes) {
        QDesktopServices::unsetUrlHandler(QLatin1String(scheme));
    }

    print("windows", monkey.windows());
    print("actions", monkey.actions());
    print("boxes", monkey.boxes());
    print("controls", monkey.controls());
    std::printf("%llu events survived in %d runs, %lld links opened\n",
                static_cast<unsigned long long>(monkey.events()), monkey.runs(),
                static_cast<long long>(opened_.size()));
    std::fflush(stdout);
    std::string broken = monkey.broken();
    try {
        broken = broken.empty() ? household_.brokenAtTheEnd() : broken;
    } catch (const RuntimeError& error) {
        broken = "the files cannot be looked at: " + std::string(error.text());
    } catch (const std::exception& error) {
        broken = std::string("the files cannot be looked at: ") + error.what();
    }
    if (!broken.empty()) {
        monkey.tell();
    }
    QVERIFY2(broken.empty(), broken.c_str());
    if (events >= kEnough) {
        for (const std::string& window : windowClasses()) {
            QVERIFY2(monkey.windows().contains(window), (window + " was never reached").c_str());
        }
    }
}

int main(int argc, char** argv)
{
    qputenv("QT_HASH_SEED", "0");
    qputenv("QTEST_FUNCTION_TIMEOUT", "3600000");  // a hang is found by its own watch
    Household household(entriesWithPictures());
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Karvel"));
    QApplication::setStyle(new Still);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setCursorFlashTime(0);
    initialiseResources();
    MonkeyTest test(household);
    return QTest::qExec(&test, argc, argv);
}

#include "MonkeyTest.moc"
