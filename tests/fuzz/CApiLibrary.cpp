// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/fuzz/CApiLibrary.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "jx/c/jx.h"
#include "jx/core/JXCoreConfiguration.h"
#include "jx/core/json/JXJsonReader.h"
#include "jx/core/json/JXUtf8.h"
#include "tests/fuzz/Fuzz.h"

namespace jx::fuzz {
namespace {

// Accepts each request at once.
class Transport final : public JXHttpTransport {
 public:
  void start(JXHttpRequest request) override {
    JXHttpResult result;
    result.outcome.status = 200;
    result.request = std::move(request);
    results_.push_back(std::move(result));
  }
  std::vector<JXHttpResult> poll(std::optional<std::chrono::milliseconds> timeout) override {
    std::unique_lock<std::mutex> lock(mutex_);
    const auto isAwake = [this] { return isAwake_ || !results_.empty(); };
    if (timeout) {
      changed_.wait_for(lock, std::min(*timeout, std::chrono::milliseconds(3'600'000)), isAwake);
    } else {
      changed_.wait(lock, isAwake);
    }
    isAwake_ = false;
    return std::exchange(results_, {});
  }
  void wakeUp() noexcept override {
    const std::lock_guard<std::mutex> lock(mutex_);
    isAwake_ = true;
    changed_.notify_all();
  }
  void abortAll() noexcept override { results_.clear(); }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  bool isAwake_ = false;
  std::vector<JXHttpResult> results_;  // of the transfer thread
};

void onLog(void*, int32_t level, const char* message) {
  require(level >= 1 && level <= 6 && message != nullptr, "a log message has a level and a text");
}

void onDelivery(void*, const jx_delivery* delivery) {
  require(delivery->outcome <= JX_OUTCOME_DROPPED, "a delivery has an outcome");
  require((delivery->reason == nullptr) == (delivery->outcome == JX_OUTCOME_DELIVERED),
          "exactly a failure has a reason");
}

}  // namespace

void configureLibrary() {
  static const bool isConfigured = [] {
    static const std::string folder = scratchFolder() + "/state";
    JXCoreConfiguration cpp;
    cpp.transport = std::make_shared<Transport>();
    require(JXCoreConfiguration::set(cpp), "the library can be configured");
    jx_configuration c;
    jx_configuration_init(&c, sizeof c);
    c.storage_folder = folder.c_str();
    c.log_sink = onLog;
    c.log_level = 6;
    c.max_requests = 50;
    c.sync_delay_ms = 100;
    c.on_delivery = onDelivery;
    c.clock = [](void*) -> int64_t { return clockMs.load(); };
    require(jx_configure(&c) == JX_OK, "the library can be configured from C");
    return true;
  }();
  require(isConfigured, "the library is configured");
}

void onNotification(void*, const char* name, const char* info) {
  require(name != nullptr, "a notification has a name");
  if (info == nullptr) return;
  const JXJsonObject object = JXJsonReader::read(info).value.object();
  require(object.isPresent(), "the data of a notification is a JSON object", info, {});
  const JXString body = object.get("JXUserInfo: POST Data").string();
  if (!body.isPresent() || isPosting) return;
  require(isUtf8(body.view()) && JXJsonReader::read(body.view()).value.object().isPresent(),
          "a request contains a JSON object", body.view(), {});
}

void onFirebase(void*, const char*, const char* json) {
  require(json != nullptr, "a Firebase call has a value");
}

}  // namespace jx::fuzz
