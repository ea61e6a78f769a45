// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Runs `jx gateway` with a real nats-server.
#include <gtest/gtest.h>
#include <openssl/pem.h>

#include <fstream>
#include <functional>
#include <regex>
#include <thread>

#include "tests/support/HttpsClient.h"
#include "tests/support/JXTestAuthority.h"
#include "tests/support/RawConnection.h"
#include "tests/tools/jx/KafkaMockCluster.h"
#include "tests/tools/jx/NatsServerProcess.h"
#include "tests/tools/jx/ProgramRun.h"

namespace jx {
namespace {

using std::chrono::milliseconds;

constexpr const char* kBody = R"({"event_name":"play","context":{"event_id":"e-1"}})";

class GatewayProgram : public testing::Test {
 protected:
  void startGateway(std::vector<std::string> options, bool isPlain = true) {
    std::vector<std::string> arguments = {"gateway",     "--port",       "0", "--nats",
                                          broker_.url(), "--admin-port", "0"};
    if (isPlain) arguments.emplace_back("--plain");
    arguments.insert(arguments.end(), options.begin(), options.end());
    startWith(arguments);
  }
  void startWith(const std::vector<std::string>& arguments) {
    gateway_.emplace(JX_PROGRAM, arguments);
    ASSERT_TRUE(gateway_->waitForOutput("Admin URL", kPatience));
    ASSERT_TRUE(gateway_->waitForOutput("/\n", kPatience));
    std::smatch found;
    const std::string output = gateway_->output();
    ASSERT_TRUE(std::regex_search(output, found, std::regex(":([0-9]+)/events")));
    port_ = std::stoi(found[1]);
    ASSERT_TRUE(std::regex_search(output, found, std::regex("Admin URL +http://[^:]+:([0-9]+)/")));
    adminPort_ = std::stoi(found[1]);
  }
  // Starts a broker with streams, and a gateway that is connected to it.
  void startBoth(const std::vector<std::string>& options = {}) {
    broker_.start();
    broker_.setUp();
    startGateway(options);
    waitForReadiness(200);
  }
  std::string url(const std::string& path) const {
    return "http://127.0.0.1:" + std::to_string(port_) + path;
  }
  HttpsClient::Response post(const std::string& body,
                             const std::string& query = "jx_s=7&token=secret-key") {
    return HttpsClient().post(url("/events?" + query), body);
  }
  void waitForReadiness(long status) const {
    while (HttpsClient().get(url("/readyz")).status != status)
      std::this_thread::yield();
  }
  std::string metric(const std::string& name) const {
    const std::string text =
        HttpsClient().get("http://127.0.0.1:" + std::to_string(adminPort_) + "/metrics").body;
    const std::size_t at = text.find("\n" + name + " ");
    if (at == std::string::npos) return "missing";
    const std::size_t start = at + name.size() + 2;
    return text.substr(start, text.find('\n', start) - start);
  }
  // Returns the bodies of a stream.
  std::vector<std::string> stored(const std::string& stream) const {
    natsConnection* connection = nullptr;
    jsCtx* context = nullptr;
    natsSubscription* subscription = nullptr;
    EXPECT_EQ(natsConnection_ConnectTo(&connection, broker_.url().c_str()), NATS_OK);
    EXPECT_EQ(natsConnection_JetStream(&context, connection, nullptr), NATS_OK);
    jsSubOptions options;
    jsSubOptions_Init(&options);
    options.Stream = stream.c_str();
    EXPECT_EQ(js_SubscribeSync(&subscription, context, ">", nullptr, &options, nullptr), NATS_OK);
    std::vector<std::string> bodies;
    natsMsg* message = nullptr;
    while (natsSubscription_NextMsg(&message, subscription, 300) == NATS_OK) {
      bodies.emplace_back(natsMsg_GetData(message),
                          static_cast<std::size_t>(natsMsg_GetDataLength(message)));
      natsMsg_Destroy(message);
    }
    natsSubscription_Destroy(subscription);
    jsCtx_Destroy(context);
    natsConnection_Destroy(connection);
    return bodies;
  }
  ChildProcess::Result stop() {
    gateway_->signal(SIGTERM);
    return gateway_->wait(kPatience);
  }

  NatsServerProcess broker_;
  std::optional<ChildProcess> gateway_;
  int port_ = 0;
  int adminPort_ = 0;
};

TEST_F(GatewayProgram, StoresEventsOnce) {
  startBoth();
  EXPECT_EQ(post(kBody).status, 204);
  EXPECT_EQ(post(kBody).status, 204);
  EXPECT_EQ(stored("EVENTS"), std::vector<std::string>{kBody});
  EXPECT_EQ(metric("jx_gateway_events_accepted_total"), "2");
  EXPECT_EQ(metric("jx_gateway_events_duplicate_total"), "1");
  EXPECT_EQ(metric("jx_gateway_broker_ack_seconds_count"), "2");
  EXPECT_EQ(metric("jx_gateway_broker_connected"), "1");
  EXPECT_EQ(stop().status, 0);
}

TEST_F(GatewayProgram, KeepsSourceKeysBodiesAndAddressesOutOfItsLog) {
  startBoth({"--access-log", "all", "--allow", "7:secret-key"});
  // A request ID of the log cannot contain this event ID by chance.
  const std::string body = R"({"event_name":"play","context":{"event_id":"stored-event"}})";
  EXPECT_EQ(post(body).status, 204);
  EXPECT_EQ(post(body, "jx_s=8&token=other-key").status, 403);
  RawConnection(port_).send("GET /private HTTP/1.1\r\n\r\n");
  EXPECT_TRUE(gateway_->waitForErrors("broker_connected", kPatience));
  const ChildProcess::Result result = stop();
  EXPECT_EQ(result.status, 0);
  EXPECT_TRUE(contains(result.errors, R"("event":"started","version")")) << result.errors;
  EXPECT_TRUE(contains(result.errors, R"("status":403,"reason":"unknown_source","site":"8")"));
  EXPECT_TRUE(contains(result.errors, R"("event":"broker_connected")"));
  EXPECT_TRUE(contains(result.errors, R"("event":"stopped","accepted":1,"requests_cut":0})"));
  for (const char* const text :
       {"secret-key", "other-key", "stored-event", "play", "private", "127.0.0.1"})
    EXPECT_FALSE(contains(result.errors, text)) << text << " in\n" << result.errors;
}

TEST_F(GatewayProgram, RefusesEventsUntilTheBrokerRuns) {
  startGateway({});
  const HttpsClient::Response refused = post(kBody);
  EXPECT_EQ(refused.status, 503);
  EXPECT_TRUE(contains(refused.headers, "Retry-After: 5\r\n"));
  EXPECT_EQ(HttpsClient().get(url("/readyz")).status, 503);
  EXPECT_EQ(HttpsClient().get(url("/healthz")).status, 200);
  EXPECT_EQ(metric("jx_gateway_requests_refused_total{reason=\"broker_unavailable\"}"), "1");
  broker_.start();
  waitForReadiness(200);
  EXPECT_EQ(post(kBody).status, 503) << "without a stream";
  EXPECT_EQ(metric("jx_gateway_requests_refused_total{reason=\"broker_refused\"}"), "1");
  broker_.setUp();
  EXPECT_EQ(post(kBody).status, 204);
}

TEST_F(GatewayProgram, RecoversWhenTheBrokerIsKilledAndFrozen) {
  startBoth({"--broker-timeout", "300"});
  EXPECT_EQ(post(kBody).status, 204);
  broker_.kill();
  waitForReadiness(503);
  EXPECT_EQ(post(kBody).status, 503);
  broker_.start();
  waitForReadiness(200);
  EXPECT_EQ(post(kBody).status, 204);
  broker_.freeze();
  EXPECT_EQ(post(R"({"event_name":"play","context":{"event_id":"e-2"}})").status, 503);
  EXPECT_EQ(metric("jx_gateway_requests_refused_total{reason=\"broker_timeout\"}"), "1");
  broker_.thaw();
  waitForReadiness(200);
  while (post(R"({"event_name":"play","context":{"event_id":"e-2"}})").status != 204)
    std::this_thread::yield();
  EXPECT_EQ(stored("EVENTS").size(), 2u);
}

TEST_F(GatewayProgram, RecoversWhenTheStreamIsDeleted) {
  startBoth();
  EXPECT_EQ(post(kBody).status, 204);
  natsConnection* connection = nullptr;
  jsCtx* context = nullptr;
  ASSERT_EQ(natsConnection_ConnectTo(&connection, broker_.url().c_str()), NATS_OK);
  ASSERT_EQ(natsConnection_JetStream(&context, connection, nullptr), NATS_OK);
  ASSERT_EQ(js_DeleteStream(context, "EVENTS", nullptr, nullptr), NATS_OK);
  jsCtx_Destroy(context);
  natsConnection_Destroy(connection);
  EXPECT_EQ(post(kBody).status, 503);
  broker_.setUp();
  EXPECT_EQ(post(kBody).status, 204);
}

TEST_F(GatewayProgram, StoresInvalidEventsInASecondStream) {
  startBoth({"--validate"});
  EXPECT_EQ(post("rubbish").status, 204);
  EXPECT_EQ(post(kBody).status, 204);
  EXPECT_EQ(stored("INVALID_EVENTS"), (std::vector<std::string>{"rubbish", kBody}));
  EXPECT_TRUE(stored("EVENTS").empty());
  EXPECT_EQ(metric("jx_gateway_events_invalid_total"), "2");
}

TEST_F(GatewayProgram, StoresValidEventsOfTheLibraryInTheFirstStream) {
  startBoth({"--validate"});
  const test::TemporaryFolder state;
  const ChildProcess::Result replay =
      runJx({"replay", "--state", state.path(), "--to", url(""), "--site", "7"}, customEvents(20));
  EXPECT_EQ(replay.status, 0) << replay.errors;
  EXPECT_EQ(stored("EVENTS").size(), 20u);
  EXPECT_TRUE(stored("INVALID_EVENTS").empty());
}

// Televisions often have a wrong clock.
TEST_F(GatewayProgram, StoresEventsOfTelevisionsWithWrongClocks) {
  startBoth({"--validate"});
  for (const char* const time : {"86400000", "4102444800000"}) {  // 1970 and 2100
    const test::TemporaryFolder state;
    const ChildProcess::Result replay =
        runJx({"replay", "--state", state.path(), "--to", url(""), "--site", "7", "--at", time},
              customEvents(3));
    EXPECT_EQ(replay.status, 0) << replay.errors;
  }
  EXPECT_EQ(stored("EVENTS").size(), 6u);
  EXPECT_TRUE(stored("INVALID_EVENTS").empty());
}

TEST_F(GatewayProgram, SurvivesBadInput) {
  startBoth({"--max-body", "100000"});
  const std::vector<std::pair<std::string, std::string>> expected = {
      {"POST /events HTTP/1.1\r\nHost: a\r\nContent-Length: 10485760\r\n\r\n" +
           std::string(200'000, 'x'),
       "413"},
      {"GET /" + std::string(100'000, 'a') + " HTTP/1.1\r\nHost: a\r\n\r\n", "431"},
      {std::string(50'000, '\xFF'), "400"},
      {"\x16\x03\x01\x02\x00\x01\x00\x01\xFC\x03\x03" + std::string(100, 'a') + "\r\n\r\n", "400"},
      {"POST /events HTTP/1.1\r\nHost: a\r\nContent-Length: 3\r\nTransfer-Encoding: "
       "chunked\r\n\r\n0\r\n\r\n",
       "400"},
      {"POST /events HTTP/1.1\r\nHost: a\r\nContent-Length: 3\r\nContent-Length: 4\r\n\r\nabc",
       "400"},
      {"GET /chat HTTP/1.1\r\nHost: a\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n\r\n", "404"},
      {"PRI * HTTP/2.0\r\n\r\nSM\r\n\r\n", "505"},
      {"CONNECT a:1 HTTP/1.1\r\nHost: a\r\n\r\n", "404"},
  };
  for (const auto& [request, status] : expected) {
    RawConnection connection(port_);
    connection.send(request);
    EXPECT_EQ(connection.readUntil("\r\n\r\n").substr(0, 13), "HTTP/1.1 " + status + " ")
        << request.substr(0, 80);
  }
  EXPECT_EQ(post(std::string(90'000, '[')).status, 204);
  EXPECT_EQ(post("").status, 204);
  EXPECT_EQ(post(kBody, "jx_s=99999999999999999999&token=%00").status, 204);
  EXPECT_EQ(post(R"({"event_name":"a.b>*\r\n","context":{"event_id":"x\r\nNats-X: 1"}})").status,
            204);
  EXPECT_EQ(stored("EVENTS").size(), 4u);
}

TEST_F(GatewayProgram, ServesManyClientsWhileOthersStall) {
  startBoth();
  std::vector<std::unique_ptr<RawConnection>> stalled;
  for (int i = 0; i < 500; ++i) {
    stalled.push_back(std::make_unique<RawConnection>(port_));
    stalled.back()->send("POST /events HTTP/1.1\r\nHost: a\r\nContent-Le");
  }
  std::vector<std::thread> clients;
  std::atomic<int> accepted{0};
  for (int client = 0; client < 20; ++client) {
    clients.emplace_back([&, client] {
      HttpsClient http;
      for (int i = 0; i < 25; ++i) {
        const std::string id = std::to_string(client) + "-" + std::to_string(i);
        const std::string body = R"({"context":{"event_id":")" + id + "\"}}";
        if (http.post(url("/events?jx_s=7&token=a"), body).status == 204) ++accepted;
      }
    });
  }
  for (std::thread& client : clients)
    client.join();
  EXPECT_EQ(accepted, 500);
  EXPECT_EQ(stored("EVENTS").size(), 500u);
}

TEST_F(GatewayProgram, DrainsWhenItIsStopped) {
  startBoth({"--broker-timeout", "60000"});
  broker_.freeze();
  RawConnection connection(port_);
  connection.send("POST /events?jx_s=7 HTTP/1.1\r\nHost: a\r\nContent-Length: 2\r\n\r\n{}");
  while (metric("jx_gateway_requests_in_flight") != "1")
    std::this_thread::yield();
  gateway_->signal(SIGTERM);
  EXPECT_TRUE(gateway_->waitForErrors("\"event\":\"stopping\"", kPatience));
  EXPECT_EQ(HttpsClient().get("http://127.0.0.1:" + std::to_string(adminPort_) + "/readyz").body,
            "stopping\n");
  broker_.thaw();
  EXPECT_EQ(connection.readToEnd().substr(0, 13), "HTTP/1.1 204 ");
  EXPECT_EQ(gateway_->wait(kPatience).status, 0);
}

TEST_F(GatewayProgram, EndsWithAnErrorWhenRequestsAreCut) {
  startBoth({"--broker-timeout", "60000", "--drain-time", "100"});
  broker_.freeze();
  RawConnection connection(port_);
  connection.send("POST /events?jx_s=7 HTTP/1.1\r\nHost: a\r\nContent-Length: 2\r\n\r\n{}");
  while (metric("jx_gateway_requests_in_flight") != "1")
    std::this_thread::yield();
  const ChildProcess::Result result = stop();
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(contains(result.errors, "\"requests_cut\":1}")) << result.errors;
  broker_.thaw();
}

// A mock cluster of librdkafka, not a real broker.
TEST_F(GatewayProgram, StoresEventsInKafka) {
  const test::KafkaMockCluster kafka;
  std::vector<std::string> arguments = {"gateway",    "--port",       "0", "--plain",
                                        "--validate", "--admin-port", "0"};
  for (const std::string& server : kafka.servers())
    arguments.insert(arguments.end(), {"--kafka", server});
  startWith(arguments);
  waitForReadiness(200);
  EXPECT_EQ(post(kBody).status, 204);
  const std::vector<test::KafkaRecord> records = kafka.records("events-invalid");
  ASSERT_EQ(records.size(), 1u);
  EXPECT_EQ(records[0].body, kBody);
  EXPECT_EQ(records[0].key, "e-1");
  EXPECT_EQ(records[0].headers.at("event_id"), "e-1");
  EXPECT_EQ(records[0].headers.at("site"), "7");
  EXPECT_NE(records[0].headers.at("diagnostics").find("missing_context"), std::string::npos);
  EXPECT_TRUE(kafka.records("events").empty());
  kafka.stop();
  waitForReadiness(503);
  EXPECT_EQ(post(kBody).status, 503);
  kafka.start();
  waitForReadiness(200);
  EXPECT_EQ(post(kBody).status, 204);
  EXPECT_EQ(stop().status, 0);
}

TEST_F(GatewayProgram, KeepsDescriptorsForTheBroker) {
  broker_.start();
  broker_.setUp();
  gateway_.emplace(
      "/usr/bin/prlimit",
      std::vector<std::string>{"--nofile=300:300", JX_PROGRAM, "gateway", "--plain", "--port", "0",
                               "--admin-port", "-1", "--nats", broker_.url()});
  EXPECT_TRUE(gateway_->waitForErrors(
      R"("event":"max_connections_reduced","connections":172,"reason":"limit of open files"})",
      kPatience));
}

class GatewayTls : public GatewayProgram {
 protected:
  GatewayTls() {
    const test::JXTestIdentity identity = authority_.issue({"IP:127.0.0.1"});
    const auto write = [&](const char* name, const std::function<void(BIO*)>& fill) {
      BIO* const bio = BIO_new_file(folder_.path(name).c_str(), "w");
      fill(bio);
      BIO_free(bio);
    };
    write("cert.pem", [&](BIO* bio) { PEM_write_bio_X509(bio, identity.certificate.get()); });
    write("key.pem", [&](BIO* bio) {
      PEM_write_bio_PrivateKey(bio, identity.key.get(), nullptr, nullptr, 0, nullptr, nullptr);
    });
  }

  const test::JXTestAuthority authority_;
  const test::TemporaryFolder folder_;
};

TEST_F(GatewayTls, StoresEventsOfVerifiedClientsOnly) {
  broker_.start();
  broker_.setUp();
  startGateway({"--cert", folder_.path("cert.pem"), "--key", folder_.path("key.pem")}, false);
  const std::string events = "https://127.0.0.1:" + std::to_string(port_) + "/events?jx_s=7";
  HttpsClient client(authority_.caFile());
  while (client.get("https://127.0.0.1:" + std::to_string(port_) + "/readyz").status != 200)
    std::this_thread::yield();
  EXPECT_EQ(client.post(events, kBody).status, 204);
  EXPECT_EQ(client.post(events, kBody).newConnections, 0) << "the connection is kept";
  EXPECT_EQ(HttpsClient().post(events, kBody).error, CURLE_PEER_FAILED_VERIFICATION);
  RawConnection plain(port_);
  plain.send("POST /events HTTP/1.1\r\nHost: a\r\nContent-Length: 2\r\n\r\n{}");
  EXPECT_FALSE(contains(plain.readToEnd(), "HTTP/1.1"));
  RawConnection silent(port_);
  EXPECT_EQ(client.post(events, kBody).status, 204);
  EXPECT_EQ(stop().status, 0);
}

TEST_F(GatewayTls, DrainsAtOnceThoughAClientDoesNotCompleteTheHandshake) {
  startGateway({"--cert", folder_.path("cert.pem"), "--key", folder_.path("key.pem"),
                "--drain-time", "3600000"},
               false);
  RawConnection silent(port_);
  while (metric("jx_gateway_connections") != "1")
    std::this_thread::yield();
  EXPECT_EQ(stop().status, 0);
}

// The signal would end the process when a client closes a connection early.
TEST_F(GatewayProgram, IgnoresTheSignalOfBrokenPipes) {
  startGateway({});
  std::ifstream file("/proc/" + std::to_string(gateway_->pid()) + "/status");
  std::string line;
  while (std::getline(file, line) && line.compare(0, 7, "SigIgn:") != 0) {
  }
  const std::uint64_t ignored = std::stoull(line.substr(8), nullptr, 16);
  EXPECT_NE(ignored & (std::uint64_t{1} << (SIGPIPE - 1)), 0u);
}

TEST_F(GatewayTls, ReportsFilesThatItCannotUse) {
  const std::string certificate = folder_.path("cert.pem");
  const ChildProcess::Result missing = runJx(
      {"gateway", "--nats", "nats://127.0.0.1:1", "--cert", certificate, "--key", "/nonexistent"});
  EXPECT_EQ(missing.status, 1);
  EXPECT_EQ(missing.errors.substr(0, 23), "jx gateway: cannot use ") << missing.errors;
  EXPECT_EQ(runJx({"gateway", "--check", "--nats", "nats://127.0.0.1:1", "--cert", certificate,
                   "--key", certificate})
                .status,
            2);
}

class GatewayConfiguration : public testing::Test {
 protected:
  ChildProcess::Result check(const std::string& file, std::vector<std::string> more = {}) const {
    std::vector<std::string> arguments = {"gateway", "--check", "--config",
                                          folder_.write("gateway.toml", file)};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return runJx(arguments);
  }

  const test::TemporaryFolder folder_;
};

TEST_F(GatewayConfiguration, IsReadFromAFile) {
  const ChildProcess::Result result = check(
      "# a comment\n"
      "port = 0\n"
      "plain = true\n"
      "nats = [\"nats://127.0.0.1:4222\", \"nats://127.0.0.1:4223\"]\n"
      "allow = [\"7:key\", \"8:with:colon\"]\n"
      "access-log = \"none\"\n");
  EXPECT_EQ(result.status, 0) << result.errors;
  EXPECT_EQ(result.errors, "");
}

TEST_F(GatewayConfiguration, OptionsOfTheCommandLineTakePrecedence) {
  const std::string file = "port = 99999\nplain = true\nnats = [\"nats://127.0.0.1:4222\"]\n";
  EXPECT_EQ(check(file).status, 2);
  EXPECT_EQ(check(file, {"--port", "1"}).status, 0);
}

TEST_F(GatewayConfiguration, ErrorsNameTheKey) {
  const std::string start = "plain = true\nnats = [\"nats://127.0.0.1:4222\"]\n";
  const std::vector<std::pair<std::string, std::string>> expected = {
      {"prot = 1\n", "unknown key \"prot\""},
      {"config = \"a\"\n", "unknown key \"config\""},
      {"[gateway]\nport = 1\n", "tables such as [gateway] are not supported"},
      {"port = \"x\"\n", "--port"},
      {"port = 1\nvalidate = true\nport = 2\n", "line 5: repeated key \"port\""},
      {"allow = [\"7:a#b\"]\n", "line 3: \"#\" is only supported at the start of a line"},
      {"allow = [\"7:a\",\n\"8:b\"]\n", "line 3: a list must be in one line"},
      {"log-level = \"loud\"\n", "--log-level"},
      {"allow = [\"key\"]\n", "--allow must be SITE:KEY"},
      {"allow = [\"x:key\"]\n", "--allow must be SITE:KEY"},
      {"allow = [\"7:\"]\n", "--allow must be SITE:KEY"},
  };
  for (const auto& [line, error] : expected) {
    const ChildProcess::Result result = check(start + line);
    EXPECT_EQ(result.status, 2) << line;
    EXPECT_TRUE(contains(result.errors, error)) << line << result.errors;
    EXPECT_EQ(linesOf(result.errors), 1) << result.errors;
  }
  EXPECT_TRUE(contains(check("plain = true\n").errors, "either --nats or --kafka is required"));
  EXPECT_TRUE(contains(check(start + "kafka = [\"a:1\"]\n").errors, "either --nats or --kafka"));
  EXPECT_TRUE(contains(check("nats = [\"nats://a\"]\n").errors, "--cert and --key are required"));
  EXPECT_EQ(runJx({"gateway", "--config", folder_.path("missing")}).status, 2);
}

}  // namespace
}  // namespace jx
