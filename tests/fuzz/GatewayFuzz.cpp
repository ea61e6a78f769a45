// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <string>
#include <string_view>

#include "tests/fuzz/Fuzz.h"
#include "tools/jx/gateway/GatewayIntake.h"
#include "tools/jx/gateway/HttpReader.h"
#include "tools/jx/gateway/NatsEventLog.h"

namespace jx::fuzz {
namespace {

constexpr std::size_t kMaxHead = 2'048;
constexpr std::size_t kMaxBody = 4'096;

bool isPrintable(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

// Checks what an entry may contain, and stores nothing.
class CheckingLog final : public EventLog {
 public:
  void append(const LogEntry& entry, Stored stored) override {
    require(isPrintable(entry.eventId) && entry.eventId.size() <= 128, "the ID is a header value");
    require(isPrintable(entry.diagnostics), "the diagnostics are a header value");
    require(entry.isInvalid == !entry.diagnostics.empty(), "an invalid entry has diagnostics");
    for (const std::string& text : {entry.site, entry.name}) {
      const std::string part = subjectPart(text);
      require(!part.empty() && part.find_first_of(".*> \t\r\n") == part.npos,
              "a part of a subject has no character with a meaning", part, text);
    }
    stored({true, false, ""});
  }
  bool isReady() const override { return true; }
};

int statusOf(const HttpRequest& request) {
  CheckingLog log;
  GatewayMetrics metrics;
  IntakeSettings settings;
  settings.validates = true;
  GatewayIntake intake(log, settings, metrics);
  int status = 0;
  intake.handle(request, [&](const GatewayResponse& response) { status = response.status; });
  return status;
}

// Reads all requests of a connection whose bytes arrive in pieces, and describes them.
std::string reading(std::string_view bytes, std::size_t piece) {
  HttpReader reader(kMaxHead, kMaxBody);
  std::string text;
  while (!bytes.empty() && reader.progress() != HttpReader::Progress::Rejected) {
    const std::string_view part = bytes.substr(0, piece);
    bytes.remove_prefix(part.size());
    HttpReader::Progress progress = reader.read(part);
    while (progress == HttpReader::Progress::Complete) {
      const HttpRequest request = reader.take();
      require(request.body.size() <= kMaxBody, "the body is limited");
      const int status = statusOf(request);
      require(status == 204 || status == 404 || status == 405, "each request gets a response");
      text += request.method + " " + request.path + "?" + request.query + " " + request.body +
              (request.keepsAlive ? "\n" : " close\n");
      progress = reader.read("");
    }
    require(reader.heldBytes() <= 4 * (kMaxHead + kMaxBody) + 4'096 + part.size(),
            "the memory of a connection is limited");
  }
  // Not the rejection: of a head that is incomplete, the parser reads more or less in advance.
  return text;
}

}  // namespace
}  // namespace jx::fuzz

// The first byte is the size of the pieces.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace jx::fuzz;
  Input input(data, size);
  const std::size_t piece = std::size_t{input.byte()} + 1;
  const std::string_view bytes = input.rest();
  const std::string whole = reading(bytes, bytes.size() + 1);
  require(reading(bytes, piece) == whole, "the pieces make no difference", reading(bytes, piece),
          whole);
  return 0;
}
