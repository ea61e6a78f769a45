// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <curl/curl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <algorithm>
#include <chrono>

#include "tests/support/HttpsClient.h"
#include "tests/tools/jx/ScratchFolder.h"
#include "tools/jx/collector/CollectorServer.h"

namespace jx {
namespace {

// Long limits, so that the test does not depend on how fast the machine is.
HttpLimits patientLimits() {
  constexpr std::chrono::hours kHour{1};
  HttpLimits limits;
  limits.handshake = limits.idle = limits.silence = limits.request = kHour;
  return limits;
}

CURL* makePost(const std::string& url, const std::string& caFile, const std::string& body) {
  CURL* const handle = curl_easy_init();
  curl_easy_setopt(handle, CURLOPT_URL, url.c_str());
  curl_easy_setopt(handle, CURLOPT_PROXY, "");
  curl_easy_setopt(handle, CURLOPT_NOSIGNAL, 1L);
  curl_easy_setopt(handle, CURLOPT_CAINFO, caFile.c_str());
  curl_easy_setopt(handle, CURLOPT_CAPATH, nullptr);
  curl_easy_setopt(handle, CURLOPT_COPYPOSTFIELDS, body.c_str());
  curl_easy_setopt(handle, CURLOPT_FRESH_CONNECT, 1L);
  return handle;
}

// Sends `count` events concurrently, each on its own connection. Returns the number of responses
// with status 200.
int postAtOnce(const std::string& url, const std::string& caFile, int count) {
  CURLM* const multi = curl_multi_init();
  std::vector<CURL*> handles;
  for (int i = 0; i < count; ++i) {
    const std::string body = "{\"context\":{\"event_id\":\"" + std::to_string(i) + "\"}}";
    handles.push_back(makePost(url, caFile, body));
    curl_multi_add_handle(multi, handles.back());
  }
  int running = count;
  while (running > 0 && curl_multi_perform(multi, &running) == CURLM_OK) {
    curl_multi_poll(multi, nullptr, 0, 1000, nullptr);
  }
  int succeeded = 0;
  for (CURL* const handle : handles) {
    long status = 0;
    curl_easy_getinfo(handle, CURLINFO_RESPONSE_CODE, &status);
    if (status == 200) ++succeeded;
    curl_multi_remove_handle(multi, handle);
    curl_easy_cleanup(handle);
  }
  curl_multi_cleanup(multi);
  return succeeded;
}

TEST(CollectorLoad, StoresAThousandConcurrentRequests) {
  // The test process owns both ends of a thousand connections.
  rlimit limit{};
  ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &limit), 0);
  limit.rlim_cur = std::min<rlim_t>(4096, limit.rlim_max);
  ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &limit), 0);

  const ScratchFolder folder;
  CollectorSettings settings;
  settings.stateFolder = folder / "state";
  settings.eventsPort = 0;
  settings.webPort = 0;
  settings.limits = patientLimits();
  const auto server = CollectorServer::start(settings);
  ASSERT_TRUE(server);
  const std::string url = "https://localhost:" + std::to_string((*server)->eventsPort());
  EXPECT_EQ(postAtOnce(url + "/events", (*server)->authorityFile().string(), 1000), 1000);

  const std::string web = "http://localhost:" + std::to_string((*server)->webPort());
  const auto summary = HttpsClient().get(web + "/api/summary");
  EXPECT_EQ(summary.body.substr(0, 31), "{\"requests\":1000,\"events\":1000,");
}

}  // namespace
}  // namespace jx
