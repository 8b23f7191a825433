// Karvel as it is, with a probe that ends it at its first painted frame.
#include <QCoreApplication>

#include "StartProbe.hpp"
#include "windows/Application.hpp"

namespace {

void watchTheStart()
{
    qApp->installEventFilter(new StartProbe);
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(watchTheStart)

int main(int argc, char** argv)
{
    return karvel::runApplication(argc, argv);
}
