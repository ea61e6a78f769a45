// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXCurlTrust.h"

#include <curl/curl.h>

#include "jx/core/transfer/JXPublicKeyPin.h"

namespace jx {

bool requireTrust(void* easy, const JXHttpOptions& options) {
  bool isSecure = true;
  const auto set = [&](CURLoption option, auto value) {
    isSecure = curl_easy_setopt(easy, option, value) == CURLE_OK && isSecure;
  };
  set(CURLOPT_SSL_VERIFYPEER, 1L);
  set(CURLOPT_SSL_VERIFYHOST, 2L);
  set(CURLOPT_SSLVERSION, static_cast<long>(CURL_SSLVERSION_TLSv1_2));
  if (options.caFile.isPresent()) {
    set(CURLOPT_CAINFO, options.caFile.c_str());
    // Otherwise the system's certificate folder would be trusted too.
    curl_easy_setopt(easy, CURLOPT_CAPATH, nullptr);
#if LIBCURL_VERSION_NUM >= 0x075700
    // A replaced file takes effect with the next connection, not a day later.
    curl_easy_setopt(easy, CURLOPT_CA_CACHE_TIMEOUT, 0L);
#endif
  }
  if (!options.pinnedPublicKeys.empty()) {
    set(CURLOPT_PINNEDPUBLICKEY, joinedPins(options.pinnedPublicKeys).c_str());
  }
  return isSecure;
}

}  // namespace jx
