// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

#include "BlockingHttpClient.h"
#include "jx/core/transfer/JXHttpTransport.h"

/// Sends the library's requests with a blocking HTTP client, one after the other, on a worker
/// thread, which is enough for one host. The library's thread only exchanges requests and results
/// with it, so it never blocks.
class WorkerTransport final : public jx::JXHttpTransport {
 public:
  /// Sends one request and returns its response. Called on the worker thread.
  using Post = std::function<HttpResponse(const std::string& url, const std::string& body)>;

  explicit WorkerTransport(Post post);
  /// Waits for the request that is being sent. Not called once the library uses the transport.
  ~WorkerTransport() override;
  WorkerTransport(const WorkerTransport&) = delete;
  WorkerTransport& operator=(const WorkerTransport&) = delete;

  void start(jx::JXHttpRequest request) override;
  std::vector<jx::JXHttpResult> poll(std::optional<std::chrono::milliseconds> timeout) override;
  void wakeUp() noexcept override;
  void abortAll() noexcept override;
  /// Begins no further request. The one that the client is sending cannot be interrupted.
  void suspend() noexcept override;
  void resume() noexcept override;

 private:
  void work();
  jx::JXHttpResult send(jx::JXHttpRequest request) const;

  const Post post_;
  std::mutex mutex_;  // guards the members below; not locked while a request is being sent
  std::condition_variable requested_;
  std::condition_variable changed_;
  std::deque<jx::JXHttpRequest> waiting_;
  std::vector<jx::JXHttpResult> results_;
  std::uint64_t aborts_ = 0;  // a result of a request from before an abort is discarded
  bool woken_ = false;
  bool suspended_ = false;
  bool stopping_ = false;
  std::thread worker_;  // last, because it uses the other members
};
