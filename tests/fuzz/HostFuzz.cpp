// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <curl/curl.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "jx/core/JXCollectionEndpoint.h"
#include "jx/core/transfer/JXHttpTarget.h"
#include "jx/core/transfer/JXPublicKeyPin.h"
#include "tests/fuzz/Fuzz.h"

namespace jx::fuzz {
namespace {

constexpr std::string_view kFallback = "collect.fallback.example";
// Contains characters that end a host, and a second host.
constexpr std::string_view kPath = "/events?s=1&sk=a@b://c#[127.0.0.1]";

JXCollectionEndpoint endpointFrom(std::string_view configured) {
  return JXCollectionEndpoint::from(JXString(configured), JXString(kFallback));
}

bool startsWith(std::string_view string, std::string_view prefix) {
  return string.substr(0, prefix.size()) == prefix;
}

std::string hostInCurl(const JXHttpTarget& target) {
  char* part = nullptr;
  require(curl_url_get(target.handle(), CURLUPART_HOST, &part, 0) == CURLUE_OK,
          "an accepted URL has a host");
  std::string host(part);
  curl_free(part);
  return host;
}

// Returns whether the host, in libcurl's form of it, is the device itself.
bool isThisDevice(std::string host) {
  std::transform(host.begin(), host.end(), host.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
  return host == "localhost" || host == "[::1]" || startsWith(host, "127.");
}

void checkInvalid(const std::string& url, std::string_view configured) {
  require(endpointFrom(url).url.view().substr(0, kJXInvalidScheme.size()) == kJXInvalidScheme,
          "the URL of an invalid host is invalid as a host", url, configured);
  JXHttpTarget target;
  require(!target.set(url + std::string(kPath)).empty(), "nothing is sent to an invalid host", url,
          configured);
}

// Expects that libcurl connects to the host that was checked.
void checkValid(const std::string& url, std::string_view configured) {
  const JXCollectionEndpoint again = endpointFrom(url);
  require(again.url.view() == url, "the URL is parsed as the same host", again.url.view(), url);
  require(!again.message.isPresent(), "the URL needs no message", again.message.view(), url);
  JXHttpTarget target;
  if (!target.set(url + std::string(kPath)).empty()) return;  // for example a port above 65535
  const bool isHttp = startsWith(url, "http://");
  require(!isHttp || isThisDevice(hostInCurl(target)), "http is used for the device itself only",
          hostInCurl(target), configured);
  require(!isHttp || target.isLoopback(), "libcurl finds the loopback host too", url, configured);
  const std::string origin = originOf(url);
  require(originOf(origin + std::string(kPath)) == origin, "the origin of an origin is the same",
          originOf(origin), origin);
}

void checkHost(std::string_view configured) {
  const JXCollectionEndpoint endpoint = endpointFrom(configured);
  const std::string url = endpoint.url.toStdString();
  const bool isInvalid = startsWith(url, kJXInvalidScheme);
  require(isInvalid || startsWith(url, "https://") || startsWith(url, "http://"),
          "a URL has one of three schemes", url, configured);
  require(url != "https://" + std::string(kFallback) || configured.empty() ||
              configured.find(kFallback) != std::string_view::npos,
          "the fallback replaces an empty host only", url, configured);
  require(endpointOf(url + std::string(kPath)) == url, "the host ends where its URL ends",
          endpointOf(url + std::string(kPath)), url);
  require(isInvalid == (endpoint.messageLevel == 2), "exactly an invalid host is an error",
          endpoint.message.view(), configured);
  if (isInvalid) {
    checkInvalid(url, configured);
  } else {
    checkValid(url, configured);
  }
  require(!isLoopbackAuthority(configured) || !isInvalid, "a loopback host is valid", configured,
          {});
}

// Expects user name and password to be in no message, wherever they are.
void checkCredentials(Input input) {
  constexpr std::array<std::string_view, 5> kSchemes{"", "https://", "http://", "ftp://", "//"};
  constexpr std::string_view kSecret = "Geheim7";
  const std::string scheme(kSchemes[input.byte() % kSchemes.size()]);
  // These characters end the host of a URL, so a password cannot follow.
  std::string before(input.bytes(input.byte() % 16u));
  std::replace_if(
      before.begin(), before.end(), [](char c) { return c == '/' || c == '?' || c == '#'; }, ':');
  const std::string rest(input.rest());
  const std::string user = std::string(kSecret) + before + std::string(kSecret);
  const JXCollectionEndpoint endpoint = endpointFrom(scheme + user + "@" + rest);
  if (rest.find(kSecret) != std::string::npos) return;
  require(endpoint.message.view().find(kSecret) == std::string_view::npos,
          "a message contains no password", endpoint.message.view(), user);
  const bool isInvalid = startsWith(endpoint.url.view(), kJXInvalidScheme);
  require(!isInvalid || endpoint.url.view().find(kSecret) == std::string_view::npos,
          "an invalid URL contains no password", endpoint.url.view(), user);
}

// Returns the Base64 form of the bytes that the text encodes, ignoring characters outside Base64.
std::string encodedAgain(std::string_view text) {
  constexpr std::string_view kDigits =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string bits;
  for (const char c : text) {
    const std::size_t digit = kDigits.find(c);
    for (int bit = 5; digit != std::string_view::npos && bit >= 0; --bit)
      bits += (digit >> bit & 1) != 0 ? '1' : '0';
  }
  bits.resize(bits.size() / 8 * 8);
  std::string encoded;
  for (std::size_t at = 0; at < bits.size(); at += 6) {
    std::string six = bits.substr(at, 6);
    six.resize(6, '0');
    encoded += kDigits[std::stoul(six, nullptr, 2)];
  }
  while (encoded.size() % 4 != 0)
    encoded += '=';
  return encoded;
}

// Expects exactly the Base64 form of a hash of 32 bytes to be a pin.
void checkPin(std::string_view text) {
  const bool isHash =
      text.size() == 44 && text[42] != '=' && text[43] == '=' && encodedAgain(text) == text;
  require(isPublicKeyPin(text) == isHash, "exactly a hash is a pin", text, encodedAgain(text));
}

}  // namespace
}  // namespace jx::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  jx::fuzz::Input input(data, size);
  switch (input.byte() % 3) {
    case 0:
      jx::fuzz::checkHost(input.rest());
      break;
    case 1:
      jx::fuzz::checkCredentials(input);
      break;
    default:
      jx::fuzz::checkPin(input.rest());
  }
  return 0;
}
