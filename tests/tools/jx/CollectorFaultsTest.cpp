// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <thread>

#include "tests/tools/jx/CollectorFixture.h"

namespace jx {
namespace {

class CollectorFaults : public CollectorFixture {
 protected:
  std::int64_t stored() const { return json("/api/summary")["requests"].GetInt64(); }
};

TEST_F(CollectorFaults, RespondsWithTheStatusAndStoresNothing) {
  const auto armed = post("/api/faults", R"({"next":2,"status":429,"retry_after":"5"})");
  EXPECT_EQ(armed.status, 200);
  EXPECT_EQ(get("/api/faults").body, armed.body);
  for (int i = 0; i < 2; ++i) {
    const auto response = client().post(eventsUrl(), namedBody("login", "e-1"));
    EXPECT_EQ(response.status, 429);
    EXPECT_NE(response.headers.find("Retry-After: 5\r\n"), std::string::npos);
    EXPECT_EQ(response.body, "");
  }
  EXPECT_EQ(stored(), 0);
  EXPECT_EQ(send(namedBody("login", "e-1")), 200);
  EXPECT_EQ(stored(), 1);
  EXPECT_EQ(get("/api/faults").body, R"({"armed":null,"met":2})");
}

TEST_F(CollectorFaults, StoresTheEventForA2xxStatus) {
  ASSERT_EQ(post("/api/faults", R"({"next":1,"status":202,"delay_ms":1})").status, 200);
  EXPECT_EQ(send(namedBody("login", "e-1")), 202);
  EXPECT_EQ(stored(), 1);
}

TEST_F(CollectorFaults, StoresNothingWhenResettingTheConnection) {
  ASSERT_EQ(post("/api/faults", R"({"next":1,"action":"reset"})").status, 200);
  const auto broken = HttpsClient(caFile()).post(eventsUrl(), namedBody("login", "e-1"));
  EXPECT_EQ(broken.error, CURLE_RECV_ERROR);
  EXPECT_EQ(stored(), 0);
  EXPECT_EQ(send(namedBody("login", "e-1")), 200);
}

TEST_F(CollectorFaults, StopsWhileAHangingRequestIsOpen) {
  ASSERT_EQ(post("/api/faults", R"({"next":1,"action":"hang"})").status, 200);
  CURLcode error = CURLE_OK;
  std::thread device([&error, url = eventsUrl(), ca = caFile()] {
    error = HttpsClient(ca).post(url, namedBody("login", "e-1")).error;
  });
  while (get("/api/faults").body.find("\"met\":1") == std::string::npos) {
  }
  EXPECT_EQ(stored(), 0);
  server_.reset();
  device.join();
  EXPECT_EQ(error, CURLE_RECV_ERROR);
}

TEST_F(CollectorFaults, DeleteClearsTheFault) {
  ASSERT_EQ(post("/api/faults", R"({"status":503})").status, 200);
  EXPECT_EQ(send(namedBody("login", "e-1")), 503);
  const auto cleared = HttpsClient().request("DELETE", webUrl("/api/faults"), "", kJsonContentType);
  EXPECT_EQ(cleared.status, 200);
  EXPECT_EQ(cleared.body, R"({"armed":null,"met":1})");
  EXPECT_EQ(send(namedBody("login", "e-1")), 200);
  EXPECT_EQ(HttpsClient().request("DELETE", webUrl("/api/faults"), "").status, 415);
}

TEST_F(CollectorFaults, RejectsUnknownKeys) {
  const auto response = post("/api/faults", R"({"statsu":503})");
  EXPECT_EQ(response.status, 400);
  EXPECT_EQ(response.body, R"({"error":"unknown key: statsu"})");
}

}  // namespace
}  // namespace jx
