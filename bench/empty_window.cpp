// The least that a program with a window of Karvel's size can be: what the start-up of Karvel is compared
// with.
#include <QApplication>

#include "StartProbe.hpp"

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    StartProbe probe;
    application.installEventFilter(&probe);
    QWidget window;
    window.resize(1180, 690);  // the main window on the screen of the measurement
    window.show();
    return QApplication::exec();
}
