// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/CollectorServer.h"

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include "tests/support/HttpsClient.h"
#include "tests/tools/jx/ScratchFolder.h"
#include "tools/jx/collector/SqliteDatabase.h"

namespace jx {
namespace {

const std::string kEvent =
    R"({"event_name":"play","context":{"event_id":"e-1","event_timestamp":1700000000123}})";

class CollectorServerTest : public testing::Test {
 protected:
  CollectorServerTest() {
    CollectorSettings settings;
    settings.stateFolder = folder_ / "state";
    settings.eventsPort = 0;
    settings.webPort = 0;
    settings.names = {"tv-desk.example"};
    auto started = CollectorServer::start(settings);
    if (!started) throw std::runtime_error(started.error().text);
    server_ = std::move(*started);
  }

  std::string eventsUrl(const std::string& rest = "/events?jx_s=7&token=key") const {
    return "https://localhost:" + std::to_string(server_->eventsPort()) + rest;
  }
  std::string webUrl(const std::string& rest) const {
    return "http://localhost:" + std::to_string(server_->webPort()) + rest;
  }
  std::string caFile() const { return server_->authorityFile().string(); }

  /// Returns the JSON response of the web port.
  rapidjson::Document json(const std::string& path) const {
    const HttpsClient::Response response = HttpsClient().get(webUrl(path));
    EXPECT_EQ(response.status, 200) << path;
    EXPECT_NE(response.headers.find("Content-Type: application/json"), std::string::npos);
    rapidjson::Document document;
    document.Parse(response.body.data(), response.body.size());
    EXPECT_FALSE(document.HasParseError()) << response.body;
    return document;
  }

  ScratchFolder folder_;
  std::unique_ptr<CollectorServer> server_;
};

TEST_F(CollectorServerTest, AboutReturnsTheEventsPortAndCaFile) {
  const rapidjson::Document about = json("/api/about");
  EXPECT_EQ(about["events_port"].GetInt(), server_->eventsPort());
  EXPECT_EQ(about["ca_file"].GetString(), caFile());
}

TEST_F(CollectorServerTest, DoesNotCompressWebResponses) {
  for (const std::string path : {"/", "/app.js", "/api/summary"}) {
    const auto response = HttpsClient().get(webUrl(path), {"Accept-Encoding: gzip, deflate, br"});
    EXPECT_EQ(response.status, 200) << path;
    EXPECT_EQ(response.headers.find("Content-Encoding"), std::string::npos) << response.headers;
  }
}

TEST_F(CollectorServerTest, StoresAnEventAndRespondsWith200AndNoBody) {
  const auto response = HttpsClient(caFile()).post(eventsUrl(), kEvent, {"X-Device: tv%41"});
  ASSERT_EQ(response.error, CURLE_OK);
  EXPECT_EQ(response.status, 200);
  EXPECT_EQ(response.body, "");

  const rapidjson::Document list = json("/api/events");
  ASSERT_EQ(list["events"].Size(), 1u);
  const rapidjson::Value& event = list["events"][0];
  EXPECT_STREQ(event["event_id"].GetString(), "e-1");
  EXPECT_STREQ(event["name"].GetString(), "play");
  EXPECT_EQ(event["event_timestamp"].GetInt64(), 1700000000123);
  EXPECT_EQ(event["site"].GetInt64(), 7);
  EXPECT_STREQ(event["token"].GetString(), "key");
  EXPECT_STREQ(event["method"].GetString(), "POST");
  EXPECT_STREQ(event["path"].GetString(), "/events");
  EXPECT_STREQ(event["query"].GetString(), "jx_s=7&token=key");
  EXPECT_EQ(event["repeats"].GetInt64(), 0);
  EXPECT_TRUE(event["problem"].IsNull());
  EXPECT_EQ(event["body"].GetString(), kEvent);
  bool hasHeader = false;
  for (const rapidjson::Value& header : event["headers"].GetArray()) {
    const std::string name = header["name"].GetString();
    EXPECT_NE(name, "REMOTE_ADDR");
    if (name == "X-Device") hasHeader = header["value"].GetString() == std::string("tv%41");
  }
  EXPECT_TRUE(hasHeader);
  EXPECT_EQ(list["last"].GetInt64(), event["id"].GetInt64());
}

TEST_F(CollectorServerTest, CertificateIsValidForEachNameOfTheMachine) {
  HttpsClient client(caFile());
  const std::string port = std::to_string(server_->eventsPort());
  EXPECT_EQ(client.post("https://127.0.0.1:" + port + "/events", kEvent).status, 200);
  client.pointAtLoopback("tv-desk.example", server_->eventsPort());
  EXPECT_EQ(client.post("https://tv-desk.example:" + port + "/events", kEvent).status, 200);
  client.pointAtLoopback("other.example", server_->eventsPort());
  EXPECT_EQ(client.post("https://other.example:" + port + "/events", kEvent).error,
            CURLE_PEER_FAILED_VERIFICATION);
}

TEST_F(CollectorServerTest, ClientsWithAnotherAuthorityRejectTheCertificate) {
  const ScratchFolder other;
  const auto authority =
      CertificateAuthority::open(other.path(), {"localhost"}, std::time(nullptr));
  ASSERT_TRUE(authority);
  EXPECT_EQ(HttpsClient((other / "ca.pem").string()).post(eventsUrl(), kEvent).error,
            CURLE_PEER_FAILED_VERIFICATION);
  EXPECT_EQ(HttpsClient().post(eventsUrl(), kEvent).error, CURLE_PEER_FAILED_VERIFICATION);
}

TEST_F(CollectorServerTest, ReusesOneConnectionForAHundredRequests) {
  HttpsClient client(caFile());
  long connections = 0;
  for (int i = 0; i < 100; ++i) {
    const auto response = client.post(eventsUrl(), "{}");
    ASSERT_EQ(response.status, 200) << i;
    connections += response.newConnections;
  }
  EXPECT_EQ(connections, 1);
  EXPECT_EQ(json("/api/summary")["requests"].GetInt64(), 100);
}

TEST_F(CollectorServerTest, ListsARepeatedEventOnceAndCountsIt) {
  HttpsClient client(caFile());
  for (int i = 0; i < 3; ++i)
    ASSERT_EQ(client.post(eventsUrl(), kEvent).status, 200);
  const rapidjson::Document list = json("/api/events");
  ASSERT_EQ(list["events"].Size(), 1u);
  EXPECT_EQ(list["events"][0]["repeats"].GetInt64(), 2);
  const rapidjson::Document summary = json("/api/summary");
  EXPECT_EQ(summary["requests"].GetInt64(), 3);
  EXPECT_EQ(summary["events"].GetInt64(), 1);
  EXPECT_EQ(summary["repeats"].GetInt64(), 2);
  EXPECT_STREQ(summary["by_name"][0]["name"].GetString(), "play");
  EXPECT_EQ(summary["by_name"][0]["events"].GetInt64(), 1);
  EXPECT_EQ(summary["first_ms"].GetInt64(), list["events"][0]["received_ms"].GetInt64());
}

TEST_F(CollectorServerTest, RejectsAnythingButPostEventsOnTheEventsPort) {
  HttpsClient client(caFile());
  EXPECT_EQ(client.post(eventsUrl("/other"), kEvent).status, 404);
  EXPECT_EQ(client.get(eventsUrl("/")).status, 404);
  EXPECT_EQ(client.get(eventsUrl("/api/events")).status, 404);
  const auto get = client.get(eventsUrl());
  EXPECT_EQ(get.status, 405);
  EXPECT_NE(get.headers.find("Allow: POST"), std::string::npos);
  EXPECT_EQ(client.request("PUT", eventsUrl(), kEvent).status, 405);
  EXPECT_EQ(json("/api/summary")["requests"].GetInt64(), 0);
}

TEST_F(CollectorServerTest, AcceptsBodiesOfUpToSixteenMebibytes) {
  HttpsClient client(caFile());
  const std::string largest(std::size_t{16} * 1024 * 1024, 'x');
  EXPECT_EQ(client.post(eventsUrl(), largest).status, 200);
  EXPECT_EQ(client.post(eventsUrl(), largest + "x").status, 413);
  EXPECT_EQ(client.post(eventsUrl(), largest + "x", {"Expect:"}).status, 413);
  EXPECT_EQ(client.post(eventsUrl(), largest + "x", {"Transfer-Encoding: chunked"}).status, 413);
  EXPECT_EQ(json("/api/summary")["requests"].GetInt64(), 1);
}

TEST_F(CollectorServerTest, StoresInvalidBodiesWithTheirProblem) {
  HttpsClient client(caFile());
  ASSERT_EQ(client.post(eventsUrl(), "not JSON at all").status, 200);
  ASSERT_EQ(client.post(eventsUrl(), std::string("\xFF\0A", 3)).status, 200);
  const rapidjson::Document list = json("/api/events");
  ASSERT_EQ(list["events"].Size(), 2u);
  EXPECT_STREQ(list["events"][0]["problem"].GetString(), "not JSON");
  EXPECT_STREQ(list["events"][0]["body"].GetString(), "not JSON at all");
  EXPECT_FALSE(list["events"][0].HasMember("body_base64"));
  EXPECT_STREQ(list["events"][1]["problem"].GetString(), "not UTF-8");
  const rapidjson::Value& body = list["events"][1]["body"];
  EXPECT_EQ(std::string(body.GetString(), body.GetStringLength()),
            std::string("\xEF\xBF\xBD\0A", 5));
  EXPECT_STREQ(list["events"][1]["body_base64"].GetString(), "/wBB");
  EXPECT_EQ(json("/api/summary")["bad"].GetInt64(), 2);
}

TEST_F(CollectorServerTest, RespondsWith500WhenTheEventCannotBeStored) {
  Result<SqliteDatabase> database = SqliteDatabase::open(folder_ / "state" / "events.db");
  ASSERT_TRUE(database);
  ASSERT_TRUE(database->execute("ALTER TABLE events RENAME TO elsewhere"));
  HttpsClient client(caFile());
  EXPECT_EQ(client.post(eventsUrl(), kEvent).status, 500);
  EXPECT_EQ(HttpsClient().get(webUrl("/api/summary")).status, 500);
  ASSERT_TRUE(database->execute("ALTER TABLE elsewhere RENAME TO events"));
  EXPECT_EQ(client.post(eventsUrl(), kEvent).status, 200);
}

TEST_F(CollectorServerTest, ListsEventsByRowNameAndLimit) {
  HttpsClient client(caFile());
  for (const char* name : {"a", "b", "a", "b"}) {
    const std::string body = std::string(R"({"event_name":")") + name + "\"}";
    ASSERT_EQ(client.post(eventsUrl(), body).status, 200);
  }
  const rapidjson::Document firstTwo = json("/api/events?after=0&limit=2");
  ASSERT_EQ(firstTwo["events"].Size(), 2u);
  EXPECT_STREQ(firstTwo["events"][0]["name"].GetString(), "a");
  EXPECT_STREQ(firstTwo["events"][1]["name"].GetString(), "b");
  const std::string last = std::to_string(firstTwo["last"].GetInt64());
  const rapidjson::Document named = json("/api/events?name=b&after=" + last);
  ASSERT_EQ(named["events"].Size(), 1u);
  const std::string end = std::to_string(named["last"].GetInt64());
  const rapidjson::Document none = json("/api/events?after=" + end);
  EXPECT_EQ(none["events"].Size(), 0u);
  EXPECT_EQ(std::to_string(none["last"].GetInt64()), end);
}

TEST_F(CollectorServerTest, RejectsInvalidParameters) {
  for (const char* query : {"limit=0", "limit=1001", "limit=x", "after=-1", "after="}) {
    const auto response = HttpsClient().get(webUrl(std::string("/api/events?") + query));
    EXPECT_EQ(response.status, 400) << query;
    EXPECT_NE(response.body.find("\"error\""), std::string::npos) << query;
  }
}

TEST_F(CollectorServerTest, ReturnsAnEventByItsId) {
  ASSERT_EQ(HttpsClient(caFile()).post(eventsUrl(), kEvent).status, 200);
  const rapidjson::Document list = json("/api/events");
  const std::string id = std::to_string(list["events"][0]["id"].GetInt64());
  EXPECT_STREQ(json("/api/events/" + id)["event_id"].GetString(), "e-1");
  EXPECT_EQ(HttpsClient().get(webUrl("/api/events/999")).status, 404);
  EXPECT_EQ(HttpsClient().get(webUrl("/api/events/1x")).status, 404);
  EXPECT_EQ(HttpsClient().get(webUrl("/api/events/")).status, 404);
}

TEST_F(CollectorServerTest, ServesTheCaFile) {
  const auto response = HttpsClient().get(webUrl("/ca.pem"));
  EXPECT_EQ(response.status, 200);
  EXPECT_EQ(response.body.substr(0, 27), "-----BEGIN CERTIFICATE-----");
  EXPECT_EQ(response.body.find("PRIVATE"), std::string::npos);
}

TEST_F(CollectorServerTest, PageMayLoadOnlyItsOwnFiles) {
  const auto page = HttpsClient().get(webUrl("/"));
  EXPECT_EQ(page.status, 200);
  EXPECT_NE(page.headers.find("Content-Type: text/html; charset=utf-8\r\n"), std::string::npos);
  EXPECT_NE(page.headers.find("Content-Security-Policy: default-src 'none'; script-src 'self'; "
                              "style-src 'self'; connect-src 'self'; img-src 'self' data:; "
                              "base-uri 'none'; form-action 'none'; frame-ancestors 'none'\r\n"),
            std::string::npos);
  EXPECT_EQ(page.body.substr(0, 15), "<!DOCTYPE html>");
  EXPECT_EQ(HttpsClient().get(webUrl("/index.html")).body, page.body);
  EXPECT_EQ(HttpsClient().get(webUrl("/nothing.js")).status, 404);
}

TEST_F(CollectorServerTest, RejectsUnknownHostNames) {
  ASSERT_EQ(HttpsClient(caFile()).post(eventsUrl(), kEvent).status, 200);
  const auto foreign = HttpsClient().get(webUrl("/api/events"), {"Host: attacker.example"});
  EXPECT_EQ(foreign.status, 403);
  EXPECT_EQ(foreign.body.find("e-1"), std::string::npos);
  EXPECT_EQ(HttpsClient().get(webUrl("/api/events"), {"Host: tv-desk.example:1"}).status, 200);
  EXPECT_EQ(HttpsClient().get(webUrl("/api/events"), {"Host: [::1]:80"}).status, 200);
  EXPECT_EQ(HttpsClient().get(webUrl("/api/events"), {"Host: 127.0.0.1"}).status, 200);
}

}  // namespace
}  // namespace jx
