// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/consent/ConsentScenario.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <system_error>
#include <thread>

#include "jx/core/json/JXJsonReader.h"
#include "jx/core/storage/JXFrame.h"

namespace jx::test {
namespace {

constexpr int kFences = 3;
constexpr std::string_view kFencePrefix = "fence-";

// A request of version 0.1: kind, length of the URL, creation time, URL, body.
std::string oldRequest(const std::string& url, const std::string& body) {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  std::string head(16, '\0');
  head[0] = 'Q';
  putU32(head.data() + 4, static_cast<std::uint32_t>(url.size()));
  putU64(head.data() + 8, static_cast<std::uint64_t>(
                              std::chrono::duration_cast<std::chrono::milliseconds>(now).count()));
  std::string frame;
  encodeFrame({head, url, body}, frame);
  return frame;
}

std::string oldBody(const std::string& event, const std::string& user) {
  return "{\n  \"context\": {\n    \"event_id\": \"" + event + "\"\n  },\n  \"event_name\": \"" +
         event + "\",\n  \"user\": " + user + "\n}";
}

}  // namespace

JXTestServerOptions ConsentScenario::plainHttp() {
  JXTestServerOptions options;
  options.tls = false;
  return options;
}

Life ConsentScenario::begin(const std::string& start, const std::string& key) const {
  Life life = begin();
  if (start == "module") life.perform("module");
  life.perform("create this " + (start == "module" ? "0" : start) + " " + key);
  return life;
}

void ConsentScenario::leave(const std::string& start, const Events& events,
                            const std::string& key) const {
  Life life = begin(start, key);
  for (const std::string& event : events)
    life.perform("execute this " + event);
  life.kill();
}

void ConsentScenario::leaveEnabled(const std::string& start, const Events& events,
                                   const std::string& key) const {
  Life life = begin(start, key);
  life.perform("enable this");
  for (const std::string& event : events)
    life.perform("execute this " + event);
  life.kill();
}

void ConsentScenario::leaveFromOldVersion(const Events& events, const Events& waiting,
                                          const std::string& key) const {
  const std::string url = server.url("/events?jx_s=1&token=" + key);
  std::string file(kJXJournalMagic);
  for (const std::string& event : events)
    file += oldRequest(url, oldBody(event, "{\n    \"anonymous_id\": \"a\"\n  }"));
  for (const std::string& event : waiting)
    file += oldRequest(url, oldBody(event, "\"waiting_for_consent\""));
  folder.write("state/outbox/segment-0000000000000001", file);
}

void ConsentScenario::stop(const std::string& key) const {
  Life life = begin("0", key);
  const std::size_t before = marks().size();
  life.perform("disable this");
  // On a busy machine the call may return before the mark is written.
  EXPECT_TRUE(before > 0 || waitForMarks(1));
  life.kill();
}

void ConsentScenario::fence(Life& life) {
  for (int i = 0; i < kFences; ++i) {
    const std::string event = std::string(kFencePrefix) + std::to_string(++fences_);
    life.executeAlways(event);
    waitFor({event});
  }
}

void ConsentScenario::waitFor(const Events& events) {
  for (std::size_t count = arrived().size();; ++count) {
    const std::vector<std::string> all = arrived();
    const Events seen(all.begin(), all.end());
    if (std::includes(seen.begin(), seen.end(), events.begin(), events.end())) return;
    if (server.waitForRequests(count + 1)) continue;
    ADD_FAILURE() << "not all arrived: " << describe(events);
    return;
  }
}

Events ConsentScenario::takeArrived() {
  const std::vector<std::string> all = arrived();
  Events events;
  for (std::size_t i = taken_; i < all.size(); ++i) {
    if (all[i].rfind(kFencePrefix, 0) != 0) events.insert(all[i]);
  }
  taken_ = all.size();
  return events;
}

std::vector<std::string> ConsentScenario::arrived() const {
  std::vector<std::string> names;
  for (const std::string& body : server.bodies()) {
    names.push_back(
        JXJsonReader::read(body).value.object().get("event_name").string().toStdString());
  }
  return names;
}

std::vector<std::string> ConsentScenario::marks() const {
  std::vector<std::string> found;
  std::error_code error;  // the folder may not exist yet
  for (const auto& file : std::filesystem::directory_iterator(state() + "/outbox", error)) {
    const std::string name = file.path().filename().string();
    if (name.rfind("stopped-", 0) == 0) found.push_back(file.path().string());
  }
  return found;
}

bool ConsentScenario::waitForMarks(std::size_t count) const {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  while (marks().size() != count) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return true;
}

std::string describe(const Events& events) {
  std::string text;
  for (const std::string& event : events)
    text += (text.empty() ? "" : ", ") + event;
  return text.empty() ? "nothing" : text;
}

}  // namespace jx::test
