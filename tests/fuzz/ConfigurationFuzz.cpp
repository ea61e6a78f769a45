// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "jx/c/jx_configuration.h"
#include "jx/core/JXCoreConfiguration.h"
#include "tests/fuzz/Fuzz.h"
#include "tests/fuzz/SteppedDelivery.h"

namespace jx::fuzz {
namespace {

using std::chrono::milliseconds;

// Numbers at which arithmetic may overflow, zero, and those of the input.
std::uint64_t numberFrom(Input& input) {
  constexpr std::array<std::uint64_t, 6> kNumbers{0, 1, UINT64_MAX, INT64_MAX, 1ULL << 63, 1'000};
  const std::uint8_t choice = input.byte() % 8u;
  return choice < kNumbers.size() ? kNumbers[choice] : input.number(choice == 6 ? 8 : 2);
}

struct Strings {
  std::array<std::optional<std::string>, 9> values;
  std::vector<std::optional<std::string>> keys;
  std::vector<const char*> keyPointers;

  const char* at(std::size_t i) const { return values[i] ? values[i]->c_str() : nullptr; }
};

std::optional<std::string> stringFrom(Input& input) {
  const std::uint8_t length = input.byte();
  if (length % 8 == 7) return std::nullopt;
  const std::string_view bytes = input.bytes(length % 32u);
  return std::string(bytes.substr(0, bytes.find('\0')));
}

Strings stringsFrom(Input& input) {
  Strings strings;
  for (std::optional<std::string>& value : strings.values)
    value = stringFrom(input);
  strings.keys.resize(input.byte() % 4u);
  for (std::optional<std::string>& key : strings.keys)
    key = stringFrom(input);
  for (const std::optional<std::string>& key : strings.keys)
    strings.keyPointers.push_back(key ? key->c_str() : nullptr);
  return strings;
}

void fill(jx_configuration& c, Input& input, const Strings& strings) {
  const std::uint8_t flags = input.byte();
  c.stores_only_with_consent = (flags & 1) != 0;
  c.dry_run = (flags & 2) != 0;
  c.sends_queue_to_current_host = (flags & 4) != 0;
  c.storage_folder = strings.at(0);
  c.collection_host = strings.at(1);
  c.ca_file = strings.at(2);
  c.proxy = strings.at(3);
  c.bundle_identifier = strings.at(4);
  c.bundle_name = strings.at(5);
  c.bundle_version = strings.at(6);
  c.bundle_short_version = strings.at(7);
  c.user_agent = strings.at(8);
  c.pinned_public_keys = (flags & 8) != 0 ? nullptr : strings.keyPointers.data();
  c.pinned_public_key_count = strings.keyPointers.size();
  for (std::uint64_t* const number :
       {&c.max_requests, &c.max_bytes, &c.max_dead_letters, &c.max_in_memory}) {
    if ((input.byte() & 1) != 0) *number = numberFrom(input);
  }
  for (std::int64_t* const number :
       {&c.max_age_ms, &c.initial_backoff_ms, &c.max_backoff_ms, &c.max_retry_after_ms,
        &c.connect_timeout_ms, &c.request_timeout_ms, &c.sync_delay_ms, &c.user_agent_wait_ms}) {
    if ((input.byte() & 1) != 0) *number = static_cast<std::int64_t>(numberFrom(input));
  }
  const std::uint64_t width = input.number(8);
  std::memcpy(&c.screen_width, &width, sizeof width);
  c.log_level = 0;
}

void requireString(const JXString& found, const char* expected) {
  require(found == JXString(expected), "a string is copied", found.view(),
          expected != nullptr ? expected : "null");
}

void checkCopied(const JXCoreConfiguration& found, const jx_configuration& c) {
  requireString(found.storageFolder, c.storage_folder);
  requireString(found.collectionHost, c.collection_host);
  requireString(found.caFile, c.ca_file);
  requireString(found.proxy, c.proxy);
  requireString(found.bundle.identifier, c.bundle_identifier);
  requireString(found.bundle.name, c.bundle_name);
  requireString(found.userAgent, c.user_agent);
  require(found.pinnedPublicKeys.size() == c.pinned_public_key_count,
          "no key is omitted, which could disable pinning");
  require(found.outboxBounds.maxBytes == c.max_bytes, "a limit is copied");
  require(found.outboxBounds.maxAge.count() == c.max_age_ms, "an age is copied");
  require(found.retryTimings.maxRetryAfter.count() == c.max_retry_after_ms, "a delay is copied");
  require(found.dryRun == c.dry_run, "a Boolean is copied");
}

// Configures the library, which never starts here, and returns the resulting configuration.
JXCoreConfiguration configured(Input& input) {
  jx_configuration c;
  std::memset(&c, 0xA5, sizeof c);
  const std::size_t wrong = numberFrom(input);
  const bool isKnown =
      wrong > sizeof(std::size_t) && wrong <= sizeof c && wrong % alignof(jx_configuration) == 0;
  require(jx_configuration_init(&c, isKnown ? 0 : wrong) == JX_ERROR_STRUCT_SIZE,
          "a struct of another size is rejected");
  require(jx_configuration_init(&c, sizeof c) == JX_OK, "a struct is initialised");
  require(jx_configure(&c) == JX_OK, "the defaults are a configuration");
  const Strings strings = stringsFrom(input);
  fill(c, input, strings);
  const bool hasKeys = c.pinned_public_keys != nullptr || c.pinned_public_key_count == 0;
  // A program that was built with an earlier version has fewer fields.
  const bool isOld = (input.byte() & 1) != 0;
  if (isOld) c.struct_size = offsetof(jx_configuration, dry_run);
  const jx_status status = jx_configure(&c);
  require(status == (hasKeys ? JX_OK : JX_ERROR_NULL_ARGUMENT), "any values are accepted");
  if (isOld) c.dry_run = false;
  if (isOld) c.bundle_identifier = c.bundle_name = c.user_agent = nullptr;
  JXCoreConfiguration result = JXCoreConfiguration::current();
  if (hasKeys) checkCopied(result, c);
  return result;
}

void setResponse(SteppedTransport& transport, Input& input) {
  constexpr std::array<int, 8> kStatuses{200, 204, 302, 400, 429, 500, 503, 0};
  constexpr std::array<const char*, 6> kRetryAfters{
      nullptr, "0", "5", "99999999999999999999", "Sun, 06 Nov 2094 08:49:37 GMT", "soon"};
  const std::uint8_t form = input.byte();
  const int status = kStatuses[form % kStatuses.size()];
  const auto any = static_cast<std::int32_t>(input.number((form & 8) != 0 ? 4 : 0));
  transport.outcome = {(form & 8) != 0 ? any : status, (form & 16) != 0};
  transport.retryAfter = kRetryAfters[input.byte() % kRetryAfters.size()];
  transport.date = (form & 32) != 0 ? JXString("Sun, 06 Nov 1994 08:49:37 GMT") : JXString();
}

void perform(SteppedDelivery& delivery, Input& input) {
  constexpr std::int64_t kMaxStepMs = 40LL * 24 * 60 * 60 * 1'000;
  switch (input.byte() % 9) {
    case 0: {
      const std::uint8_t host = input.byte();
      return delivery.add(host, input.byte());
    }
    case 1:
      return setResponse(delivery.transport(), input);
    case 2:
      return delivery.advance(milliseconds(input.number(5) % kMaxStepMs));
    case 3:
      return delivery.setClock(static_cast<std::int64_t>(numberFrom(input)));
    case 4:
      ++delivery.commands().flushes;
      return;
    case 5:
      delivery.commands().inBackground = (input.byte() & 1) != 0;
      return;
    case 6:
      delivery.commands().pausedUntil = delivery.now() + milliseconds(input.number(3));
      return;
    case 7:
      return delivery.purge();
    default:
      const std::uint8_t form = input.byte();
      delivery.transport().throws = form % 4 == 1;
      delivery.transport().repeats = form % 4 == 2;
      delivery.transport().responds = form % 4 != 3;
  }
}

void check(Input input) {
  const JXCoreConfiguration configuration = configured(input);
  const std::string box = scratchFolder() + "/outbox";
  std::filesystem::remove_all(box);
  SteppedDelivery delivery(box, configuration, input.byte() / 256.0);
  constexpr std::size_t kMaxOperations = 64;
  for (std::size_t i = 0; i < kMaxOperations && !input.isEmpty(); ++i) {
    perform(delivery, input);
    delivery.step();
  }
  delivery.drain();
}

}  // namespace
}  // namespace jx::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  jx::fuzz::silenceLog();
  jx::fuzz::check({data, size});
  return 0;
}
