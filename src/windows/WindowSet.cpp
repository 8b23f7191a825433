#include "windows/WindowSet.hpp"

<<<<<<< HEAD
#include "windows/MagnifierWindow.hpp"
=======
#include "windows/ItalianWindow.hpp"
>>>>>>> 5021a75 (Show the windows for insertion, Italian search, translated words, alphabet and numerals)
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
