// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXTransfer.h"

#include <pthread.h>
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <exception>
#include <random>
#include <thread>
#include <utility>
#include <vector>

#include "jx/core/JXLogger.h"
#include "jx/core/transfer/JXCurlTransport.h"
#include "jx/core/transfer/JXTransferLoop.h"
#include "jx/core/transfer/JXTransferMailbox.h"

namespace jx {
namespace {

using SteadyTime = std::chrono::steady_clock::time_point;
using std::chrono::milliseconds;

// Limits a wait so that a sum with the clock's time cannot overflow.
constexpr milliseconds kMaxWait = std::chrono::hours(24 * 365);

// Longest wait of the thread after two failed iterations in a row.
constexpr milliseconds kDelayAfterFailures{1'000};

milliseconds bounded(milliseconds wait) { return std::clamp(wait, milliseconds::zero(), kMaxWait); }

JXTransferSetup completed(JXTransferSetup setup) {
  if (!setup.steadyNow) setup.steadyNow = [] { return std::chrono::steady_clock::now(); };
  if (!setup.draw) {
    setup.draw = [random = std::mt19937(std::random_device()())]() mutable {
      return std::uniform_real_distribution<double>(0.0, 1.0)(random);
    };
  }
  if (!setup.transport) {
    JXHttpOptions options;
    options.caFile = setup.caFile;
    options.pinnedPublicKeys = setup.pinnedPublicKeys;
    options.proxy = setup.proxy;
    options.userAgent = setup.httpUserAgent;
    options.connectTimeout = setup.timings.connectTimeout;
    options.requestTimeout = setup.timings.requestTimeout;
    setup.transport = std::make_shared<JXCurlTransport>(options);
  }
  return setup;
}

// Blocks signals on the transfer thread: the application handles them on its own threads, and a
// peer that closes during a write (SIGPIPE) does not end the process. Signals for errors of the
// thread itself, such as SIGSEGV, stay deliverable.
class SignalsBlocked {
 public:
  SignalsBlocked() {
    sigset_t all;
    sigfillset(&all);
    for (const int signal : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT, SIGTRAP, SIGSYS}) {
      sigdelset(&all, signal);
    }
    pthread_sigmask(SIG_SETMASK, &all, &before_);
  }
  ~SignalsBlocked() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
  SignalsBlocked(const SignalsBlocked&) = delete;
  SignalsBlocked& operator=(const SignalsBlocked&) = delete;

 private:
  sigset_t before_;
};

}  // namespace

// State shared by the owner and the thread. The thread co-owns it, so that it stays valid for a
// thread that was abandoned at a stop.
class JXTransfer::Engine {
 public:
  explicit Engine(JXTransferSetup setup)
      : setup_(completed(std::move(setup))),
        outbox_(setup_.outbox),
        transport_(setup_.transport),
        mailbox_([transport = transport_.get()] { transport->wakeUp(); }),
        loop_(std::make_unique<JXTransferLoop>(setup_)) {}

  JXTransferSetup setup_;
  const std::shared_ptr<JXOutbox> outbox_;
  std::shared_ptr<JXHttpTransport> transport_;
  JXTransferMailbox mailbox_;
  std::unique_ptr<JXTransferLoop> loop_;

  std::thread thread_;
  std::atomic<std::thread::id> threadId_{};
  const pid_t process_ = getpid();

  // Guards the members below; while it is locked, only the outbox is called.
  std::mutex mutex_;
  std::condition_variable changed_;
  bool ended_ = false;
  bool abandoned_ = false;
  bool stopped_ = false;  // stop() was called
  std::atomic<int> flushing_{0};

  void run() noexcept {
    threadId_.store(std::this_thread::get_id());
    while (runOnce()) {
    }
    end();
  }
  bool isOnThread() const { return threadId_.load() == std::this_thread::get_id(); }
  bool queueIsEmpty() const { return outbox_->counters().queued == 0; }
  // Otherwise the last owner would close curl's connections on the abandoned thread.
  static void keepForever(std::shared_ptr<Engine> engine) {
    static std::mutex mutex;
    static auto* const kept = new std::vector<std::shared_ptr<Engine>>();
    const std::lock_guard<std::mutex> lock(mutex);
    kept->push_back(std::move(engine));
  }
  void notifyFlushers() {
    // They wait only for the empty queue; waking them per request would cost more than sending it.
    if (flushing_.load() == 0 || !queueIsEmpty()) return;
    const std::lock_guard<std::mutex> lock(mutex_);
    changed_.notify_all();
  }

 private:
  // Returns false when the thread must end.
  bool runOnce() noexcept {
    try {
      const JXTransferCommands commands = mailbox_.readCommands();
      if (commands.stop) return false;
      loop_->apply(commands, mailbox_.readAdded());
      const JXTransferWait wait = loop_->act();
      notifyFlushers();
      if (isAbandoned()) return false;
      const bool mayWait = mailbox_.prepareToSleep(wait.ignoresAdditions);
      std::vector<JXHttpResult> results = loop_->poll(wait, mayWait);
      mailbox_.awake();
      if (isAbandoned()) return false;
      loop_->complete(std::move(results));
      hasFailed_ = false;
    } catch (const std::exception& error) {
      if (!recover(error.what())) return false;
    } catch (...) {
      if (!recover("unknown error")) return false;
    }
    notifyFlushers();
    return true;
  }

  // Returns false when the thread was abandoned and must not use the transport any more.
  bool recover(const char* error) noexcept {
    mailbox_.awake();
    if (isAbandoned()) return false;
    loop_->recover(error);
    // Without this delay, a transport that fails in every `poll` would keep the thread busy.
    if (std::exchange(hasFailed_, true)) {
      std::unique_lock<std::mutex> lock(mutex_);
      changed_.wait_for(lock, kDelayAfterFailures, [this] { return stopped_; });
    }
    return true;
  }

  bool isAbandoned() noexcept {
    const std::lock_guard<std::mutex> lock(mutex_);
    return abandoned_;
  }

  bool hasFailed_ = false;  // the last iteration ended with an exception

  void end() noexcept {
    // Too late: the process may be exiting, with curl's libraries already cleaned up.
    if (isAbandoned()) return;
    try {
      loop_->end();
    } catch (...) {
      // The requests are in the outbox anyway.
    }
    const std::lock_guard<std::mutex> lock(mutex_);
    ended_ = true;
    changed_.notify_all();
  }
};

JXTransfer::JXTransfer(JXTransferSetup setup)
    : engine_(std::make_shared<Engine>(std::move(setup))) {}

void JXTransfer::start() {
  if (engine_->thread_.joinable()) return;
  const SignalsBlocked blockedInTheNewThread;
  engine_->thread_ = std::thread([engine = engine_] { engine->run(); });
}

JXTransfer::~JXTransfer() { stop(kStopLimit); }

void JXTransfer::enqueue(std::string_view url, std::string_view body) {
  if (engine_->outbox_->add(url, body)) {
    engine_->mailbox_.notifyAdded();
  } else if (engine_->setup_.onDelivery) {
    engine_->mailbox_.send([](JXTransferCommands& commands) { ++commands.rejectedByQueue; });
  }
}

void JXTransfer::storageChanged() {
  engine_->mailbox_.send([](JXTransferCommands& commands) { ++commands.storageChanges; });
}

void JXTransfer::setDisabled(bool disabled) {
  engine_->mailbox_.send([disabled](JXTransferCommands& commands) {
    commands.disabled = disabled;
    ++commands.decisions;
  });
}

void JXTransfer::setInBackground(bool inBackground) {
  engine_->mailbox_.send(
      [inBackground](JXTransferCommands& commands) { commands.inBackground = inBackground; });
}

void JXTransfer::pauseForUserAgent() {
  const SteadyTime until =
      engine_->setup_.steadyNow() + bounded(engine_->setup_.timings.userAgentWait);
  engine_->mailbox_.send([until](JXTransferCommands& commands) { commands.pausedUntil = until; });
}

void JXTransfer::userAgentKnown() {
  engine_->mailbox_.send([](JXTransferCommands& commands) { commands.pausedUntil.reset(); });
}

bool JXTransfer::flush(milliseconds deadline) {
  // The deadline uses the real clock, because the application waits, not the plan.
  const SteadyTime until = std::chrono::steady_clock::now() + bounded(deadline);
  if (engine_->queueIsEmpty()) return true;
  if (engine_->isOnThread()) return false;
  ++engine_->flushing_;
  engine_->mailbox_.send([](JXTransferCommands& commands) { ++commands.flushes; });
  std::unique_lock<std::mutex> lock(engine_->mutex_);
  const bool empty =
      engine_->changed_.wait_until(lock, until, [this] { return engine_->queueIsEmpty(); });
  --engine_->flushing_;
  return empty;
}

void JXTransfer::purge() {
  engine_->outbox_->purge();
  engine_->mailbox_.send([](JXTransferCommands& commands) { ++commands.purges; });
  engine_->notifyFlushers();
}

JXDeliveryCounters JXTransfer::counters() const {
  const JXTransferCommands commands = engine_->mailbox_.commands();
  JXDeliveryCounters counters;
  counters.outbox = engine_->outbox_->counters();
  counters.attempts = engine_->loop_->attempts();
  counters.failures = engine_->loop_->failures();
  counters.paused = commands.disabled || commands.inBackground ||
                    (commands.pausedUntil && engine_->setup_.steadyNow() < *commands.pausedUntil);
  return counters;
}

bool JXTransfer::stop(milliseconds limit) {
  // In a forked child the thread does not exist, and its locks may stay locked forever.
  if (getpid() != engine_->process_) return false;
  const SteadyTime until = std::chrono::steady_clock::now() + bounded(limit);
  engine_->mailbox_.send([](JXTransferCommands& commands) { commands.stop = true; });
  {
    std::unique_lock<std::mutex> lock(engine_->mutex_);
    if (engine_->stopped_) return engine_->ended_;
    engine_->stopped_ = true;
    engine_->changed_.notify_all();
    if (!engine_->thread_.joinable()) engine_->ended_ = true;  // it was never started
    if (!engine_->isOnThread())
      engine_->changed_.wait_until(lock, until, [this] { return engine_->ended_; });
    engine_->abandoned_ = !engine_->ended_;
  }
  if (!engine_->thread_.joinable()) return true;
  if (!engine_->abandoned_) {
    engine_->thread_.join();
    return true;
  }
  engine_->thread_.detach();
  engine_->keepForever(engine_);
  return false;
}

}  // namespace jx
