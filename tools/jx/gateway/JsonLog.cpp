// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/JsonLog.h"

#include <unistd.h>

#include <cerrno>
#include <string>

#include "tools/jx/collector/JsonOut.h"
#include "tools/jx/collector/WallClock.h"
#include "tools/jx/gateway/UtcTime.h"

namespace jx {
namespace {

const char* nameOf(JsonLog::Level level) {
  switch (level) {
    case JsonLog::Level::Error:
      return "error";
    case JsonLog::Level::Warning:
      return "warning";
    case JsonLog::Level::Info:
      break;
  }
  return "info";
}

}  // namespace

void JsonLog::write(Level level, std::string_view event, std::initializer_list<Field> fields) {
  if (level > level_) return;
  JsonOut out;
  out.beginObject();
  out.member("time", utcTime(wallClockMs())).member("level", nameOf(level)).member("event", event);
  for (const Field& field : fields) {
    out.key(field.key);
    std::visit([&out](const auto& value) { out.value(value); }, field.value);
  }
  const std::string line = out.endObject().text() + "\n";
  const std::lock_guard lock(mutex_);
  std::string_view rest = line;
  while (!rest.empty()) {
    const ssize_t written = ::write(::fileno(file_), rest.data(), rest.size());
    if (written < 0 && errno != EINTR) return;
    if (written > 0) rest.remove_prefix(static_cast<std::size_t>(written));
  }
}

}  // namespace jx
