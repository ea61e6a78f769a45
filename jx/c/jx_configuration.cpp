// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/c/jx_configuration.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <limits>
#include <memory>
#include <string>

#include "jx/c/internal/JXCall.h"
#include "jx/core/JXCoreConfiguration.h"
#include "jx/core/JXLogger.h"

namespace {

using jx::c::Result;
using std::chrono::milliseconds;

class CClock final : public jx::JXClock {
 public:
  CClock(jx_clock clock, void* context) : clock_(clock), context_(context) {}
  std::int64_t nowMs() const override { return clock_(context_); }

 private:
  jx_clock clock_;
  void* context_;
};

struct ToC {
  void operator()(uint64_t& c, uint64_t cpp) const { c = cpp; }
  void operator()(int64_t& c, milliseconds cpp) const { c = cpp.count(); }
};

struct ToCpp {
  template <typename Size>
  void operator()(uint64_t c, Size& cpp) const {
    // std::size_t may be narrower than the C type.
    cpp = static_cast<Size>(std::min<uint64_t>(c, std::numeric_limits<Size>::max()));
  }
  void operator()(int64_t c, milliseconds& cpp) const { cpp = milliseconds(c); }
};

// Copies the limits and timings in one direction.
template <typename Copy, typename C, typename Cpp>
void copyNumbers(const Copy& copy, C& c, Cpp& cpp) {
  auto& bounds = cpp.outboxBounds;
  copy(c.max_requests, bounds.maxRequests);
  copy(c.max_bytes, bounds.maxBytes);
  copy(c.max_age_ms, bounds.maxAge);
  copy(c.max_dead_letters, bounds.maxDeadLetters);
  copy(c.max_in_memory, bounds.maxInMemory);
  auto& timings = cpp.retryTimings;
  copy(c.initial_backoff_ms, timings.initialBackoff);
  copy(c.max_backoff_ms, timings.maxBackoff);
  copy(c.max_retry_after_ms, timings.maxRetryAfter);
  copy(c.connect_timeout_ms, timings.connectTimeout);
  copy(c.request_timeout_ms, timings.requestTimeout);
  copy(c.sync_delay_ms, timings.syncDelay);
  copy(c.user_agent_wait_ms, timings.userAgentWait);
}

jx_configuration defaults() {
  const jx::JXCoreConfiguration standard;
  jx_configuration c = {};
  c.struct_size = sizeof c;
  c.log_level = standard.logLevel;
  copyNumbers(ToC(), c, standard);
  return c;
}

jx_delivery inC(const jx::JXDelivery& delivery) {
  jx_delivery c = {};
  c.outcome = static_cast<jx_outcome>(delivery.outcome);
  c.event_id = delivery.eventId.isPresent() ? delivery.eventId.c_str() : nullptr;
  c.status = delivery.status;
  c.reason = delivery.reason.isPresent() ? delivery.reason.c_str() : nullptr;
  c.drop_reason = static_cast<jx_drop_reason>(delivery.dropReason);
  return c;
}

void readCallbacks(const jx_configuration& c, jx::JXCoreConfiguration& configuration) {
  configuration.logSink = nullptr;
  if (c.log_sink != nullptr) {
    configuration.logSink = [sink = c.log_sink, context = c.log_sink_context](
                                int level, std::string_view message) {
      sink(context, level, std::string(message).c_str());
    };
  }
  configuration.onDelivery = nullptr;
  if (c.on_delivery != nullptr) {
    configuration.onDelivery = [callback = c.on_delivery,
                                context = c.on_delivery_context](const jx::JXDelivery& delivery) {
      const jx_delivery converted = inC(delivery);
      callback(context, &converted);
    };
  }
  configuration.clock.reset();
  if (c.clock != nullptr) configuration.clock = std::make_shared<CClock>(c.clock, c.clock_context);
}

Result read(const jx_configuration& c, jx::JXCoreConfiguration& configuration) {
  configuration.storageFolder = c.storage_folder;
  configuration.storesOnlyWithConsent = c.stores_only_with_consent;
  configuration.collectionHost = c.collection_host;
  configuration.sendsQueueToCurrentHost = c.sends_queue_to_current_host;
  configuration.caFile = c.ca_file;
  configuration.pinnedPublicKeys.clear();
  if (c.pinned_public_keys == nullptr && c.pinned_public_key_count != 0) {
    return {JX_ERROR_NULL_ARGUMENT, "pinned_public_keys must not be null"};
  }
  for (size_t i = 0; i < c.pinned_public_key_count; ++i) {
    // Omitting a null key could disable pinning. An empty string is logged and matches no key.
    const char* const key = c.pinned_public_keys[i];
    configuration.pinnedPublicKeys.emplace_back(key != nullptr ? key : "");
  }
  configuration.proxy = c.proxy;
  configuration.logLevel = c.log_level;
  copyNumbers(ToCpp(), c, configuration);
  configuration.dryRun = c.dry_run;
  configuration.bundle = {c.bundle_identifier, c.bundle_name, c.bundle_version,
                          c.bundle_short_version};
  configuration.screen = {c.screen_width, c.screen_height};
  configuration.userAgent = c.user_agent;
  readCallbacks(c, configuration);
  return JX_OK;
}

}  // namespace

jx_status jx_configuration_init(jx_configuration* configuration, size_t struct_size) {
  return jx::c::call(__func__, [&]() -> Result {
    if (configuration == nullptr) return JX_ERROR_NULL_ARGUMENT;
    if (!jx::c::isKnownSize<jx_configuration>(struct_size)) return JX_ERROR_STRUCT_SIZE;
    jx_configuration filled = defaults();
    filled.struct_size = struct_size;
    std::memcpy(configuration, &filled, struct_size);
    return JX_OK;
  });
}

jx_status jx_configure(const jx_configuration* configuration) {
  return jx::c::call(__func__, [&]() -> Result {
    if (configuration == nullptr) return JX_ERROR_NULL_ARGUMENT;
    if (!jx::c::isKnownSize<jx_configuration>(configuration->struct_size)) {
      return JX_ERROR_STRUCT_SIZE;
    }
    // Fields that an older program does not have keep their defaults.
    jx_configuration complete = defaults();
    std::memcpy(&complete, configuration, configuration->struct_size);
    jx::JXCoreConfiguration wanted = jx::JXCoreConfiguration::current();
    Result result = read(complete, wanted);
    if (result.status != JX_OK) return result;
    return jx::JXCoreConfiguration::set(wanted) ? JX_OK : JX_ERROR_TOO_LATE;
  });
}

void jx_set_log_level(int32_t level) { jx::JXLogger::sharedInstance().setMaxLevel(level); }
