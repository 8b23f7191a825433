#pragma once

#include <algorithm>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <unordered_map>
#include <utility>
#include <vector>

namespace karvel {

/// Makes things by their names on a thread of its own, before they are asked for.
template <typename Thing>
class Ahead {
  public:
    /// `names` in the order in which they will be asked for. `make` is called on the other thread.
    Ahead(std::vector<std::string> names, std::function<Thing(const std::string&)> make)
        : make_(std::move(make)), waiting_(std::move(names))
    {
        std::ranges::reverse(waiting_);
        thread_ = std::thread([this] { run(); });
    }

    ~Ahead()
    {
        {
            const std::lock_guard lock(mutex_);
            waiting_.clear();
        }
        thread_.join();
    }

    Ahead(const Ahead&) = delete;
    Ahead& operator=(const Ahead&) = delete;

    /// The thing of this name; it is waited for while it is being made. Nothing when it was not foreseen, was
    /// taken already, or is not begun: then it is the caller's to make.
    [[nodiscard]] std::optional<Thing> take(const std::string& name)
    {
        std::unique_lock lock(mutex_);
        std::erase(waiting_, name);
        arrived_.wait(lock, [&] { return now_ != name; });
        const auto found = made_.extract(name);
        return found.empty() ? std::nullopt : std::optional(std::move(found.mapped()));
    }

  private:
    void run()
    {
        std::unique_lock lock(mutex_);
        while (!waiting_.empty()) {
            now_ = std::move(waiting_.back());
            waiting_.pop_back();
            const std::string name = now_;
            lock.unlock();
            Thing thing = make_(name);
            lock.lock();
            made_.emplace(name, std::move(thing));
            now_.clear();
            arrived_.notify_all();
        }
    }

    std::function<Thing(const std::string&)> make_;
    std::mutex mutex_;  ///< of the four below
    std::condition_variable arrived_;
    std::vector<std::string> waiting_;  ///< the last one is made first
    std::string now_;
    std::unordered_map<std::string, Thing> made_;
    std::thread thread_;
};

}  // namespace karvel
