// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXHttpResponseParser.h"

#include <algorithm>

namespace jx {
namespace {

bool hasName(std::string_view header, std::string_view lowerCaseName) {
  if (header.size() <= lowerCaseName.size() || header[lowerCaseName.size()] != ':') return false;
  return std::equal(lowerCaseName.begin(), lowerCaseName.end(), header.begin(),
                    [](char a, char b) { return a == (b >= 'A' && b <= 'Z' ? b + 32 : b); });
}

std::string valueOf(std::string_view header) {
  const std::string_view value = header.substr(header.find(':') + 1);
  const std::size_t first = std::min(value.find_first_not_of(" \t\r\n"), value.size());
  return std::string(value.substr(first, value.find_last_not_of(" \t\r\n") + 1 - first));
}

// Parses "HTTP/1.1 503 Service Unavailable"; returns 0 without a three-digit status.
int statusOf(std::string_view statusLine) {
  const std::size_t blank = statusLine.find(' ');
  if (blank == std::string_view::npos || statusLine.size() < blank + 4) return 0;
  int status = 0;
  for (const char digit : statusLine.substr(blank + 1, 3)) {
    if (digit < '0' || digit > '9') return 0;
    status = status * 10 + (digit - '0');
  }
  return status;
}

}  // namespace

bool JXHttpResponseParser::readHeader(std::string_view line) {
  bytes_ += line.size();
  if (bytes_ > kMaxBytes) return false;
  if (status_ != 0) return true;  // a trailer after the body
  if (line.substr(0, 5) == "HTTP/") {
    currentStatus_ = statusOf(line);
    isMultiplexed_ = line.substr(5, 2) != "1." && line.substr(5, 2) != "0.";
    retryAfter_.clear();
    date_.clear();
  } else if (hasName(line, "retry-after")) {
    retryAfter_ = valueOf(line);
  } else if (hasName(line, "date")) {
    date_ = valueOf(line);
  } else if (line == "\r\n" || line == "\n") {
    if (currentStatus_ >= 200) status_ = currentStatus_;
  }
  return true;
}

bool JXHttpResponseParser::readBody(std::size_t bytes) {
  bytes_ += bytes;
  return bytes_ <= kMaxBytes;
}

}  // namespace jx
