// Work spread over all cores whose results are taken one by one, in order, and without more of them
// waiting than a few for each core. No state between calls.
#pragma once

#include <algorithm>
#include <condition_variable>
#include <cstdint>
#include <exception>
#include <map>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace simrec {

/// One call of inOrder(), below. Shared by its threads.
template <typename Item, typename Result, typename Next, typename Alone, typename Work,
          typename Take>
class OrderedWork {
 public:
  OrderedWork(Next& next, Alone& alone, Work& work, Take& take)
      : next_(next), alone_(alone), work_(work), take_(take) {}

  void run(unsigned int cores) {
    window_ = 4 * std::uint64_t{cores};
    std::vector<std::thread> others;
    try {
      for (unsigned int i = 1; i < cores; ++i) others.emplace_back([this] { workOrFail(); });
    } catch (const std::system_error&) {
      // As many as there may be.
    }
    workOrFail();
    for (std::thread& other : others) other.join();
    if (failure_) std::rethrow_exception(failure_);
  }

 private:
  void workOrFail() {
    try {
      while (workOnNext()) {
      }
    } catch (...) {
      fail();
    }
  }

  /// Ends it all with the exception that is being handled.
  void fail() {
    const std::lock_guard<std::mutex> lock(state_);
    if (!failure_) failure_ = std::current_exception();
    changed_.notify_all();
  }

  /// None, too, where it failed: nobody asks for another one then.
  std::optional<Item> nextOrFail() {
    try {
      return next_();
    } catch (...) {
      fail();
      return std::nullopt;
    }
  }

  /// False when there is nothing more to do.
  bool workOnNext() {
    std::unique_lock<std::mutex> source(source_);
    if (!waitFor([this] { return begun_ < taken_ + window_; })) return false;
    std::optional<Item> item = nextOrFail();
    if (!item) return false;
    const std::uint64_t index = begun_++;
    const bool alone = alone_(*item);
    if (!alone) {
      source.unlock();
    } else if (!waitFor([&] { return taken_ == index; })) {
      return false;
    }
    put(index, work_(*item));
    return true;
  }

  template <typename Ready>
  bool waitFor(Ready ready) {
    std::unique_lock<std::mutex> lock(state_);
    changed_.wait(lock, [&] { return failure_ || ready(); });
    return !failure_;
  }

  /// Who finds that the next one is there takes it and all that follow.
  void put(std::uint64_t index, Result result) {
    std::unique_lock<std::mutex> lock(state_);
    waiting_.emplace(index, std::move(result));
    if (taking_) return;
    taking_ = true;
    for (auto first = waiting_.begin();
         first != waiting_.end() && first->first == taken_ && !failure_; first = waiting_.begin()) {
      auto node = waiting_.extract(first);
      lock.unlock();
      take_(node.mapped());
      lock.lock();
      ++taken_;
      changed_.notify_all();
    }
    taking_ = false;
  }

  Next& next_;
  Alone& alone_;
  Work& work_;
  Take& take_;
  std::uint64_t window_ = 0;

  std::mutex source_;  // guards next_; held all the way by who works alone
  std::uint64_t begun_ = 0;

  std::mutex state_;  // guards the rest
  std::condition_variable changed_;
  std::map<std::uint64_t, Result> waiting_;
  std::uint64_t taken_ = 0;
  bool taking_ = false;
  std::exception_ptr failure_;
};

/// Until `next()`, an optional item, has none: `work(item)` on several threads, `take(result)` in
/// the order of the items. Neither `next` nor `take` is called by two threads at once. An item that
/// is `alone(item)` is worked on while no other is worked on or waits. What one of them throws ends
/// it all and is thrown here.
template <typename Next, typename Alone, typename Work, typename Take>
void inOrder(Next next, Alone alone, Work work, Take take,
             unsigned int cores = std::max(1U, std::thread::hardware_concurrency())) {
  using Item = typename decltype(next())::value_type;
  using Result = decltype(work(std::declval<Item&>()));
  OrderedWork<Item, Result, Next, Alone, Work, Take>(next, alone, work, take).run(cores);
}

}  // namespace simrec
