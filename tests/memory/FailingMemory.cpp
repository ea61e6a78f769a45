// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/memory/FailingMemory.h"

#include <cstdlib>
#include <new>

namespace jx::test {
namespace {

thread_local bool isActive = false;
thread_local bool failsLater = false;
thread_local std::size_t left = 0;
thread_local std::size_t failures = 0;

bool fails() noexcept {
  if (!isActive) return false;
  if (left != 0) {
    --left;
    return false;
  }
  return ++failures == 1 || failsLater;
}

void* tryToAllocate(std::size_t size) noexcept {
  return fails() ? nullptr : std::malloc(size != 0 ? size : 1);
}

void* allocate(std::size_t size) {
  void* const memory = tryToAllocate(size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace

FailingMemory::FailingMemory(std::size_t succeeding, Failing failing) noexcept {
  left = succeeding;
  failures = 0;
  failsLater = failing == Failing::AllLater;
  isActive = true;
}

FailingMemory::~FailingMemory() { isActive = false; }

bool FailingMemory::hasFailed() const noexcept { return failures != 0; }

}  // namespace jx::test

void* operator new(std::size_t size) { return jx::test::allocate(size); }
void* operator new[](std::size_t size) { return jx::test::allocate(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return jx::test::tryToAllocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return jx::test::tryToAllocate(size);
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
