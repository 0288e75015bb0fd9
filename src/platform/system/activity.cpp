#include "platform/system/activity.hpp"

#include <atomic>

namespace {

std::atomic<const Activity*> innermost = nullptr;
static_assert(std::atomic<const Activity*>::is_always_lock_free, "a handler of signals reads it");

}  // namespace

Activity::Activity(const char* doing, const char* file)
    : around_(innermost.load(std::memory_order_relaxed)),
      doing_(doing),
      file_(file != nullptr      ? file
            : around_ != nullptr ? around_->file_
                                 : "") {
  innermost.store(this, std::memory_order_release);
}

Activity::~Activity() {
  innermost.store(around_, std::memory_order_release);
}

const Activity* current_activity() {
  return innermost.load(std::memory_order_acquire);
}
