#include "dictionary/AnswerSearch.hpp"

namespace karvel {

std::unique_ptr<ByteSource> openFollowed(const FileSystem& files, std::string_view path,
                                         ReadingProgress& progress)
{
    return std::make_unique<WatchedSource>(files.open(path),
                                           [&progress](std::uint64_t done, std::uint64_t total) {
                                               progress = {done, total};
                                               return true;
                                           });
}

bool AnswerSearch::read(const std::function<bool()>& pause)
{
    try {
        while (!ended_ && step()) {
            if (pause()) {
                return true;
            }
        }
    } catch (const RuntimeError& error) {
        failure_ = error;
    }
    ended_ = true;
    return false;
}

}  // namespace karvel
