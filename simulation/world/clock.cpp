#include "world/clock.h"

#include <algorithm>
#include <condition_variable>
#include <map>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

#include "world/faults.h"

namespace orvane::simulation {
namespace {

// What happens at one moment goes by the order in which it was asked for.
struct Moment {
  std::int64_t atMs;
  std::uint64_t order;
  auto operator<=>(const Moment&) const = default;
};

// A thread that waits for the baton.
struct Waiter {
  std::condition_variable turn;
  bool hasBaton = false;
};

thread_local int threadOrdinal = 0;
thread_local bool isInEvent = false;

}  // namespace

struct Clock::State {
  Clock* owner;
  std::mutex mutex;
  std::int64_t nowMs = 0;
  std::uint64_t nextOrder = 0;
  int threadCount = 1;
  std::map<Moment, std::function<void()>> events;
  std::map<Moment, Waiter*> waiters;

  // Lets time pass on the calling thread, which holds the baton, until a thread is due: events by
  // then run here. Null when no thread waits.
  Waiter* nextTurn() {
    while (true) {
      std::unique_lock lock(mutex);
      if (waiters.empty()) return nullptr;
      const auto waiter = waiters.begin();
      const auto event = events.begin();
      if (event != events.end() && event->first.atMs <= waiter->first.atMs) {
        runEvent(lock);
        continue;
      }
      nowMs = std::max(nowMs, waiter->first.atMs);
      Waiter* next = waiter->second;
      waiters.erase(waiter);
      return next;
    }
  }

  void runEvent(std::unique_lock<std::mutex>& lock) {
    auto event = events.extract(events.begin());
    nowMs = std::max(nowMs, event.key().atMs);
    lock.unlock();
    isInEvent = true;
    event.mapped()();
    isInEvent = false;
  }

  void handBatonTo(Waiter& waiter) {
    std::lock_guard lock(mutex);
    waiter.hasBaton = true;
    waiter.turn.notify_one();
  }

  void awaitBaton(Waiter& waiter) {
    std::unique_lock lock(mutex);
    waiter.turn.wait(lock, [&waiter] { return waiter.hasBaton; });
  }

  void enlist(Waiter& waiter, std::int64_t wakeMs) {
    std::lock_guard lock(mutex);
    waiters.emplace(Moment{wakeMs, nextOrder++}, &waiter);
  }
};

namespace {

// Threads may still wait in a clock when the process ends, so none is ever freed.
template <typename State>
void keepForever(State* state) {
  static auto* const kept = new std::vector<State*>;
  static auto* const guard = new std::mutex;
  std::lock_guard lock(*guard);
  kept->push_back(state);
}

}  // namespace

Clock::Clock() : state_(new State) {
  state_->owner = this;
  keepForever(state_);
  threadOrdinal = 0;
}

std::int64_t Clock::nowMs() const {
  std::lock_guard lock(state_->mutex);
  return state_->nowMs;
}

void Clock::schedule(std::int64_t atMs, std::function<void()> act) {
  std::lock_guard lock(state_->mutex);
  state_->events.emplace(Moment{std::max(atMs, state_->nowMs), state_->nextOrder++}, std::move(act));
}

bool Clock::runDueEvents() {
  bool hasRun = false;
  std::unique_lock lock(state_->mutex);
  while (!state_->events.empty() && state_->events.begin()->first.atMs <= state_->nowMs) {
    state_->runEvent(lock);
    lock.lock();
    hasRun = true;
  }
  return hasRun;
}

void Clock::sleep(std::int64_t ms) {
  if (isInEvent) stopRun("Clock::sleep", "what happens in the world at one moment can't wait");
  Waiter self;
  state_->enlist(self, nowMs() + std::max<std::int64_t>(ms, 0));
  Waiter* next = state_->nextTurn();
  if (next == &self) return;
  state_->handBatonTo(*next);
  state_->awaitBaton(self);
}

int Clock::startThread(std::function<void()> body) {
  State* state = state_;
  const int ordinal = state->threadCount++;
  auto* self = new Waiter;
  state->enlist(*self, nowMs());
  std::thread([state, self, ordinal, body = std::move(body)] {
    threadOrdinal = ordinal;
    state->awaitBaton(*self);
    delete self;
    body();
    if (Waiter* next = state->nextTurn()) state->handBatonTo(*next);
  }).detach();
  return ordinal;
}

int Clock::currentThread() { return threadOrdinal; }

}  // namespace orvane::simulation
