#pragma once

#include <QObject>
#include <functional>
#include <memory>

#include "settings/DirectoryListing.hpp"

namespace karvel {

/// Lists directories on a thread of its own. A reading can be abandoned, so that a drive that does not
/// answer blocks nothing.
class DirectoryReader : public QObject {
    Q_OBJECT

  public:
    using List = std::function<DirectoryListing(const Drives&, const std::string&)>;
    using Then = std::function<void(const DirectoryListing&)>;

    /// `list` does the reading, on a thread of its own.
    explicit DirectoryReader(List list, QObject* parent = nullptr);
    ~DirectoryReader() override;

    /// Reads `path` and calls `then` on the caller's thread; an earlier reading is abandoned.
    void read(const Drives& drives, const std::string& path, Then then);

    /// Abandons the reading: its `then` is never called.
    void abandon();

    [[nodiscard]] bool reading() const { return wanted_ != nullptr; }

  signals:
    /// A reading has begun, ended or been abandoned.
    void changed();

  private:
    struct Request;

    void finish(const std::shared_ptr<Request>& request, const DirectoryListing& listing);

    List list_;
    std::shared_ptr<Request> wanted_;
};

}  // namespace karvel
