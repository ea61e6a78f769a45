// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace jx {

/// The descriptors that the library has open and that a forked child must not keep: an advisory
/// lock is kept as long as any process has the file open, and so is a connection. Uses neither
/// locks nor memory, because a child may only call async-signal-safe functions. Thread-safe.
class JXOwnedDescriptors {
 public:
  /// No process is forked while a change exists, so that no child misses a descriptor between
  /// `open` and `add`, or keeps one between `remove` and `close`. Waits while a fork is in
  /// progress.
  class Change {
   public:
    Change() noexcept;
    ~Change();
    Change(const Change&) = delete;
    Change& operator=(const Change&) = delete;
  };

  /// Records a descriptor that was opened during the same change. `twin` is another descriptor of
  /// the same socket; if it was closed without `remove`, the child does not close it.
  static void add(int descriptor, int twin = -1) noexcept;
  /// Removes a descriptor, and its twin, before it is closed during the same change.
  static void remove(int descriptor) noexcept;

  // The handlers of a fork.

  /// Waits for the changes of other threads, at most 100 ms: an `open` may hang.
  static void beforeFork() noexcept;
  static void afterForkInParent() noexcept;
  /// Closes the recorded descriptors.
  static void closeInForkedChild() noexcept;
};

}  // namespace jx
