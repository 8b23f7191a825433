#include "windows/support/WindowSet.hpp"

#include "windows/ItalianWindow.hpp"
#include "windows/LetturaWindow.hpp"
#include "windows/MagnifierWindow.hpp"
#include "windows/PictureWindow.hpp"

namespace karvel {

bool WindowSet::mayLeave() const
{
    auto* const reading = opened<Lettura>();
    return reading == nullptr || reading->mayClose();
}

void WindowSet::openItalian()
{
    open<italiano>().fill();
}

void WindowSet::openPicture(const std::string& path, const std::string& name)
{
    imm1* window = opened<imm1>();
    if (window == nullptr) {
        window = new imm1(*desktop_, mainWindow_);
    }
    window->showPicture(path, name);
    window->show();
    window->raise();
}

void WindowSet::closePicture()
{
    if (auto* const picture = opened<imm1>()) {
        picture->close();
    }
}

void WindowSet::raiseMagnifier()
{
    if (auto* const magnifier = opened<Ingrandimento>()) {
        bringUp(*magnifier);
    }
}

}  // namespace karvel
