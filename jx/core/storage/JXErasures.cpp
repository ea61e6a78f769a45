// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXErasures.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <random>
#include <string_view>
#include <utility>

#include "jx/core/JXForkedChild.h"
#include "jx/core/JXLogDeferral.h"
#include "jx/core/JXLogger.h"
#include "jx/core/JXStoredKeys.h"
#include "jx/core/storage/JXFile.h"
#include "jx/core/storage/JXQuarantine.h"
#include "jx/core/storage/JXStoredFiles.h"
#include "jx/platform/JXConcat.h"

namespace jx {
namespace {

constexpr std::string_view kPending = "pending ";
constexpr std::string_view kDone = "done ";
constexpr std::size_t kTokenDigits = 32;
constexpr std::size_t kMaxMarkSize = 64;

// The token of a mark that cannot be read.
constexpr std::string_view kDamaged = "damaged";

thread_local std::optional<std::uint64_t> composingSince;

// Contains no time and nothing about the device or the viewer.
std::string newToken() {
  std::random_device random;
  std::string token;
  while (token.size() < kTokenDigits) {
    char digits[9];
    std::snprintf(digits, sizeof digits, "%08x", static_cast<unsigned>(random()));
    token += digits;
  }
  return token;
}

}  // namespace

JXErasures::JXErasures(std::string folder, JXPlatformDefaults* defaults)
    : folder_(std::move(folder)), path_(folder_ + "/erased"), defaults_(defaults), watch_(path_) {
  if (folder_.empty()) return;
  const JXLogDeferral deferral;
  int error = 0;
  const Mark mark = readMark(error);
  adopt(mark.token);
  isTokenKnown_ = error == 0;
  if (!mark.pending) return;
  const std::vector<std::string> left = finish();
  JXLogger::sharedInstance().logMessage_withLevel(
      concat({"Interrupted erase of the stored data resumed: ", folder_}), 5);
  logFailure(left);
}

std::vector<std::string> JXErasures::erase() {
  std::vector<std::string> left = begin();
  complete(left);
  return left;
}

std::vector<std::string> JXErasures::begin() {
  const JXLogDeferral deferral;
  const std::lock_guard<std::mutex> lock(mutex_);
  token_ = newToken();
  isTokenKnown_ = true;
  // On a full disk this fails, but the second mark is written after the files are deleted.
  const int error = folder_.empty() ? 0 : writeMark({true, token_});
  int ignored = 0;
  replaceable_ = error == 0 ? token_ : readMark(ignored).token;
  std::vector<std::string> left;
  removeAll(left);
  ++count_;
  return left;
}

void JXErasures::adopt(const std::string& token) {
  token_ = token == kDamaged ? newToken() : token;
  replaceable_ = token;
  lacksMark_ = false;
}

void JXErasures::complete(std::vector<std::string>& left) {
  const JXLogDeferral deferral;
  const std::lock_guard<std::mutex> lock(mutex_);
  completeMark(left);
}

void JXErasures::writeLackingMark() {
  if (!lacksMark_) return;
  const JXLogDeferral deferral;
  const std::lock_guard<std::mutex> lock(mutex_);
  std::vector<std::string> ignored;
  if (lacksMark_) completeMark(ignored);
}

std::vector<std::string> JXErasures::finish() {
  std::vector<std::string> left;
  removeAll(left);
  completeMark(left);
  return left;
}

void JXErasures::removeAll(std::vector<std::string>& left) {
  if (defaults_ != nullptr) {
    for (const std::string_view key : kJXStoredKeys)
      defaults_->setObject_forKey(nullptr, key);
    defaults_->synchronize();
  }
  if (!folder_.empty()) removeStoredFiles(folder_, left);
}

void JXErasures::completeMark(std::vector<std::string>& left) {
  if (folder_.empty()) return;
  int error = 0;
  const Mark current = readMark(error);
  lacksMark_ = false;
  // Another process began an erase in the meantime; `check` notices it.
  const bool isReplaceable = current.token == replaceable_ || current.token == kDamaged;
  if (!current.token.empty() && !isReplaceable) return;
  error = writeMark({false, token_});
  lacksMark_ = error != 0;
  if (error != 0) {
    addLeft(path_, error, left);
    left.back() += "; another process that uses the folder may write its values again";
  }
}

std::uint64_t JXErasures::check() {
  if (JXForkedChild::isCurrent()) return count();
  const JXLogDeferral deferral;
  const std::lock_guard<std::mutex> lock(mutex_);
  struct stat status {};
  if (folder_.empty()) return count();
  if (JXFileCalls::current().status(AT_FDCWD, path_.c_str(), &status) != 0) {
    // Without a mark, the next one is of an erase that has not begun yet.
    if (errno == ENOENT || errno == ENOTDIR) isTokenKnown_ = true;
    return count();
  }
  if (!watch_.mayHaveChanged()) return count();
  try {
    return readChange();
  } catch (...) {
    // Out of memory: the next call notices the erase and finishes it.
    watch_.reset();
    throw;
  }
}

// Called with the lock held.
std::uint64_t JXErasures::readChange() {
  int error = 0;
  const Mark mark = readMark(error);
  // Read again by the next call.
  if (error != 0) watch_.reset();
  if (mark.token.empty() || mark.token == token_) return count();
  if (!std::exchange(isTokenKnown_, true) && !mark.pending) {
    // Erased before this process could read the mark for the first time.
    adopt(mark.token);
    return count();
  }
  std::string previous = token_;
  adopt(mark.token);
  try {
    applyMark(mark);
  } catch (...) {
    token_.swap(previous);
    throw;
  }
  return ++count_;
}

void JXErasures::applyMark(const Mark& mark) {
  JXLogger::sharedInstance().logMessage_withLevel(
      "Stored data erased by another process; queued requests dropped, identifiers replaced: " +
          folder_,
      5);
  if (mark.pending) {
    logFailure(finish());
  } else {
    // This process may have copied damaged data after the other one had listed the folder.
    removeQuarantinedFiles(folder_);
    removeQuarantinedFiles(folder_ + "/outbox");
  }
}

void JXErasures::logFailure(const std::vector<std::string>& left) const {
  if (left.empty()) return;
  JXLogger::sharedInstance().logMessage_withLevel(
      concat({"Stored data not erased completely: ", left.front(),
              "; number of failures: ", std::to_string(left.size())}),
      3);
}

JXErasures::Mark JXErasures::readMark(int& error) const {
  const JXFile file = JXFile::open(path_, JXFile::Access::Read, error);
  char content[kMaxMarkSize];
  std::size_t size = 0;
  if (error == 0) error = file.read(0, content, sizeof content, size);
  if (error == ENOENT || error == ENOTDIR) {
    error = 0;
    return {};
  }
  if (error != 0) return {};
  std::string_view text(content, size);
  if (text.substr(0, kDone.size()) == kDone && size == kDone.size() + kTokenDigits + 1) {
    return {false, std::string(text.substr(kDone.size(), kTokenDigits))};
  }
  if (text.substr(0, kPending.size()) == kPending && size == kPending.size() + kTokenDigits + 1) {
    return {true, std::string(text.substr(kPending.size(), kTokenDigits))};
  }
  // Damaged. Finishing an erase that was complete loses data; not finishing one that was not keeps
  // data that the viewer wanted to be erased.
  return {true, std::string(kDamaged)};
}

// Renamed into place, so that no process reads a partial mark.
int JXErasures::writeMark(const Mark& mark) const {
  int error = makeFolder(folder_);
  // Another process that erases at the same time may delete the file before it is renamed.
  if (error == 0) error = replaceMark(mark);
  if (error == ENOENT) error = replaceMark(mark);
  return error != 0 ? error : synchronizeFolder(folder_);
}

int JXErasures::replaceMark(const Mark& mark) const {
  int error = 0;
  std::string text = concat({mark.pending ? kPending : kDone, mark.token, "\n"});
  const std::string fresh = concat({path_, ".", std::to_string(::getpid())});
  JXFile file = JXFile::open(fresh, JXFile::Access::AppendEmptied, error);
  if (error != 0) return error;
  const iovec part{text.data(), text.size()};
  std::size_t written = 0;
  error = file.append(&part, 1, written);
  if (error == 0 && written < text.size()) error = ENOSPC;
  if (error == 0) error = file.synchronize();
  return replaceFile(fresh, path_, error);
}

JXErasureScope::JXErasureScope(JXErasures& erasures) : outer_(composingSince) {
  composingSince = erasures.count();
}

JXErasureScope::~JXErasureScope() { composingSince = outer_; }

void JXErasureScope::restart(const JXErasures& erasures) {
  if (composingSince) composingSince = erasures.count();
}

std::uint64_t JXErasureScope::begunAt(JXErasures& erasures) {
  return composingSince ? *composingSince : erasures.check();
}

}  // namespace jx
