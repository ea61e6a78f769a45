// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "bench/AllocationCount.h"

#include <cstdlib>
#include <new>

// The C library's functions, which the functions below replace. Their memory is still freed by the
// C library's free.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
}

namespace {

thread_local std::uint64_t allocations = 0;
thread_local std::uint64_t mallocs = 0;

}  // namespace

std::uint64_t jx::bench::allocationsOfThisThread() { return allocations; }
std::uint64_t jx::bench::mallocsOfThisThread() { return mallocs; }

// The C library's headers use other parameter names.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
extern "C" void* malloc(std::size_t size) noexcept {
  ++mallocs;
  return __libc_malloc(size);
}

extern "C" void* calloc(std::size_t count, std::size_t size) noexcept {
  ++mallocs;
  return __libc_calloc(count, size);
}

extern "C" void* realloc(void* block, std::size_t size) noexcept {
  ++mallocs;
  return __libc_realloc(block, size);
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)

void* operator new(std::size_t size) {
  ++allocations;
  if (void* const block = std::malloc(size)) return block;
  throw std::bad_alloc();
}

void operator delete(void* block) noexcept { std::free(block); }

void operator delete(void* block, std::size_t) noexcept { std::free(block); }
