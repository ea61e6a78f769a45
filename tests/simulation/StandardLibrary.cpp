// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/simulation/StandardLibrary.h"

#include <pthread.h>

#include <memory>
#include <random>
#include <thread>
#include <utility>
#include <vector>

namespace jx::simulation {
namespace {

Random* source = nullptr;

std::vector<std::unique_ptr<std::thread::_State>>& created() {
  static std::vector<std::unique_ptr<std::thread::_State>> threads;
  return threads;
}

}  // namespace

void drawFrom(Random* random) { source = random; }

void runThreads() {
  while (!created().empty()) {
    const auto threads = std::exchange(created(), {});
    for (const auto& thread : threads)
      thread->_M_run();
  }
}

}  // namespace jx::simulation

// NOLINTBEGIN(cert-dcl58-cpp): replaces functions of the shared library in this program.

std::random_device::result_type std::random_device::_M_getval() {
  return static_cast<result_type>(jx::simulation::source->next());
}

void std::thread::_M_start_thread(_State_ptr state, void (*)()) {
  jx::simulation::created().push_back(std::move(state));
  _M_id = id(::pthread_self());
}

void std::thread::detach() { _M_id = id(); }

// NOLINTEND(cert-dcl58-cpp)
