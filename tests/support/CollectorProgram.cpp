// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/CollectorProgram.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

#include "jx/core/json/JXJsonReader.h"
#include "tests/support/HttpsClient.h"

namespace jx::test {
namespace {

JXJsonObject parsed(const std::string& text) {
  const JXJsonObject object = JXJsonReader::read(text).value.object();
  if (!object.isPresent()) throw std::runtime_error("not a JSON object: " + text);
  return object;
}

}  // namespace

CollectorProgram::CollectorProgram(const std::string& program, const std::string& folder, int port)
    : process_(program,
               {"collector", "--state", folder + "/collector", "--port", std::to_string(port),
                "--web-port", "0", "--ports-file", folder + "/ports"}) {
  if (!process_.waitForOutput("Ctrl-C", std::chrono::seconds(60))) {
    throw std::runtime_error("the collector did not start");
  }
  std::ifstream file(folder + "/ports", std::ios::binary);
  ports_ = parsed(std::string(std::istreambuf_iterator<char>(file), {}));
}

std::string CollectorProgram::portText(const char* key) const {
  const JXJsonValue value = ports_.get(key);
  return (value.string().isPresent() ? value.string() : value.numberString()).toStdString();
}

std::string CollectorProgram::address() const {
  return "https://127.0.0.1:" + portText("events_port");
}

JXJsonObject CollectorProgram::query(const std::string& path) const {
  HttpsClient client;
  const auto response = client.get("http://127.0.0.1:" + portText("web_port") + path);
  if (response.status != 200) throw std::runtime_error("no response to " + path);
  return parsed(response.body);
}

JXJsonArray CollectorProgram::events() const {
  return query("/api/events?after=0&limit=1000").get("events").array();
}

JXJsonObject CollectorProgram::body(std::size_t index) const {
  return parsed(events().at(index).object().get("body").string().toStdString());
}

std::set<std::string> CollectorProgram::eventIds() const {
  std::set<std::string> ids;
  const JXJsonArray all = events();
  for (const JXJsonValue& event : all.values())
    ids.insert(event.object().get("event_id").string().toStdString());
  return ids;
}

std::string CollectorProgram::repeats() const {
  return query("/api/summary").get("repeats").numberString().toStdString();
}

}  // namespace jx::test
