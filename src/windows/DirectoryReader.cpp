#include "windows/DirectoryReader.hpp"

#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace karvel {

/// What the thread and the reader share. `reader` is null after the reading was abandoned.
struct DirectoryReader::Request {
    std::mutex guard;
    DirectoryReader* reader = nullptr;
    Then then;
};

DirectoryReader::DirectoryReader(List list, QObject* parent) : QObject(parent), list_(std::move(list)) {}

DirectoryReader::~DirectoryReader()
{
    if (wanted_) {
        const std::lock_guard lock(wanted_->guard);
        wanted_->reader = nullptr;
    }
}

void DirectoryReader::read(const Drives& drives, const std::string& path, Then then)
{
    abandon();
    const auto request = std::make_shared<Request>();
    request->reader = this;
    request->then = std::move(then);
    wanted_ = request;
    emit changed();
    const auto work = [request, drives, path, list = list_] {
        DirectoryListing listing = list(drives, path);
        const std::lock_guard lock(request->guard);
        if (DirectoryReader* const reader = request->reader) {
            QMetaObject::invokeMethod(
                reader, [reader, request, listing] { reader->finish(request, listing); },
                Qt::QueuedConnection);
        }
    };
    try {
        // The thread is not joined: a drive that hangs would make the program hang when it ends.
        std::thread(work).detach();
    } catch (const std::system_error&) {
        finish(request, {.path = path, .subdirectories = {}});
    }
}

void DirectoryReader::abandon()
{
    if (!wanted_) {
        return;
    }
    {
        const std::lock_guard lock(wanted_->guard);
        wanted_->reader = nullptr;
    }
    wanted_.reset();
    emit changed();
}

void DirectoryReader::finish(const std::shared_ptr<Request>& request, const DirectoryListing& listing)
{
    if (wanted_ != request) {
        return;  // it was abandoned before the answer arrived
    }
    wanted_.reset();
    emit changed();
    request->then(listing);
}

}  // namespace karvel
