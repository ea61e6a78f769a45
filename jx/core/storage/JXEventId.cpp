// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXEventId.h"

#include <bitset>
#include <cstddef>

#include "jx/core/json/JXJsonReader.h"
#include "jx/core/json/JXUtf8.h"

namespace jx {
namespace {

bool hasEscape(std::string_view quoted) { return quoted.find('\\') != std::string_view::npos; }

std::string_view withoutQuotes(std::string_view quoted) {
  return quoted.substr(1, quoted.size() - 2);
}

// Accepts exactly the text that JXJsonReader accepts. Strings with escapes and numbers are passed
// to it one by one, so that their rules are in one place.
class EventIdScanner {
 public:
  explicit EventIdScanner(std::string_view body) : text_(body) {}

  /// Returns the string with its quotation marks; empty if there is none.
  std::string_view find() { return isUtf8(text_) && document() ? id_ : std::string_view(); }
  /// Returns what was found before an exception.
  std::string_view found() const { return id_; }

 private:
  bool atEnd() const { return at_ >= text_.size(); }
  bool isAt(char c) const { return !atEnd() && text_[at_] == c; }
  bool skip(char c) {
    const bool found = isAt(c);
    if (found) ++at_;
    return found;
  }
  void skipBlanks() {
    while (isAt(' ') || isAt('\n') || isAt('\r') || isAt('\t'))
      ++at_;
  }

  // Each iteration reads a value or the start of a container, and the tokens after it.
  bool document() {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (text_.substr(0, kByteOrderMark.size()) == kByteOrderMark) at_ = kByteOrderMark.size();
    for (;;) {
      skipBlanks();
      if (isAt('{') || isAt('[')) {
        if (!open()) return false;
        if (!isAt('}') && !isAt(']')) {
          if (isInObject() && !key()) return false;
          continue;
        }
      } else if (!scalar()) {
        return false;
      }
      for (skipBlanks(); depth_ != 0 && !skip(','); skipBlanks()) {
        if (!skip(isInObject() ? '}' : ']')) return false;
        --depth_;
      }
      if (depth_ == 0) return atEnd();
      skipBlanks();
      if (isInObject() && !key()) return false;
    }
  }

  bool isInObject() const { return isObject_[depth_ - 1]; }

  bool open() {
    if (depth_ == JXJsonReader::kMaxDepth) return false;
    isObject_[depth_++] = isAt('{');
    ++at_;
    skipBlanks();
    return true;
  }

  bool key() {
    std::string_view quoted;
    if (!string(quoted)) return false;
    skipBlanks();
    if (!skip(':')) return false;
    if (depth_ == 1) {
      isInContext_ = isString(quoted, "context");
      isId_ = false;
      if (isInContext_) id_ = {};
    } else if (depth_ == 2 && isInContext_) {
      isId_ = isString(quoted, "event_id");
      if (isId_) id_ = {};
    }
    return true;
  }

  bool scalar() {
    if (isAt('"')) {
      std::string_view quoted;
      const bool isValid = string(quoted);
      if (depth_ == 2 && isId_) id_ = quoted;
      return isValid;
    }
    constexpr std::string_view kFirst = "-0123456789tfn";
    if (atEnd() || kFirst.find(text_[at_]) == std::string_view::npos) return false;
    const std::string_view rest = text_.substr(at_);
    const std::string_view token = rest.substr(0, rest.find_first_of(",]} \n\r\t"));
    at_ += token.size();
    return JXJsonReader::read(token).error.empty();
  }

  // Reads a string; `quoted` receives it with its quotation marks.
  bool string(std::string_view& quoted) {
    const std::size_t begin = at_;
    bool hasEscape = false;
    if (!skip('"')) return false;
    for (; !isAt('"'); ++at_) {
      if (atEnd() || static_cast<unsigned char>(text_[at_]) < 0x20) return false;
      if (skip('\\')) hasEscape = true;  // the loop then skips the escaped character
    }
    ++at_;
    quoted = text_.substr(begin, at_ - begin);
    return !hasEscape || JXJsonReader::read(quoted).error.empty();
  }

  static bool isString(std::string_view quoted, std::string_view expected) {
    if (!hasEscape(quoted)) return withoutQuotes(quoted) == expected;
    return JXJsonReader::read(quoted).value.string().view() == expected;
  }

  const std::string_view text_;
  std::size_t at_ = 0;
  std::bitset<JXJsonReader::kMaxDepth> isObject_;  // of the open containers, outermost first
  std::size_t depth_ = 0;
  bool isInContext_ = false;  // the last key of the outermost object was "context"
  bool isId_ = false;         // the last key in "context" was "event_id"
  std::string_view id_;
};

}  // namespace

JXString eventIdOf(std::string_view body) {
  const std::string_view quoted = EventIdScanner(body).find();
  if (quoted.empty()) return nullptr;
  if (hasEscape(quoted)) return JXJsonReader::read(quoted).value.string();
  return withoutQuotes(quoted);
}

std::string_view plainEventIdOf(std::string_view body) noexcept {
  EventIdScanner scanner(body);
  std::string_view quoted;
  try {
    quoted = scanner.find();
  } catch (...) {
    quoted = scanner.found();  // no memory for a number or an escape elsewhere in the body
  }
  return quoted.empty() || hasEscape(quoted) ? std::string_view() : withoutQuotes(quoted);
}

}  // namespace jx
