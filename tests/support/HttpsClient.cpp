// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/HttpsClient.h"

#include <utility>

namespace jx {
namespace {

std::size_t append(char* data, std::size_t size, std::size_t count, void* text) {
  static_cast<std::string*>(text)->append(data, size * count);
  return size * count;
}

}  // namespace

HttpsClient::HttpsClient(std::string caFile)
    : caFile_(std::move(caFile)), handle_(curl_easy_init()) {}

HttpsClient::~HttpsClient() {
  curl_easy_cleanup(handle_);
  curl_slist_free_all(resolved_);
}

HttpsClient::Response HttpsClient::get(const std::string& url,
                                       const std::vector<std::string>& headers) {
  return request("GET", url, "", headers);
}

HttpsClient::Response HttpsClient::post(const std::string& url, const std::string& body,
                                        const std::vector<std::string>& headers) {
  return request("POST", url, body, headers);
}

void HttpsClient::pointAtLoopback(const std::string& host, int port) {
  const std::string entry = host + ":" + std::to_string(port) + ":127.0.0.1";
  resolved_ = curl_slist_append(resolved_, entry.c_str());
}

HttpsClient::Response HttpsClient::request(const std::string& method, const std::string& url,
                                           const std::string& body,
                                           const std::vector<std::string>& headers) {
  Response response;
  curl_slist* list = nullptr;
  for (const std::string& header : headers)
    list = curl_slist_append(list, header.c_str());
  curl_easy_reset(handle_);
  curl_easy_setopt(handle_, CURLOPT_URL, url.c_str());
  curl_easy_setopt(handle_, CURLOPT_PROXY, "");
  curl_easy_setopt(handle_, CURLOPT_NOSIGNAL, 1L);
  curl_easy_setopt(handle_, CURLOPT_TIMEOUT, 60L);
  curl_easy_setopt(handle_, CURLOPT_HTTPHEADER, list);
  curl_easy_setopt(handle_, CURLOPT_RESOLVE, resolved_);
  if (!caFile_.empty()) {
    curl_easy_setopt(handle_, CURLOPT_CAINFO, caFile_.c_str());
    curl_easy_setopt(handle_, CURLOPT_CAPATH, nullptr);
  }
  if (method == "POST" || !body.empty()) {
    curl_easy_setopt(handle_, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(body.size()));
    curl_easy_setopt(handle_, CURLOPT_POSTFIELDS, body.data());
  }
  if (method == "HEAD") {
    curl_easy_setopt(handle_, CURLOPT_NOBODY, 1L);
  } else {
    curl_easy_setopt(handle_, CURLOPT_CUSTOMREQUEST, method.c_str());
  }
  curl_easy_setopt(handle_, CURLOPT_WRITEFUNCTION, append);
  curl_easy_setopt(handle_, CURLOPT_WRITEDATA, &response.body);
  curl_easy_setopt(handle_, CURLOPT_HEADERFUNCTION, append);
  curl_easy_setopt(handle_, CURLOPT_HEADERDATA, &response.headers);
  response.error = curl_easy_perform(handle_);
  curl_easy_getinfo(handle_, CURLINFO_RESPONSE_CODE, &response.status);
  curl_easy_getinfo(handle_, CURLINFO_NUM_CONNECTS, &response.newConnections);
  curl_slist_free_all(list);
  return response;
}

}  // namespace jx
