// The tests of the windows: real widgets, clicks, keys and files. Each run is one class of tests:
//   window_tests NAME [arguments of Qt Test]
#include <map>

#include "windows/support/Stage.hpp"

namespace karvel::testing {

namespace {

using Make = std::function<std::unique_ptr<QObject>()>;

std::map<std::string, Make>& known()
{
    static std::map<std::string, Make> tests;
    return tests;
}

}  // namespace

int registerTests(const char* name, Make make)
{
    known()[name] = std::move(make);
    return 0;
}

}  // namespace karvel::testing

int main(int argc, char** argv)
{
    const auto wanted = karvel::testing::known().find(argc > 1 ? argv[1] : "");
    if (wanted == karvel::testing::known().end()) {
        for (const auto& [name, make] : karvel::testing::known()) {
            qInfo("%s", name.c_str());
        }
        return 2;
    }
    QApplication application(argc, argv);
    // A dialog of the system has no fields of ours to type into.
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication::setQuitOnLastWindowClosed(false);
    return QTest::qExec(wanted->second().get(), argc - 1, argv + 1);
}
