// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <array>
#include <filesystem>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "jx/core/storage/JXOutbox.h"
#include "jx/core/storage/JXOutboxFolder.h"
#include "jx/core/storage/JXQuarantine.h"
#include "jx/platform/JXManualClock.h"
#include "tests/fuzz/Fuzz.h"
#include "tests/fuzz/ReferenceFrames.h"

namespace jx::fuzz {
namespace {

namespace fs = std::filesystem;

struct Request {
  std::uint32_t offset = 0;
  std::int64_t createdMs = 0;
  std::string url;
  std::string body;
  int status = 0;

  bool operator==(const Request& other) const {
    return createdMs == other.createdMs && url == other.url && body == other.body &&
           status == other.status;
  }
};
using Requests = std::vector<Request>;

constexpr std::array<const char*, 3> kFiles{"segment-0000000000000001", "segment-00000000000000ff",
                                            "dead"};
constexpr std::size_t kDead = 2;
constexpr std::int64_t kNowMs = 1'790'000'000'000;

const std::string& box() {
  static const std::string path = scratchFolder() + "/outbox";
  return path;
}

// Creates one part of a file: any bytes, or a frame with any payload, a request, acknowledgements,
// failures or a dead letter.
std::string piece(Input& input, const std::string& before) {
  const std::uint8_t kind = input.byte();
  const std::string text(input.bytes(input.byte()));
  const std::size_t urlLength = kind / 8u % (text.size() + 1);
  const std::string head = std::string("\0\0\0", 3) + littleEndian(urlLength, 4);
  switch (kind % 9) {
    case 0:
      return text;
    case 1:
      return frameOf(text);
    case 2:
      return "JXJRNL1\n";
    case 3: {
      const std::vector<FoundFrame> frames = framesIn(before);
      const std::size_t offset =
          frames.empty() ? 0 : frames[input.byte() % frames.size()].offset + input.byte() / 128u;
      return frameOf(std::string("S\0\0\0", 4) + littleEndian(offset, 4) + text);
    }
    case 4:
      return frameOf("D" + head + littleEndian(input.number(2), 8) +
                     littleEndian(input.number(2), 4) + littleEndian(input.byte(), 4) + text);
    case 5: {
      const std::vector<FoundFrame> frames = framesIn(before);
      const std::size_t offset =
          frames.empty() ? 0 : frames[input.byte() % frames.size()].offset + input.byte() / 128u;
      return frameOf(std::string("F\0", 2) + littleEndian(input.number(2), 2) +
                     littleEndian(offset, 4) + littleEndian(input.number(4), 4) +
                     littleEndian(input.number(8), 8) + littleEndian(input.number(8), 8) + text);
    }
    default:
      return frameOf("Q" + head + littleEndian(input.number(8), 8) + text);
  }
}

// Reads a request or a dead letter from a payload; returns false if it is neither.
bool decode(std::string_view payload, char kind, std::size_t headSize, Request& request) {
  if (payload.size() < headSize || payload.front() != kind) return false;
  const std::size_t urlLength = number32At(payload, 4);
  if (urlLength > payload.size() - headSize) return false;
  request.createdMs = static_cast<std::int64_t>(number32At(payload, 8) |
                                                std::uint64_t{number32At(payload, 12)} << 32);
  request.url = std::string(payload.substr(headSize, urlLength));
  request.body = std::string(payload.substr(headSize + urlLength));
  return true;
}

// Returns the requests of a segment that are still to be sent.
Requests unacknowledgedIn(std::string_view file) {
  Requests requests;
  std::vector<std::uint32_t> acknowledged;
  for (const FoundFrame& frame : framesIn(file)) {
    Request request;
    if (decode(frame.payload, 'Q', 16, request)) {
      request.offset = static_cast<std::uint32_t>(frame.offset);
      requests.push_back(request);
    } else if (!frame.payload.empty() && frame.payload.front() == 'S') {
      for (std::size_t at = 4; at + 4 <= frame.payload.size(); at += 4)
        acknowledged.push_back(number32At(frame.payload, at));
      // A request cannot be acknowledged before it was written.
      const auto isLater = [&](std::uint32_t offset) { return offset >= frame.offset; };
      acknowledged.erase(std::remove_if(acknowledged.begin(), acknowledged.end(), isLater),
                         acknowledged.end());
    }
  }
  const auto isAcknowledged = [&](const Request& request) {
    return std::find(acknowledged.begin(), acknowledged.end(), request.offset) !=
           acknowledged.end();
  };
  requests.erase(std::remove_if(requests.begin(), requests.end(), isAcknowledged), requests.end());
  return requests;
}

// Returns the last letters of the file. The last letter contains the number to keep.
Requests lettersIn(std::string_view file) {
  Requests letters;
  std::size_t keep = 0;
  for (const FoundFrame& frame : framesIn(file)) {
    Request letter;
    if (!decode(frame.payload, 'D', 24, letter)) continue;
    letter.status = static_cast<int>(number32At(frame.payload, 16));
    keep = number32At(frame.payload, 20);
    letters.push_back(letter);
  }
  const std::size_t old = letters.size() > keep ? letters.size() - keep : 0;
  return {letters.begin() + static_cast<std::ptrdiff_t>(old), letters.end()};
}

Requests listed(bool dead) {
  std::string error;
  Requests requests;
  for (const JXOutboxListing& each :
       dead ? listDeadLetters(box(), error) : listOutbox(box(), error))
    requests.push_back({0, each.createdMs, each.url, each.body, each.status});
  require(error.empty(), "any folder can be listed", error, {});
  return requests;
}

void requireSame(const Requests& found, const Requests& wanted, const char* property) {
  require(found == wanted, property, std::to_string(found.size()) + " requests",
          std::to_string(wanted.size()) + " requests");
}

void checkQuarantine() {
  std::size_t count = 0;
  for (const fs::directory_entry& entry : fs::directory_iterator(box()))
    count += isQuarantinedName(entry.path().filename().string()) ? 1 : 0;
  require(count <= kJXMaxQuarantinedFiles, "the number of quarantined files is limited");
}

// Returns whether the request was queued with an invalid collection host, to which nothing is sent.
bool isHeld(const Request& request) {
  constexpr std::string_view kScheme = "invalid://";
  const auto isSame = [](char a, char b) { return a == (b >= 'A' && b <= 'Z' ? b + 32 : b); };
  return request.url.size() >= kScheme.size() &&
         std::equal(kScheme.begin(), kScheme.end(), request.url.begin(), isSame);
}

// Takes all requests, those that failed in an earlier process after their longest delay.
std::vector<JXOutboxRequest> takeAll(JXOutbox& outbox, JXManualClock& clock) {
  std::vector<JXOutboxRequest> taken;
  while (auto request = outbox.take())
    taken.push_back(std::move(*request));
  constexpr std::int64_t kDayMs = 86'400'000;
  clock.advance(kDayMs);
  while (auto request = outbox.take({0, JXOutboxPick::Order::Retry, 0}))
    taken.push_back(std::move(*request));
  clock.advance(-kDayMs);
  std::sort(taken.begin(), taken.end(), [](const auto& a, const auto& b) { return a.id < b.id; });
  return taken;
}

// Takes all requests and completes them as the input decides: delivered, rejected or requeued.
void deliver(Input input, Requests& waiting, Requests& letters) {
  const auto clock = std::make_shared<JXManualClock>(kNowMs);
  JXOutbox outbox(box(), {}, clock);
  require(outbox.counters().queued == waiting.size(), "requests of earlier processes are counted");
  const std::vector<JXOutboxRequest> taken = takeAll(outbox, *clock);
  Requests found, sent, left;
  for (const JXOutboxRequest& request : taken)
    found.push_back({0, request.createdMs, request.url, request.body, 0});
  std::copy_if(waiting.begin(), waiting.end(), std::back_inserter(sent),
               [](const Request& each) { return !isHeld(each); });
  // Without a file of the running time, none is known to be old.
  requireSame(found, sent, "the outbox returns every valid request of the files");
  std::size_t i = 0;
  for (const Request& each : waiting) {
    if (isHeld(each)) {
      left.push_back(each);
      continue;
    }
    const std::uint8_t decision = input.byte() % 4u;
    if (decision == 0) {
      outbox.markDelivered(taken[i].id);
    } else if (decision == 1) {
      outbox.moveToDeadLetters(taken[i].id, 400);
      letters.push_back(each);
      letters.back().status = 400;
    } else {
      outbox.requeue(taken[i].id);
      left.push_back(each);
    }
    ++i;
  }
  waiting = left;
  const auto id = outbox.add("https://host.example/events", "{}");
  require(id.has_value(), "any folder accepts a new request");
  outbox.sync();
  require(outbox.counters().storageErrors == 0, "no content causes a storage error");
  waiting.push_back({0, kNowMs, "https://host.example/events", "{}", 0});
}

void check(Input input) {
  fs::remove_all(box());
  fs::create_directory(box());
  const Input decisions(reinterpret_cast<const std::uint8_t*>(input.rest().data()),
                        input.rest().size());
  std::array<std::string, kFiles.size()> files;
  while (!input.isEmpty()) {
    std::string& file = files[input.byte() % files.size()];
    if (file.size() < kMaxFile) file += piece(input, file);
  }
  for (std::size_t i = 0; i < files.size(); ++i)
    writeFile(box() + "/" + kFiles[i], files[i]);
  Requests waiting = unacknowledgedIn(files[0]);
  const Requests inSecondSegment = unacknowledgedIn(files[1]);
  waiting.insert(waiting.end(), inSecondSegment.begin(), inSecondSegment.end());
  Requests letters = lettersIn(files[kDead]);
  requireSame(listed(false), waiting, "the list contains every valid request of the files");
  requireSame(listed(true), letters, "the dead letters are the valid letters of their file");
  const Requests before = letters;
  deliver(decisions, waiting, letters);
  requireSame(listed(false), waiting, "requeued and added requests are listed");
  const Requests now = listed(true);
  const bool isSame = letters.size() == before.size();
  // A new letter contains a new number to keep, so older letters may be listed again.
  const bool isLast =
      now.size() >= letters.size() && std::equal(letters.rbegin(), letters.rend(), now.rbegin());
  require(isLast, "rejected requests are the last dead letters");
  require(!isSame || now == before, "only rejected requests change the dead letters");
  checkQuarantine();
}

}  // namespace
}  // namespace jx::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  jx::fuzz::silenceLog();
  jx::fuzz::check({data, size});
  return 0;
}
