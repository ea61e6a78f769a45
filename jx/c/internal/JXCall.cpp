// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/c/internal/JXCall.h"

#include <array>
#include <cstring>
#include <string_view>

#include "jx/core/JXForkedChild.h"
#include "jx/core/JXLogger.h"
#include "jx/core/json/JXJsonReader.h"
#include "jx/core/json/JXJsonWriter.h"
#include "jx/core/json/JXUtf8.h"

namespace jx::c {
namespace {

// Has no destructor: an application may call the library during thread or process termination.
thread_local std::array<char, 256> detailOfThread{};

void keepDetail(std::string_view detail) noexcept {
  // Truncates between characters.
  const std::string_view beginning = detail.substr(0, detailOfThread.size() - 1);
  const std::size_t length =
      beginning.size() < detail.size() ? utf8PrefixLength(beginning) : beginning.size();
  std::memcpy(detailOfThread.data(), beginning.data(), length);
  detailOfThread[length] = '\0';
}

bool isExpectedResult(jx_status status) {
  return status == JX_ERROR_TOO_SMALL || status == JX_ERROR_TIMED_OUT ||
         status == JX_ERROR_NOT_SET || status == JX_ERROR_INCOMPLETE;
}

}  // namespace

bool isIgnored(const char* operation) noexcept {
  if (!JXForkedChild::ignores(operation)) return false;
  keepDetail("called in a forked child process; ignored");
  return true;
}

jx_status report(const char* operation, const Result& result) noexcept {
  if (result.status == JX_OK) return JX_OK;
  try {
    // Stored first, because that needs no memory.
    const std::string_view stored =
        result.detail.empty() ? std::string_view(jx_status_string(result.status)) : result.detail;
    keepDetail(stored);
    if (!isExpectedResult(result.status)) {
      const std::string detail(stored);
      JXLogger::sharedInstance().logMessage_withLevel(std::string(operation) + ": " + detail, 3);
    }
  } catch (...) {
    // Out of memory for the message: the status is still returned.
    JXLogger::sharedInstance().logMessage_withLevel(operation, 3);
  }
  return result.status;
}

const char* latestDetail() noexcept { return detailOfThread.data(); }

Result end(void* handle, JXHandleKind kind) {
  if (handle == nullptr) return JX_OK;
  // Ends the object after the lock is released.
  std::shared_ptr<void> object;
  return JXHandles::sharedInstance().remove(handle, kind, object);
}

Result copyOut(const std::string& text, char* buffer, std::size_t capacity, std::size_t* length) {
  if (buffer == nullptr && capacity != 0) return JX_ERROR_NULL_ARGUMENT;
  if (length != nullptr) *length = text.size();
  if (capacity > text.size()) {
    std::memcpy(buffer, text.c_str(), text.size() + 1);
    return JX_OK;
  }
  if (capacity != 0) *buffer = '\0';
  return JX_ERROR_TOO_SMALL;
}

Result readJson(const char* json, JXJsonValue& value) {
  if (json == nullptr) {
    value = JXJsonValue();
    return JX_OK;
  }
  JXJsonReading reading = JXJsonReader::read(json);
  if (!reading.error.empty()) {
    return {
        JX_ERROR_INVALID_JSON,
        "invalid JSON at byte " + std::to_string(reading.errorOffset + 1) + ": " + reading.error};
  }
  value = std::move(reading.value);
  return JX_OK;
}

std::string jsonText(const JXJsonValue& value) {
  // The writer writes only objects, so the value is extracted from one.
  JXJsonObject wrapper;
  wrapper.set("v", value);
  const std::string text = JXJsonWriter::write(wrapper, JXJsonStyle::Compact).text;
  constexpr std::size_t kBefore = sizeof(R"({"v":)") - 1;
  // A value that is too large for the writer is omitted with its key.
  return text.size() > kBefore ? text.substr(kBefore, text.size() - kBefore - 1) : "null";
}

std::string quoted(const char* name) {
  return name != nullptr ? '"' + withReplacementCharacters(name) + '"' : "null";
}

}  // namespace jx::c
