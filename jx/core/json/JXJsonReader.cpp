// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/json/JXJsonReader.h"

#include <cstdint>
#include <utility>
#include <vector>

#include "jx/core/json/JXUtf8.h"
#include "jx/platform/JXCharacters.h"

namespace jx {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

int hexValue(char c) {
  if (isDigit(c)) return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

void appendUtf8(std::uint32_t codePoint, std::string& text) {
  const auto append = [&](std::uint32_t byte) { text.push_back(static_cast<char>(byte)); };
  if (codePoint < 0x80) return append(codePoint);
  if (codePoint < 0x800) {
    append(0xC0 | codePoint >> 6);
  } else {
    if (codePoint < 0x10000) {
      append(0xE0 | codePoint >> 12);
    } else {
      append(0xF0 | codePoint >> 18);
      append(0x80 | (codePoint >> 12 & 0x3F));
    }
    append(0x80 | (codePoint >> 6 & 0x3F));
  }
  append(0x80 | (codePoint & 0x3F));
}

}  // namespace

// Not a general JSON parser, because those reject numbers that a double cannot represent (1e400)
// even when they pass numbers as strings. Open containers are kept on an explicit stack, so deep
// nesting needs no recursion.
class JXJsonReader::Parser {
 public:
  explicit Parser(std::string_view text) : text_(text) {}

  JXJsonReading read() {
    at_ = utf8PrefixLength(text_);
    bool isJson = at_ == text_.size() || fail("invalid UTF-8");
    if (isJson) {
      at_ = text_.substr(0, kByteOrderMark.size()) == kByteOrderMark ? kByteOrderMark.size() : 0;
      isJson = document();
    }
    JXJsonReading reading;
    if (isJson) {
      reading.value = std::move(result_);
    } else {
      reading.error = error_;
      reading.errorOffset = at_;
    }
    return reading;
  }

 private:
  struct Open {
    JXJsonValue container;
    JXString key;
    bool isObject() const { return container.kind() == JXJsonValue::Kind::Object; }
  };

  bool fail(const char* error) {
    error_ = error;
    return false;
  }
  bool failAt(std::size_t offset, const char* error) {
    at_ = offset;
    return fail(error);
  }

  bool atEnd() const { return at_ == text_.size(); }
  bool isAt(char c) const { return !atEnd() && text_[at_] == c; }
  bool skip(char c) {
    const bool found = isAt(c);
    if (found) ++at_;
    return found;
  }
  void skipWhitespace() {
    while (isAt(' ') || isAt('\n') || isAt('\r') || isAt('\t'))
      ++at_;
  }
  bool skipDigits() {
    const std::size_t begin = at_;
    while (!atEnd() && isDigit(text_[at_]))
      ++at_;
    return at_ != begin;
  }

  // Each iteration reads a value or the start of a container.
  bool document() {
    do {
      skipWhitespace();
      if (!beginValue()) return false;
      if (expectsValue_) continue;
      if (!endValues()) return false;
    } while (expectsValue_);
    return true;
  }

  bool beginValue() {
    expectsValue_ = false;
    if (atEnd()) return fail("unexpected end of text, expected a value");
    switch (text_[at_]) {
      case '{':
        return open(JXJsonObject()) && (isAt('}') || key());
      case '[':
        expectsValue_ = true;
        if (!open(JXJsonArray())) return false;
        expectsValue_ = !isAt(']');
        return true;
      case '"': {
        JXString text;
        return string(text) && put(std::move(text));
      }
      case 't':
        return literal("true", true);
      case 'f':
        return literal("false", false);
      case 'n':
        return literal("null", JXJsonValue::null());
      default:
        return number();
    }
  }

  // Reads the tokens allowed after a value: ends of containers, then a comma or the end of the
  // text.
  bool endValues() {
    for (skipWhitespace(); !open_.empty(); skipWhitespace()) {
      if (skip(',')) {
        skipWhitespace();
        expectsValue_ = true;
        return !open_.back().isObject() || key();
      }
      if (!skip(open_.back().isObject() ? '}' : ']')) {
        return fail("expected ',' or the end of the object or array");
      }
      open_.pop_back();
    }
    return atEnd() || fail("unexpected data after the value");
  }

  bool open(const JXJsonValue& container) {
    if (open_.size() >= kMaxDepth) return fail("values are nested too deeply");
    put(container);
    open_.push_back({container, {}});
    ++at_;
    skipWhitespace();
    return true;
  }

  bool key() {
    if (!isAt('"')) return fail("expected a key in double quotes");
    if (!string(open_.back().key)) return false;
    skipWhitespace();
    if (!skip(':')) return fail("expected ':' after the key");
    expectsValue_ = true;
    return true;
  }

  bool put(JXJsonValue value) {
    if (open_.empty()) {
      result_ = std::move(value);
    } else if (open_.back().isObject()) {
      open_.back().container.object().set(open_.back().key.view(), std::move(value));
    } else {
      open_.back().container.array().append(std::move(value));
    }
    return true;
  }

  bool literal(std::string_view literal, JXJsonValue value) {
    if (text_.substr(at_, literal.size()) != literal) return fail("invalid value");
    at_ += literal.size();
    return put(std::move(value));
  }

  bool number() {
    const std::size_t begin = at_;
    skip('-');
    if (!skip('0') && !skipDigits()) return failAt(begin, "invalid value");
    if (skip('.') && !skipDigits()) return fail("expected a digit after the decimal point");
    if (skip('e') || skip('E')) {
      if (!skip('+')) skip('-');
      if (!skipDigits()) return fail("expected a digit in the exponent");
    }
    JXJsonValue value = JXJsonValue::numberFromString(text_.substr(begin, at_ - begin));
    if (!value.isPresent()) return failAt(begin, "number has too many digits");
    return put(std::move(value));
  }

  bool string(JXString& result) {
    std::string text;
    const std::size_t begin = at_++;
    for (;;) {
      const std::size_t run = at_;
      while (!atEnd() && text_[at_] != '"' && text_[at_] != '\\' && !isControl(text_[at_]))
        ++at_;
      text.append(text_.substr(run, at_ - run));
      if (atEnd()) return failAt(begin, "unterminated string");
      if (skip('"')) break;
      if (!skip('\\')) return fail("unescaped control character in a string");
      if (!escape(text)) return false;
    }
    result = text;
    return true;
  }
  static bool isControl(char c) { return static_cast<unsigned char>(c) < 0x20; }

  bool escape(std::string& text) {
    constexpr std::string_view kLetters = "\"\\/bfnrt";
    constexpr std::string_view kMeanings = "\"\\/\b\f\n\r\t";
    if (skip('u')) return escapedCodePoint(text);
    const std::size_t letter = atEnd() ? std::string_view::npos : kLetters.find(text_[at_]);
    if (letter == std::string_view::npos) return fail("invalid escape sequence");
    text.push_back(kMeanings[letter]);
    ++at_;
    return true;
  }

  bool escapedCodePoint(std::string& text) {
    const std::size_t begin = at_ - 2;
    std::uint32_t codePoint = 0;
    if (!fourHexDigits(codePoint)) return fail("\\u must be followed by four hexadecimal digits");
    if (codePoint >= 0xD800 && codePoint <= 0xDFFF) {
      std::uint32_t low = 0;
      const bool isPair = codePoint < 0xDC00 && skip('\\') && skip('u') && fourHexDigits(low) &&
                          low >= 0xDC00 && low <= 0xDFFF;
      if (!isPair) return failAt(begin, "unpaired surrogate in a \\u escape");
      codePoint = 0x10000 + ((codePoint - 0xD800) << 10) + (low - 0xDC00);
    }
    appendUtf8(codePoint, text);
    return true;
  }

  bool fourHexDigits(std::uint32_t& value) {
    for (int i = 0; i < 4; ++i, ++at_) {
      const int digit = atEnd() ? -1 : hexValue(text_[at_]);
      if (digit < 0) return false;
      value = value * 16 + static_cast<std::uint32_t>(digit);
    }
    return true;
  }

  const std::string_view text_;
  std::size_t at_ = 0;
  bool expectsValue_ = false;  // after '[', ',' or ':'
  std::vector<Open> open_;
  JXJsonValue result_;
  const char* error_ = "";
};

JXJsonReading JXJsonReader::read(std::string_view text) { return Parser(text).read(); }

}  // namespace jx
