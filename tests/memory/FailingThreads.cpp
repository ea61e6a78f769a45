// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/memory/FailingThreads.h"

#include <pthread.h>

#include <atomic>
#include <cerrno>
#include <memory>
#include <system_error>
#include <thread>

namespace jx::test {
namespace {

std::atomic<bool> isActive{false};
std::atomic<int> failed{0};

void* runThread(void* state) {
  const std::unique_ptr<std::thread::_State> owner(static_cast<std::thread::_State*>(state));
  owner->_M_run();
  return nullptr;
}

int createThread(pthread_t& thread, std::thread::_State* state) {
  if (!isActive) return ::pthread_create(&thread, nullptr, runThread, state);
  ++failed;
  return EAGAIN;
}

}  // namespace

FailingThreads::FailingThreads() noexcept {
  failed = 0;
  isActive = true;
}

FailingThreads::~FailingThreads() { isActive = false; }

int FailingThreads::failures() const noexcept { return failed; }

}  // namespace jx::test

// NOLINTNEXTLINE(cert-dcl58-cpp): replaces a function of the shared library in this program.
void std::thread::_M_start_thread(_State_ptr state, void (*)()) {
  const int error = jx::test::createThread(_M_id._M_thread, state.get());
  if (error != 0) throw std::system_error(error, std::generic_category());
  state.release();
}
