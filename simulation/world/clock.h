#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace orvane::simulation {

// Virtual time, in milliseconds from 0. Nothing but a wait takes time. Simulated threads are real
// threads that hand one baton around: exactly one of them runs, and time moves when all wait.
//
// At one moment of virtual time the order is: world events in the order in which they were
// scheduled, then waking threads in the order in which they went to sleep.
class Clock {
 public:
  Clock();            // the constructing thread becomes the first simulated thread and holds the baton
  ~Clock() = delete;  // lives as long as the process: threads may still wait in it at the end

  std::int64_t nowMs() const;

  // Runs `act` once at `atMs` (at once in its turn if that has passed), on whichever thread waits.
  void schedule(std::int64_t atMs, std::function<void()> act);

  // Runs the events that are due by now, without a wait. False when there is none.
  bool runDueEvents();

  // The calling simulated thread waits; events and other threads due by then have their turn.
  // A wait of 0 lets what is due now happen.
  void sleep(std::int64_t ms);

  // Starts a simulated thread, which first runs when the present one waits.
  // Returns the thread's ordinal: the first thread is 0.
  int startThread(std::function<void()> body);

  // Ordinal of the calling simulated thread.
  static int currentThread();

 private:
  struct State;
  State* state_;
};

}  // namespace orvane::simulation
