// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/JsonOut.h"

#include "jx/core/json/JXUtf8.h"

namespace jx {

JsonOut& JsonOut::key(std::string_view name) {
  separate();
  quote(name);
  text_ += ':';
  needsComma_ = false;
  return *this;
}

JsonOut& JsonOut::value(std::string_view bytes) {
  separate();
  if (isUtf8(bytes)) {
    quote(bytes);
  } else {
    quote(withReplacementCharacters(bytes));
  }
  return *this;
}

JsonOut& JsonOut::open(char bracket) {
  separate();
  text_ += bracket;
  needsComma_ = false;
  return *this;
}

JsonOut& JsonOut::close(char bracket) {
  text_ += bracket;
  needsComma_ = true;
  return *this;
}

JsonOut& JsonOut::word(std::string_view text) {
  separate();
  text_ += text;
  return *this;
}

void JsonOut::separate() {
  if (needsComma_) text_ += ',';
  needsComma_ = true;
}

void JsonOut::quote(std::string_view text) {
  constexpr std::string_view kHex = "0123456789abcdef";
  constexpr std::string_view kControls = "\b\f\n\r\t";
  constexpr std::string_view kLetters = "bfnrt";
  text_ += '"';
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    const std::size_t control = kControls.find(c);
    if (c == '"' || c == '\\') {
      text_ += '\\';
      text_ += c;
    } else if (byte >= 0x20) {
      text_ += c;
    } else if (control != std::string_view::npos) {
      text_ += '\\';
      text_ += kLetters[control];
    } else {
      text_ += "\\u00";
      text_ += kHex[byte >> 4];
      text_ += kHex[byte & 15];
    }
  }
  text_ += '"';
}

}  // namespace jx
