#pragma once

#include <QImage>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <unordered_map>
#include <vector>

#include "base/Drives.hpp"

namespace karvel {

/// Reads the image at `systemPath`; null when it cannot be loaded. Any thread may call it.
[[nodiscard]] QImage decodedImage(const Drives& drives, const std::string& systemPath);

/// Decodes images on a thread of its own before they are asked for: what the first window shows is ready when
/// the toolkit is.
class ImagesAhead {
  public:
    /// `systemPaths` in the order in which they will be asked for.
    ImagesAhead(Drives drives, std::vector<std::string> systemPaths);
    ~ImagesAhead();
    ImagesAhead(const ImagesAhead&) = delete;
    ImagesAhead& operator=(const ImagesAhead&) = delete;

    /// The image at `systemPath`, null when it cannot be loaded; it is waited for while it is being decoded.
    /// Nothing when it was not foreseen, was taken already, or is not begun: then it is the caller's to
    /// decode.
    [[nodiscard]] std::optional<QImage> take(const std::string& systemPath);

  private:
    void run();

    Drives drives_;
    std::mutex mutex_;  ///< of the four below
    std::condition_variable arrived_;
    std::vector<std::string> waiting_;  ///< the last one is decoded first
    std::string now_;
    std::unordered_map<std::string, QImage> decoded_;
    std::thread thread_;
};

}  // namespace karvel
