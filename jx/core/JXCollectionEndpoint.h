// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

#include "jx/platform/JXString.h"

namespace jx {

/// URL of the collection server, with a log message about how it was configured.
struct JXCollectionEndpoint {
  JXString url;          ///< scheme, host and port, without a path: "https://collect.example.com"
  JXString message;      ///< log message about the configured host; null when there is none
  int messageLevel = 0;  ///< level of `message`

  /// Returns the endpoint for the configured host. The scheme is https when `configured` has none.
  /// Plain http would expose viewer data to the network, so it is accepted for loopback hosts only
  /// and becomes https elsewhere. A path, query or fragment is removed. `fallback` is used when
  /// `configured` is null or empty. A value without a host or with another scheme gives a URL that
  /// starts with `kJXInvalidScheme`: sending to another host would give viewer data to it.
  static JXCollectionEndpoint from(const JXString& configured, const JXString& fallback);
};

/// Scheme of the URLs of events that were executed with an invalid collection host. They stay
/// queued: nothing is sent to them.
inline constexpr std::string_view kJXInvalidScheme = "invalid://";

/// Returns the beginning of `url` with scheme, host and port, without a path, query or fragment;
/// the whole URL if it has no scheme.
std::string_view endpointOf(std::string_view url);
/// Returns the endpoint of `url` in the form that is the same for all URLs of one server: in lower
/// case, without user information and without the default port of the scheme.
std::string originOf(std::string_view url);

/// Returns the URL, or the message that quotes one, with "***" instead of user name and password,
/// for the log. Also replaces what only resembles them: all from the last quote, or the two slashes
/// after it, to an "@".
std::string withoutCredentials(std::string_view text);

/// Returns whether the host of `authority`, optionally followed by a port, is the device itself.
bool isLoopbackAuthority(std::string_view authority);

}  // namespace jx
