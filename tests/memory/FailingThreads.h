// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace jx::test {

/// Makes the creation of each std::thread fail with EAGAIN while it exists. This program replaces
/// the function of the standard library.
class FailingThreads {
 public:
  FailingThreads() noexcept;
  ~FailingThreads();
  FailingThreads(const FailingThreads&) = delete;
  FailingThreads& operator=(const FailingThreads&) = delete;

  int failures() const noexcept;
};

}  // namespace jx::test
