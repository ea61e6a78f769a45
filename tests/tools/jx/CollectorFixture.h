// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/support/HttpsClient.h"
#include "tests/support/RawConnection.h"
#include "tests/tools/jx/ScratchFolder.h"
#include "tools/jx/collector/CollectorServer.h"

namespace jx {

inline const std::vector<std::string> kJsonContentType{"Content-Type: application/json"};

/// Returns an event body as the library writes it, with the given members and IDs.
inline std::string eventBody(const std::string& members, const std::string& eventId,
                             const std::string& session = "s-1") {
  return "{" + members + R"(,"context":{"event_id":")" + eventId +
         R"(","event_timestamp":1700000000123,"app":{"name":"TV"},"device":{
         "network":{},"os":{},"screen":{},"lifecycle":{"session_id":")" +
         session +
         R"(","new_session":false,"first_execute":false,"is_first_visit":false}}},)"
         R"("user":{"anonymous_id":"u-1"}})";
}

inline std::string namedBody(const std::string& name, const std::string& eventId,
                             const std::string& session = "s-1") {
  return eventBody(R"("event_name":")" + name + "\"", eventId, session);
}

/// A collector in the test process.
class CollectorFixture : public testing::Test {
 protected:
  explicit CollectorFixture(const std::function<void(CollectorSettings&)>& change = {}) {
    CollectorSettings settings;
    settings.stateFolder = folder_ / "state";
    settings.eventsPort = 0;
    settings.webPort = 0;
    if (change) change(settings);
    auto started = CollectorServer::start(settings);
    if (!started) throw std::runtime_error(started.error().text);
    server_ = std::move(*started);
  }

  std::string eventsUrl() const {
    return "https://localhost:" + std::to_string(server_->eventsPort()) +
           "/events?jx_s=7&token=key";
  }
  std::string webUrl(const std::string& rest) const {
    return "http://localhost:" + std::to_string(server_->webPort()) + rest;
  }
  std::string caFile() const { return server_->authorityFile().string(); }

  long send(const std::string& body) { return client().post(eventsUrl(), body).status; }
  HttpsClient& client() {
    if (!client_) client_ = std::make_unique<HttpsClient>(caFile());
    return *client_;
  }
  HttpsClient::Response get(const std::string& path,
                            const std::vector<std::string>& headers = {}) const {
    return HttpsClient().get(webUrl(path), headers);
  }
  HttpsClient::Response post(const std::string& path, const std::string& body,
                             const std::vector<std::string>& headers = kJsonContentType) const {
    return HttpsClient().post(webUrl(path), body, headers);
  }

  rapidjson::Document json(const std::string& path) const { return parsed(get(path).body); }
  static rapidjson::Document parsed(const std::string& text) {
    rapidjson::Document document;
    document.Parse(text.data(), text.size());
    EXPECT_FALSE(document.HasParseError()) << text;
    return document;
  }
  /// Returns the names of the listed events, in order.
  std::vector<std::string> names(const std::string& query) const {
    std::vector<std::string> found;
    const rapidjson::Document list = json("/api/events?" + query);
    EXPECT_TRUE(list.HasMember("events")) << query;
    if (!list.HasMember("events")) return found;
    for (const rapidjson::Value& event : list["events"].GetArray())
      found.emplace_back(event["name"].IsString() ? event["name"].GetString() : "");
    return found;
  }

  /// Returns a request for the event stream, as a browser sends it.
  std::string streamRequest(const std::string& rest = "", const std::string& headers = "") const {
    return "GET /api/stream" + rest +
           " HTTP/1.1\r\nHost: localhost:" + std::to_string(server_->webPort()) + "\r\n" + headers +
           "\r\n";
  }

  ScratchFolder folder_;
  std::unique_ptr<CollectorServer> server_;

 private:
  std::unique_ptr<HttpsClient> client_;
};

}  // namespace jx
