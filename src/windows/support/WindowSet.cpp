#include "windows/support/WindowSet.hpp"

#include "windows/ItalianWindow.hpp"
#include "windows/MagnifierWindow.hpp"
#include "windows/PictureWindow.hpp"

namespace karvel {

void WindowSet::openItalian()
{
    open<italiano>().fill();
}

void WindowSet::openPicture(const std::string& path, const std::string& name)
{
    open<imm1>().showPicture(path, name);
}

void WindowSet::raiseMagnifier()
{
    if (auto* const magnifier = opened<Ingrandimento>()) {
        bringUp(*magnifier);
    }
}

}  // namespace karvel
