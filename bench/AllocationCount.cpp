// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "bench/AllocationCount.h"

#include <cstdlib>
#include <new>

namespace {

thread_local std::uint64_t allocations = 0;

}  // namespace

std::uint64_t jx::bench::allocationsOfThisThread() { return allocations; }

void* operator new(std::size_t size) {
  ++allocations;
  if (void* const block = std::malloc(size)) return block;
  throw std::bad_alloc();
}

void operator delete(void* block) noexcept { std::free(block); }

void operator delete(void* block, std::size_t) noexcept { std::free(block); }
