// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Host names that do not resolve, and proxies. Requests to loopback never use a proxy, so the
// collector has a host name here that only the proxy can resolve.

#include <gtest/gtest.h>

#include "jx/core/transfer/JXNetworkManager.h"
#include "tests/fault/FaultTable.h"
#include "tests/fault/ServerFault.h"
#include "tests/support/ReservedPort.h"
#include "tests/support/ScopedEnvironment.h"
#include "tests/support/ServerSideFixture.h"

namespace jx::test {
namespace {

using namespace std::chrono_literals;
using Texts = std::vector<std::string>;

JXTestServerOptions namedCollector() {
  JXTestServerOptions options;
  options.certificateNames = {"DNS:collector.invalid"};
  return options;
}

class Proxy : public ::testing::Test {
 protected:
  Proxy() {
    scenario.url = "https://collector.invalid/events?jx_s=1&token=key";
    for (const char* name : {"https_proxy", "HTTPS_PROXY", "http_proxy", "HTTP_PROXY", "all_proxy",
                             "ALL_PROXY", "no_proxy", "NO_PROXY"}) {
      environment.unset(name);
    }
  }
  void startProxy() { scenario.proxy = std::make_unique<JXTestProxy>(scenario.server.port()); }
  void expectDelivery() {
    scenario.startProcess();
    scenario.execute("a");
    EXPECT_TRUE(scenario.deliverAll());
    EXPECT_EQ(scenario.server.bodies(), Texts{bodyOf("a")});
  }
  // Without the proxy, the host name is unknown, so no connection is made.
  void expectNoConnection() {
    scenario.startProcess();
    scenario.execute("a");
    ASSERT_TRUE(scenario.waitForFailedAttempts(1));
    EXPECT_NE(scenario.failures.all().front().reason.find("resolve host"), std::string::npos);
    EXPECT_EQ(scenario.counters().outbox.queued, 1u);
    EXPECT_EQ(scenario.connections(), 0);
  }
  ServerFault proxyResponse(int status, const std::string& order) const {
    ServerFault fault;
    const std::string number = std::to_string(status);
    fault.order = order;
    fault.fault = "proxy responds with " + number;
    fault.did = "a proxy responded to CONNECT with " + number;
    fault.play = [status](ServerScenario& played) {
      played.proxy = std::make_unique<JXTestProxy>(played.server.port());
      played.setup.proxy = played.proxy->url();
      played.proxy->answer(status);
    };
    fault.heal = [](ServerScenario& played) { played.proxy->answer(200); };
    fault.reason = number;
    fault.requestsRead = 0;
    return fault;
  }

  ScopedEnvironment environment;
  ServerScenario scenario{namedCollector()};
};

TEST_F(Proxy, KeepsEventsQueuedWhileHostDoesNotResolve) {
  ServerFault fault;
  fault.order = "6.01";
  fault.fault = "host name that does not resolve";
  fault.did = "the name server did not know collector.invalid";
  fault.play = [](ServerScenario&) {};
  fault.heal = [](ServerScenario& played) {
    played.proxy = std::make_unique<JXTestProxy>(played.server.port());
    played.setup.proxy = played.proxy->url();
  };
  fault.reason = "resolve host";
  fault.requestsRead = 0;
  expectDeliveryAfterFault(scenario, fault, HealedBefore::TheNextProcess);
}

TEST_F(Proxy, KeepsEventsQueuedWhileUnreachable) {
  const ReservedPort port;
  ServerFault fault;
  fault.order = "6.02";
  fault.fault = "unreachable proxy";
  fault.did = "no process listened on the proxy's port";
  fault.play = [&](ServerScenario& played) {
    played.setup.proxy = "http://127.0.0.1:" + std::to_string(port.number());
  };
  fault.heal = [&](ServerScenario& played) {
    played.proxy = std::make_unique<JXTestProxy>(played.server.port(), port.number());
  };
  fault.reason = "connect to server";
  fault.requestsRead = 0;
  expectDeliveryAfterFault(scenario, fault, HealedBefore::TheSameProcess);
}

TEST_F(Proxy, RetriesWhenProxyRequiresAuthentication) {
  expectDeliveryAfterFault(scenario, proxyResponse(407, "6.03"), HealedBefore::TheSameProcess);
}

TEST_F(Proxy, RetriesWhenProxyDoesNotReachTheServer) {
  expectDeliveryAfterFault(scenario, proxyResponse(502, "6.04"), HealedBefore::TheSameProcess);
}

TEST_F(Proxy, SendsNothingToAnotherServerBehindTheProxy) {
  scenario.proxy = std::make_unique<JXTestProxy>(scenario.elsewhere.port());
  scenario.setup.proxy = scenario.proxy->url();
  scenario.startProcess();
  scenario.execute("a");
  ASSERT_TRUE(scenario.waitForFailedAttempts(1));
  EXPECT_EQ(scenario.elsewhere.connections(), 1);
  EXPECT_EQ(scenario.elsewhere.requests().size(), 0u);
  EXPECT_EQ(scenario.counters().outbox.queued, 1u);
  writeFaultRow({"6.05", "proxy to another server",
                 "a proxy connected to another server with a different certificate",
                 counted(scenario.counters().failures, "failed attempt", "failed attempts") +
                     ", the other server received " +
                     counted(scenario.elsewhere.requests().size(), "request", "requests"),
                 scenario.counters().outbox.delivered, scenario.counters().outbox.queued, 0,
                 droppedOf(scenario.counters().outbox)});
}

TEST_F(Proxy, RevealsOnlyTheHostNameToTheProxy) {
  startProxy();
  scenario.setup.proxy = scenario.proxy->url();
  expectDelivery();
  ASSERT_EQ(scenario.proxy->requests().size(), 1u);
  const JXTestRequest request = scenario.proxy->requests().front();
  EXPECT_EQ(request.method, "CONNECT");
  EXPECT_EQ(request.target, "collector.invalid:443");
  for (const auto& [name, value] : request.headers)
    EXPECT_EQ(value.find("token"), std::string::npos) << name;
}

TEST_F(Proxy, ReadsLowercaseEnvironmentVariable) {
  startProxy();
  scenario.setup.proxy = nullptr;
  environment.set("https_proxy", scenario.proxy->url());
  expectDelivery();
  EXPECT_EQ(scenario.proxy->requests().size(), 1u);
}

TEST_F(Proxy, ReadsUppercaseEnvironmentVariable) {
  startProxy();
  scenario.setup.proxy = nullptr;
  environment.set("HTTPS_PROXY", scenario.proxy->url());
  expectDelivery();
  EXPECT_EQ(scenario.proxy->requests().size(), 1u);
}

TEST_F(Proxy, PrefersConfigurationToEnvironment) {
  startProxy();
  scenario.setup.proxy = scenario.proxy->url();
  environment.set("https_proxy", scenario.elsewhere.url(""));
  expectDelivery();
  EXPECT_EQ(scenario.elsewhere.connections(), 0);
}

TEST_F(Proxy, RespectsNoProxyEnvironmentVariable) {
  startProxy();
  scenario.setup.proxy = nullptr;
  environment.set("https_proxy", scenario.proxy->url());
  environment.set("no_proxy", "example.com,collector.invalid");
  expectNoConnection();
}

TEST_F(Proxy, IgnoresEnvironmentWhenConfiguredEmpty) {
  startProxy();
  scenario.setup.proxy = "";
  environment.set("https_proxy", scenario.proxy->url());
  expectNoConnection();
}

TEST_F(Proxy, ConnectsToLoopbackDirectly) {
  JXTestServerOptions loopback;
  scenario.server.present(loopback);
  scenario.url = scenario.server.url();
  startProxy();
  scenario.setup.proxy = scenario.proxy->url();
  environment.set("https_proxy", scenario.proxy->url());
  expectDelivery();
  EXPECT_EQ(scenario.proxy->connections(), 0);
}

// The complete library, with the proxy set like an application does.
class ServerSideProxy : public ServerSideFixture {
 protected:
  ServerSideProxy() {
    configuration.storageFolder = storage().path();
    configuration.dryRun = false;
    configuration.collectionHost = "collector.invalid";
    configuration.caFile = server.caFile();
  }
  void expectDelivery() {
    const auto serverSide = make();
    const Request request = execute(*serverSide);
    EXPECT_TRUE(JXNetworkManager::sharedInstance().flush(20s));
    ASSERT_EQ(server.requests().size(), 1u);
    EXPECT_EQ(server.requests().front().target, "/events?jx_s=1234&token=key");
    EXPECT_EQ(server.bodies().front(), request.text);
    ASSERT_EQ(proxy.requests().size(), 1u);
    EXPECT_EQ(proxy.requests().front().target, "collector.invalid:443");
  }

  ScopedEnvironment environment;
  JXTestServer server{namedCollector()};
  JXTestProxy proxy{server.port()};
};

TEST_F(ServerSideProxy, UsesConfiguredProxy) {
  configuration.proxy = proxy.url();
  expectDelivery();
}

TEST_F(ServerSideProxy, UsesEnvironmentWhenNotConfigured) {
  environment.set("https_proxy", proxy.url());
  environment.unset("no_proxy");
  environment.unset("NO_PROXY");
  expectDelivery();
}

}  // namespace
}  // namespace jx::test
