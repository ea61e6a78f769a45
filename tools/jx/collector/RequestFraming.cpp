// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/RequestFraming.h"

#include <strings.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string_view>

namespace jx {
namespace {

bool equalsIgnoringCase(const std::string& a, const char* b) {
  return ::strcasecmp(a.c_str(), b) == 0;
}

int contentLengthError(const std::string& text, std::size_t maxBody) {
  if (text.empty() || text.find_first_not_of("0123456789") != std::string::npos) return 400;
  std::uint64_t length = 0;
  const auto parsed = std::from_chars(text.data(), text.data() + text.size(), length);
  return parsed.ec != std::errc() || length > maxBody ? 413 : 0;
}

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view kWhitespace = " \t\r";
  const std::size_t first = text.find_first_not_of(kWhitespace);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kWhitespace) - first + 1);
}

}  // namespace

bool declaresBody(const httplib::Request& request) {
  return request.has_header("Transfer-Encoding") ||
         (request.has_header("Content-Length") &&
          request.get_header_value("Content-Length") != "0");
}

int framingError(const httplib::Request& request, std::size_t maxBody) {
  const std::size_t lengths = request.get_header_value_count("Content-Length");
  const std::size_t transfers = request.get_header_value_count("Transfer-Encoding");
  // Ambiguous framing allows request smuggling: two parsers could disagree on where the body ends.
  if (lengths + transfers > 1) return 400;
  if (transfers == 1 &&
      !equalsIgnoringCase(request.get_header_value("Transfer-Encoding"), "chunked")) {
    return 501;
  }
  if (lengths == 1) {
    const int status = contentLengthError(request.get_header_value("Content-Length"), maxBody);
    if (status != 0) return status;
  }
  if (request.method == "POST" && lengths + transfers == 0) return 411;
  if (request.method != "POST" && declaresBody(request)) return 400;
  const bool isEncoded =
      request.has_header("Content-Encoding") &&
      !equalsIgnoringCase(request.get_header_value("Content-Encoding"), "identity");
  return isEncoded || request.is_multipart_form_data() ? 415 : 0;
}

httplib::Headers headersAsSent(const std::string& head) {
  httplib::Headers headers;
  std::string_view rest(head);
  bool isRequestLine = true;
  while (!rest.empty()) {
    const std::size_t end = rest.find('\n');
    const std::string_view line = rest.substr(0, end);
    rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
    const std::size_t colon = line.find(':');
    if (!isRequestLine && colon != std::string_view::npos) {
      headers.emplace(std::string(line.substr(0, colon)),
                      std::string(trimmed(line.substr(colon + 1))));
    }
    isRequestLine = false;
  }
  return headers;
}

}  // namespace jx
