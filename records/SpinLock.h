#pragma once

#include <atomic>
#include <thread>

namespace qv {

/// A lock for moments. Needs no construction at run time and no destruction, unlike std::mutex on some
/// platforms, so it works before and after the life of static objects.
class SpinLock {
 public:
  void lock() noexcept {
    while (taken_.exchange(true, std::memory_order_acquire)) WaitUntilFree();
  }
  void unlock() noexcept { taken_.store(false, std::memory_order_release); }

 private:
  void WaitUntilFree() const noexcept {
    // The holder may have lost its processor; ours is better spent on it than on waiting.
    for (int tries = 0; taken_.load(std::memory_order_relaxed); ++tries) {
      if (tries >= 64) std::this_thread::yield();
    }
  }

  std::atomic<bool> taken_{false};
};

}  // namespace qv
