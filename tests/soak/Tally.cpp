// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/soak/Tally.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <optional>
#include <stdexcept>

#include "jx/core/json/JXJsonReader.h"
#include "jx/core/storage/JXOutboxFolder.h"

namespace jx::soak {
namespace {

struct Event {
  std::uint64_t number = 0;
  std::string id;
};

std::optional<Event> eventIn(const std::string& body) {
  const JXJsonObject object = JXJsonReader::read(body).value.object();
  const JXString number = object.get("n").string();
  const JXString id = object.get("context").object().get("event_id").string();
  if (!number.testString() || !id.testString()) return std::nullopt;
  return Event{std::stoull(number.toStdString()), id.toStdString()};
}

std::string outboxIn(const std::string& state) { return state + "/outbox"; }

void throwOn(const std::string& error) {
  if (!error.empty()) throw std::runtime_error(error);
}

std::vector<JXOutboxListing> queueOf(const std::string& state) {
  // A process that was killed early has not created the folder.
  if (!std::filesystem::exists(outboxIn(state))) return {};
  std::string error;
  std::vector<JXOutboxListing> queue = listOutbox(outboxIn(state), error);
  throwOn(error);
  return queue;
}

void addDeadLetters(const std::string& state, Tally& tally) {
  if (!std::filesystem::exists(outboxIn(state))) return;
  std::string error;
  for (const JXOutboxListing& letter : listDeadLetters(outboxIn(state), error)) {
    if (const std::optional<Event> event = eventIn(letter.body)) {
      tally.rejected.insert(event->number);
    } else {
      ++tally.unreadable;
    }
  }
  throwOn(error);
}

}  // namespace

std::size_t Tally::distinct() const {
  const auto isNew = [this](std::uint64_t number) { return accepted.count(number) == 0; };
  return accepted.size() +
         static_cast<std::size_t>(std::count_if(rejected.begin(), rejected.end(), isNew));
}

Tally tallyOf(const test::JXTestServer& server, const std::vector<std::string>& states) {
  Tally tally;
  std::map<std::string, std::string> bodyOfId;
  std::map<std::uint64_t, std::string> idOfNumber;
  for (const test::JXTestRequest& request : server.requests()) {
    ++tally.bodies;
    const std::optional<Event> event = eventIn(request.body);
    if (!event) {
      ++tally.unreadable;
      continue;
    }
    const auto [known, isNew] = bodyOfId.emplace(event->id, request.body);
    if (!isNew && known->second != request.body) ++tally.differing;
    if (idOfNumber.emplace(event->number, event->id).first->second != event->id) ++tally.renamed;
    const bool isAccepted = request.status >= 200 && request.status < 300;
    if (isAccepted && !tally.accepted.insert(event->number).second) ++tally.repeats;
  }
  for (const std::string& state : states)
    addDeadLetters(state, tally);
  return tally;
}

std::vector<std::uint64_t> queuedIn(const std::string& state) {
  std::vector<std::uint64_t> numbers;
  for (const JXOutboxListing& request : queueOf(state)) {
    const std::optional<Event> event = eventIn(request.body);
    if (!event) throw std::runtime_error("the queue contains a request without a number");
    numbers.push_back(event->number);
  }
  std::sort(numbers.begin(), numbers.end());
  return numbers;
}

std::size_t queueLengthIn(const std::string& state) { return queueOf(state).size(); }

std::size_t quarantinedIn(const std::string& state) {
  std::size_t count = 0;
  if (!std::filesystem::exists(state)) return count;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(state)) {
    if (entry.path().filename().string().find(".damaged-") != std::string::npos) ++count;
  }
  return count;
}

std::size_t missing(const std::vector<std::uint64_t>& numbers, const Tally& tally) {
  return static_cast<std::size_t>(std::count_if(
      numbers.begin(), numbers.end(), [&](std::uint64_t each) { return !tally.contains(each); }));
}

}  // namespace jx::soak
