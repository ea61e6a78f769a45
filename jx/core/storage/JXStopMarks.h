// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "jx/platform/JXConcat.h"

namespace jx {

/// A recorded stop of one source: its requests with a smaller number of stops must not be sent
/// until it is enabled.
struct JXStopMark {
  std::uint32_t source = 0;  ///< see JXSendFilter::sourceOf
  std::uint16_t stops = 0;
};

/// The files of an outbox folder that record stops, so that they outlive the process: one file
/// "stopped-" and the source in hexadecimal for each stopped source, which contains the number of
/// stops. A file that cannot be read counts as a stop of all requests.
///
/// The files are written and removed by a thread that ends when it has no more work, because the
/// caller must not wait for the disk and the transfer thread may be waiting for it. Thread-safe;
/// create it with std::make_shared. A failure is logged once per cause; the next process then does
/// not know the decision.
class JXStopMarks : public std::enable_shared_from_this<JXStopMarks> {
 public:
  /// The number of stops in the mark of a damaged file.
  static constexpr std::uint16_t kAllStops = 0xFFFF;

  /// With an empty folder name, nothing is read or written. If `mayStore` is false, nothing is
  /// before `beginStoring`.
  explicit JXStopMarks(std::string folder, bool mayStore = true)
      : folder_(std::move(folder)), mayStore_(mayStore && !folder_.empty()) {}
  void beginStoring() { mayStore_ = !folder_.empty(); }
  bool mayStore() const { return mayStore_; }

  /// Returns the marks in the folder. Blocks until the disk has read them. `isComplete` receives
  /// false if the folder cannot be read: any source may have a mark.
  std::vector<JXStopMark> read(bool& isComplete) const;
  std::vector<JXStopMark> read() const {
    bool ignored = false;
    return read(ignored);
  }
  /// Begins to write the mark, or to remove it if its `stops` is 0. Does not wait for the disk.
  void set(const JXStopMark& mark);
  /// Waits until the marks are set, so that they survive a killed process, or `limit` has passed.
  /// They become durable across a power loss soon afterwards.
  void wait(std::chrono::milliseconds limit);

  /// The name of the file of a source.
  static std::string nameOf(std::uint32_t source);

 private:
  void run() noexcept;
  void setAndSync();
  void setNext(std::unique_lock<std::mutex>& lock);
  void syncAll(std::unique_lock<std::mutex>& lock);
  int write(const JXStopMark& mark) const;
  int sync(std::uint32_t source) const;
  std::string pathOf(std::uint32_t source) const { return concat({folder_, "/", nameOf(source)}); }
  void report(const JXStopMark& mark, int error);

  const std::string folder_;
  std::atomic<bool> mayStore_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::map<std::uint32_t, std::uint16_t> pending_;  ///< stops by source
  std::set<std::uint32_t> unsynced_;
  bool hasThread_ = false;  ///< a thread sets the pending marks
  bool isSyncing_ = false;  ///< a thread that has set marks makes them durable
  int loggedError_ = 0;
};

}  // namespace jx
