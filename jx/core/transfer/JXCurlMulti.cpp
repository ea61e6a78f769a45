// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXCurlMulti.h"

#include <curl/curl.h>

#include <algorithm>
#include <climits>
#include <stdexcept>
#include <thread>
#include <utility>

#include "jx/core/transfer/JXCurlLibrary.h"

#if LIBCURL_VERSION_NUM < 0x074400
#error "libcurl must be 7.68 or later: curl_multi_wakeup is required"
#endif

namespace jx {
namespace {

using std::chrono::milliseconds;

constexpr long kMaxConnectionsToHost = 4;

// Returns null if memory or descriptors are exhausted.
CURLM* newMulti() {
  CURLM* const multi = curl_multi_init();
  // Fails if libcurl could not open the descriptors with which `wakeUp` ends a `wait`. Ends the
  // first `wait` early.
  if (curl_multi_wakeup(multi) != CURLM_OK) {
    curl_multi_cleanup(multi);
    return nullptr;
  }
  curl_multi_setopt(multi, CURLMOPT_PIPELINING, CURLPIPE_MULTIPLEX);
  curl_multi_setopt(multi, CURLMOPT_MAX_TOTAL_CONNECTIONS, JXCurlMulti::kMaxConnections);
  curl_multi_setopt(multi, CURLMOPT_MAX_HOST_CONNECTIONS, kMaxConnectionsToHost);
  curl_multi_setopt(multi, CURLMOPT_MAXCONNECTS, JXCurlMulti::kMaxConnections);
  return multi;
}

}  // namespace

JXCurlMulti::~JXCurlMulti() { curl_multi_cleanup(handle_); }

void JXCurlMulti::open() {
  if (handle_ != nullptr) return;
  JXCurlLibrary::initialise();
  CURLM* const multi = newMulti();
  if (multi == nullptr) throw std::runtime_error("out of memory or file descriptors");
  const std::lock_guard<std::mutex> lock(mutex_);
  handle_ = multi;
}

// A kept connection whose socket was shut down is dead, but libcurl may use it for a request, which
// then waits until its time is over. No operation closes the kept connections of a handle.
void JXCurlMulti::closeConnections() noexcept {
  if (handle_ == nullptr) return;
  CURLM* const fresh = newMulti();
  if (fresh == nullptr) return;
  CURLM* previous = nullptr;
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    previous = std::exchange(handle_, fresh);
  }
  curl_multi_cleanup(previous);
}

void JXCurlMulti::wait(std::optional<milliseconds> timeout) {
  const milliseconds longest =
      std::min(timeout.value_or(milliseconds::max()), milliseconds(INT_MAX));
  if (handle_ == nullptr) {
    std::unique_lock<std::mutex> lock(mutex_);
    woken_.wait_for(lock, longest, [this] { return isWoken_; });
    isWoken_ = false;
    return;
  }
  const int wait = static_cast<int>(longest.count());
  if (curl_multi_poll(handle_, nullptr, 0, wait, nullptr) != CURLM_OK) {
    // Out of memory or descriptors: without this delay the caller would loop without waiting.
    std::this_thread::sleep_for(milliseconds(std::min(wait, 1'000)));
  }
}

void JXCurlMulti::wakeUp() noexcept {
  const std::lock_guard<std::mutex> lock(mutex_);
  if (handle_ != nullptr) {
    curl_multi_wakeup(handle_);
  } else {
    isWoken_ = true;
    woken_.notify_one();
  }
}

}  // namespace jx
