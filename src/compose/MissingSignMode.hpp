#pragma once

namespace karvel {

/// What composing needs to know of the search modes: the missing-sign key switches its search on, and an
/// emptied display switches it off.
class MissingSignMode {
  public:
    virtual ~MissingSignMode() = default;

    [[nodiscard]] virtual bool active() const = 0;
    virtual void activate() = 0;
    virtual void leave() = 0;
};

}  // namespace karvel
