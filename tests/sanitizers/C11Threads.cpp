// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// The thread sanitizer knows the threads, mutexes and conditions of POSIX, but not those of C11,
// which librdkafka uses: a thread that thrd_create starts crashes. These functions replace those of
// the C library, which implements both with the same objects.
#include <pthread.h>
#include <threads.h>

#include <cerrno>
#include <cstdint>
#include <memory>

namespace {

static_assert(sizeof(mtx_t) == sizeof(pthread_mutex_t) && sizeof(cnd_t) == sizeof(pthread_cond_t));

pthread_mutex_t* posix(mtx_t* mutex) { return reinterpret_cast<pthread_mutex_t*>(mutex); }
pthread_cond_t* posix(cnd_t* condition) { return reinterpret_cast<pthread_cond_t*>(condition); }

int resultOf(int error) {
  if (error == 0) return thrd_success;
  return error == ETIMEDOUT ? thrd_timedout : thrd_error;
}

struct Start {
  thrd_start_t function;
  void* argument;
};

void* run(void* start) {
  const Start copy = *std::unique_ptr<Start>(static_cast<Start*>(start));
  return reinterpret_cast<void*>(static_cast<std::intptr_t>(copy.function(copy.argument)));
}

}  // namespace

extern "C" {

int thrd_create(thrd_t* thread, thrd_start_t function, void* argument) {
  auto start = std::make_unique<Start>(Start{function, argument});
  const int error = pthread_create(thread, nullptr, run, start.get());
  if (error == 0) static_cast<void>(start.release());  // deleted by the thread
  return resultOf(error);
}

int thrd_join(thrd_t thread, int* result) {
  void* returned = nullptr;
  const int error = pthread_join(thread, &returned);
  if (result != nullptr) *result = static_cast<int>(reinterpret_cast<std::intptr_t>(returned));
  return resultOf(error);
}

int mtx_init(mtx_t* mutex, int type) {
  pthread_mutexattr_t attributes;
  pthread_mutexattr_init(&attributes);
  const bool isRecursive = (type & mtx_recursive) != 0;
  pthread_mutexattr_settype(&attributes,
                            isRecursive ? PTHREAD_MUTEX_RECURSIVE : PTHREAD_MUTEX_NORMAL);
  const int error = pthread_mutex_init(posix(mutex), &attributes);
  pthread_mutexattr_destroy(&attributes);
  return resultOf(error);
}

int mtx_lock(mtx_t* mutex) { return resultOf(pthread_mutex_lock(posix(mutex))); }
int mtx_unlock(mtx_t* mutex) { return resultOf(pthread_mutex_unlock(posix(mutex))); }
void mtx_destroy(mtx_t* mutex) { pthread_mutex_destroy(posix(mutex)); }

int cnd_init(cnd_t* condition) { return resultOf(pthread_cond_init(posix(condition), nullptr)); }
int cnd_signal(cnd_t* condition) { return resultOf(pthread_cond_signal(posix(condition))); }
int cnd_broadcast(cnd_t* condition) { return resultOf(pthread_cond_broadcast(posix(condition))); }
void cnd_destroy(cnd_t* condition) { pthread_cond_destroy(posix(condition)); }

int cnd_wait(cnd_t* condition, mtx_t* mutex) {
  return resultOf(pthread_cond_wait(posix(condition), posix(mutex)));
}

int cnd_timedwait(cnd_t* condition, mtx_t* mutex, const timespec* time) {
  return resultOf(pthread_cond_timedwait(posix(condition), posix(mutex), time));
}

}  // extern "C"
