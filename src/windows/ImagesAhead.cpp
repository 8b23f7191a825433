#include "windows/ImagesAhead.hpp"

#include <QFile>
#include <QImageReader>
#include <algorithm>
#include <utility>

#include "base/RuntimeError.hpp"
#include "windows/Text.hpp"

namespace karvel {

namespace {

constexpr int kLargestSide = 8192;  // pixels; a picture beyond that is a mistake, and would eat the memory

}  // namespace

QImage decodedImage(const Drives& drives, const std::string& systemPath)
{
    QString host;
    try {
        host = qtext(utf8Path(drives.toHost(systemPath)));
    } catch (const RuntimeError&) {
        return {};
    }
    QFile file(host);
    // Sequential devices would be waited for.
    if (!file.open(QIODevice::ReadOnly) || file.isSequential()) {
        return {};
    }
    QImageReader reader(&file);
    const QSize size = reader.size();
    if (std::max(size.width(), size.height()) > kLargestSide) {
        return {};
    }
    const QImage image = reader.read();
    return image.isNull() ? image : image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

ImagesAhead::ImagesAhead(Drives drives, std::vector<std::string> systemPaths)
    : drives_(std::move(drives)), waiting_(std::move(systemPaths))
{
    std::ranges::reverse(waiting_);
    thread_ = std::thread([this] { run(); });
}

ImagesAhead::~ImagesAhead()
{
    {
        const std::lock_guard lock(mutex_);
        waiting_.clear();
    }
    thread_.join();
}

void ImagesAhead::run()
{
    std::unique_lock lock(mutex_);
    while (!waiting_.empty()) {
        const std::string path = std::move(waiting_.back());
        waiting_.pop_back();
        now_ = path;
        lock.unlock();
        QImage image = decodedImage(drives_, path);
        lock.lock();
        decoded_.emplace(path, std::move(image));
        now_.clear();
        arrived_.notify_all();
    }
}

std::optional<QImage> ImagesAhead::take(const std::string& systemPath)
{
    std::unique_lock lock(mutex_);
    std::erase(waiting_, systemPath);
    arrived_.wait(lock, [&] { return now_ != systemPath; });
    const auto found = decoded_.extract(systemPath);
    return found.empty() ? std::nullopt : std::optional(found.mapped());
}

}  // namespace karvel
