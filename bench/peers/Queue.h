// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>

namespace jx::bench {

struct QueueOptions {
  std::string folder;  ///< stores the queue; must exist
  std::string host;    ///< "https://" and the address of the server
  std::string caFile;
  std::string body;  ///< the event as JSON; the library ignores it and builds its own
  bool wal = false;  ///< SQLite: write-ahead log and synchronous=NORMAL
};

/// A queue of events and its sender thread. The application calls all operations on one thread.
class Queue {
 public:
  virtual ~Queue() = default;
  /// Serialises an event and queues it. Throws on failure.
  virtual void execute() = 0;
  /// Returns when all events are delivered. Throws std::runtime_error after 2 minutes.
  virtual void flush() = 0;
};

/// Creates the queue of this program: each program contains one implementation. The queue starts
/// with the events that an earlier process left in the folder, if that kind of queue stores any.
std::unique_ptr<Queue> createQueue(const QueueOptions& options);

}  // namespace jx::bench
