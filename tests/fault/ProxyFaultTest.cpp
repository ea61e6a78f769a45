// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Ways to the server: names that nobody knows, and proxies. What is for the device itself never
// goes through a proxy, so the collector has a name here that only the proxy can resolve.

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
    story.url = "https://collector.invalid/events?jx_s=1&token=key";
    for (const char* name : {"https_proxy", "HTTPS_PROXY", "http_proxy", "HTTP_PROXY", "all_proxy",
                             "ALL_PROXY", "no_proxy", "NO_PROXY"}) {
      environment.unset(name);
    }
  }
  void startProxy() { story.proxy = std::make_unique<JXTestProxy>(story.server.port()); }
  void expectDelivery() {
    story.startProcess();
    story.execute("a");
    EXPECT_TRUE(story.deliverAll());
    EXPECT_EQ(story.server.bodies(), Texts{bodyOf("a")});
  }
  // Without the proxy the name is unknown, so nobody is asked for anything.
  void expectThatNobodyIsAsked() {
    story.startProcess();
    story.execute("a");
    ASSERT_TRUE(story.waitForFailedTries(1));
    EXPECT_NE(story.failures.all().front().reason.find("resolve host"), std::string::npos);
    EXPECT_EQ(story.counters().outbox.queued, 1u);
    EXPECT_EQ(story.connections(), 0);
  }
  ServerFault proxyAnswers(int status, const std::string& order) const {
    ServerFault fault;
    const std::string number = std::to_string(status);
    fault.order = order;
    fault.fault = "proxy answers " + number;
    fault.did = "a proxy answered CONNECT with " + number;
    fault.play = [status](ServerStory& told) {
      told.proxy = std::make_unique<JXTestProxy>(told.server.port());
      told.setup.proxy = told.proxy->url();
      told.proxy->answer(status);
    };
    fault.heal = [](ServerStory& told) { told.proxy->answer(200); };
    fault.reason = number;
    fault.requestsRead = 0;
    return fault;
  }

  ScopedEnvironment environment;
  ServerStory story{namedCollector()};
};

TEST_F(Proxy, ANameThatDoesNotResolveHoldsUntilSomebodyKnowsIt) {
  ServerFault fault;
  fault.order = "6.01";
  fault.fault = "host name that does not resolve";
  fault.did = "the name server knew no collector.invalid";
  fault.play = [](ServerStory&) {};
  fault.heal = [](ServerStory& told) {
    told.proxy = std::make_unique<JXTestProxy>(told.server.port());
    told.setup.proxy = told.proxy->url();
  };
  fault.reason = "resolve host";
  fault.requestsRead = 0;
  tellStoryOfHolding(story, fault, HealedBefore::TheNextProcess);
}

TEST_F(Proxy, AnUnreachableOneHolds) {
  const ReservedPort port;
  ServerFault fault;
  fault.order = "6.02";
  fault.fault = "unreachable proxy";
  fault.did = "nobody listened at the proxy's port";
  fault.play = [&](ServerStory& told) {
    told.setup.proxy = "http://127.0.0.1:" + std::to_string(port.number());
  };
  fault.heal = [&](ServerStory& told) {
    told.proxy = std::make_unique<JXTestProxy>(told.server.port(), port.number());
  };
  fault.reason = "connect to server";
  fault.requestsRead = 0;
  tellStoryOfHolding(story, fault, HealedBefore::TheSameProcess);
}

TEST_F(Proxy, OneThatWantsALoginIsNoAnswerOfTheServer) {
  tellStoryOfHolding(story, proxyAnswers(407, "6.03"), HealedBefore::TheSameProcess);
}

TEST_F(Proxy, OneThatDoesNotReachTheServerIsNoAnswerOfIt) {
  tellStoryOfHolding(story, proxyAnswers(502, "6.04"), HealedBefore::TheSameProcess);
}

TEST_F(Proxy, OneThatLeadsToAnotherServerLearnsNothing) {
  story.proxy = std::make_unique<JXTestProxy>(story.elsewhere.port());
  story.setup.proxy = story.proxy->url();
  story.startProcess();
  story.execute("a");
  ASSERT_TRUE(story.waitForFailedTries(1));
  EXPECT_EQ(story.elsewhere.connections(), 1);
  EXPECT_EQ(story.elsewhere.requests().size(), 0u);
  EXPECT_EQ(story.counters().outbox.queued, 1u);
  writeFaultRow({"6.05", "proxy that leads elsewhere",
                 "a proxy connected to another server, with a certificate of its own",
                 counted(story.counters().failures, "failed try", "failed tries") +
                     ", the other server read " +
                     counted(story.elsewhere.requests().size(), "request", "requests"),
                 story.counters().outbox.delivered, story.counters().outbox.queued, 0,
                 droppedOf(story.counters().outbox)});
}

TEST_F(Proxy, TheConfiguredOneSeesTheNameAndNothingElse) {
  startProxy();
  story.setup.proxy = story.proxy->url();
  expectDelivery();
  ASSERT_EQ(story.proxy->requests().size(), 1u);
  const JXTestRequest request = story.proxy->requests().front();
  EXPECT_EQ(request.method, "CONNECT");
  EXPECT_EQ(request.target, "collector.invalid:443");
  for (const auto& [name, value] : request.headers)
    EXPECT_EQ(value.find("token"), std::string::npos) << name;
}

TEST_F(Proxy, TheEnvironmentNamesOneInSmallLetters) {
  startProxy();
  story.setup.proxy = nullptr;
  environment.set("https_proxy", story.proxy->url());
  expectDelivery();
  EXPECT_EQ(story.proxy->requests().size(), 1u);
}

TEST_F(Proxy, TheEnvironmentNamesOneInCapitals) {
  startProxy();
  story.setup.proxy = nullptr;
  environment.set("HTTPS_PROXY", story.proxy->url());
  expectDelivery();
  EXPECT_EQ(story.proxy->requests().size(), 1u);
}

TEST_F(Proxy, TheConfiguredOneGoesBeforeTheEnvironments) {
  startProxy();
  story.setup.proxy = story.proxy->url();
  environment.set("https_proxy", story.elsewhere.url(""));
  expectDelivery();
  EXPECT_EQ(story.elsewhere.connections(), 0);
}

TEST_F(Proxy, NoProxyInTheEnvironmentLeavesItOut) {
  startProxy();
  story.setup.proxy = nullptr;
  environment.set("https_proxy", story.proxy->url());
  environment.set("no_proxy", "example.com,collector.invalid");
  expectThatNobodyIsAsked();
}

TEST_F(Proxy, AnEmptyConfigurationLeavesTheEnvironmentsOut) {
  startProxy();
  story.setup.proxy = "";
  environment.set("https_proxy", story.proxy->url());
  expectThatNobodyIsAsked();
}

TEST_F(Proxy, WhatIsForTheDeviceItselfGoesThroughNone) {
  JXTestServerOptions loopback;
  story.server.present(loopback);
  story.url = story.server.url();
  startProxy();
  story.setup.proxy = story.proxy->url();
  environment.set("https_proxy", story.proxy->url());
  expectDelivery();
  EXPECT_EQ(story.proxy->connections(), 0);
}

// The whole library, told of the proxy as a host tells it.
class ProxyOfAServerSide : public ServerSideFixture {
 protected:
  ProxyOfAServerSide() {
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

TEST_F(ProxyOfAServerSide, IsTheConfiguredOne) {
  configuration.proxy = proxy.url();
  expectDelivery();
}

TEST_F(ProxyOfAServerSide, IsTheEnvironmentsWhenNoneIsConfigured) {
  environment.set("https_proxy", proxy.url());
  environment.unset("no_proxy");
  environment.unset("NO_PROXY");
  expectDelivery();
}

}  // namespace
}  // namespace jx::test
