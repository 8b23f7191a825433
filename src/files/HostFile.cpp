#include "files/HostFile.hpp"

#include <chrono>
#include <thread>

namespace karvel {

bool HostFile::writtenSinceOpened() const
{
    constexpr std::chrono::milliseconds kPause(10);
    constexpr int kPauses = 100;
    for (int pause = 0; pause < kPauses && size() == end_; ++pause) {
        if (tryLockForReading()) {
            unlock();
            break;
        }
        std::this_thread::sleep_for(kPause);
    }
    return size() != end_;
}

}  // namespace karvel
