// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXCurlLibrary.h"

#include <curl/curl.h>
#include <gtest/gtest.h>
#include <openssl/crypto.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <stdexcept>
#include <thread>

#include "jx/core/storage/JXOutbox.h"
#include "jx/core/transfer/JXCurlTransport.h"
#include "jx/core/transfer/JXNetworkManager.h"
#include "jx/core/transfer/JXTransferLoop.h"
#include "tests/core/storage/JXTemporaryFolder.h"
#include "tests/soak/RealFunction.h"
#include "tests/support/HttpsClient.h"
#include "tests/support/JXTestServer.h"

namespace {

std::atomic<int> initialisations{0};
std::atomic<int> failuresLeft{0};
// Called after each initialisation, before it returns.
void (*afterInitialisation)() = nullptr;

}  // namespace

// In the place of libcurl's function, so that it can be observed, delayed and fail.
extern "C" CURLcode curl_global_init(long flags) {
  static jx::soak::RealFunction<CURLcode, long> real{"curl_global_init"};
  ++initialisations;
  if (failuresLeft > 0) {
    --failuresLeft;
    return CURLE_FAILED_INIT;
  }
  const CURLcode code = real(flags);
  if (afterInitialisation != nullptr) afterInitialisation();
  return code;
}

namespace jx {
namespace {

using namespace std::chrono_literals;
using test::JXTestServer;

const char* const kUnreachable = "https://127.0.0.1:1/";

// Other versions and TLS libraries are initialised at the start.
bool canInitialiseLater() {
  const curl_version_info_data& version = *curl_version_info(CURLVERSION_NOW);
  return version.version_num >= 0x075600 &&
         std::string_view(version.ssl_version).substr(0, 7) == "OpenSSL";
}

JXHttpResult post(JXCurlTransport& transport, const std::string& url) {
  transport.start({1, url, "{}"});
  std::vector<JXHttpResult> results;
  while (results.empty())
    results = transport.poll(std::nullopt);
  return results.front();
}

JXHttpOptions trusting(const JXTestServer& server) {
  JXHttpOptions options;
  options.caFile = server.caFile();
  return options;
}

TEST(CurlLibrary, IsInitialisedOnceWithTheFirstRequest) {
  JXCurlTransport first{JXHttpOptions()}, second{JXHttpOptions()};
  first.wakeUp();
  EXPECT_TRUE(first.poll(std::nullopt).empty());
  first.suspend();
  first.abortAll();
  first.resume();
  EXPECT_EQ(canInitialiseLater() ? 0 : 1, initialisations);
  EXPECT_EQ(0, post(first, kUnreachable).outcome.status);
  EXPECT_EQ(0, post(second, kUnreachable).outcome.status);
  EXPECT_EQ(1, initialisations);
}

TEST(CurlLibrary, TransportWaitsForWakeUpBeforeTheFirstRequest) {
  JXCurlTransport transport{JXHttpOptions()};
  std::atomic<bool> isAwake{false};
  std::thread sleeper([&] {
    transport.poll(std::nullopt);
    isAwake = true;
  });
  EXPECT_FALSE(isAwake);
  transport.wakeUp();
  sleeper.join();
  EXPECT_TRUE(transport.poll(1ms).empty());
}

TEST(CurlLibrary, TransportKeepsAWakeUpFromBeforeTheFirstRequest) {
  JXTestServer server;
  test::JXTestAnswer never;
  never.manner = test::JXTestAnswer::Manner::StallBeforeHead;
  server.answerAll(never);
  JXCurlTransport transport(trusting(server));
  transport.wakeUp();
  transport.start({1, server.url(), "{}"});
  EXPECT_TRUE(transport.poll(std::nullopt).empty());
}

TEST(CurlLibrary, RequestFailsWhileLibcurlCannotBeInitialised) {
  JXTestServer server;
  failuresLeft = 3;
  JXCurlTransport transport(trusting(server));
  while (failuresLeft > 0)
    EXPECT_THROW(transport.start({1, server.url(), "{}"}), std::runtime_error);
  EXPECT_TRUE(transport.poll(0ms).empty());
  EXPECT_EQ(200, post(transport, server.url()).outcome.status);
}

TEST(CurlLibrary, ApplicationUsesLibcurlBeforeAndAfterwards) {
  JXTestServer server;
  const auto useInApplication = [&] {
    ASSERT_EQ(CURLE_OK, curl_global_init(CURL_GLOBAL_DEFAULT));
    EXPECT_EQ(200, HttpsClient(server.caFile()).post(server.url(), "{}").status);
    curl_global_cleanup();
  };
  useInApplication();
  JXCurlTransport transport(trusting(server));
  EXPECT_EQ(200, post(transport, server.url()).outcome.status);
  useInApplication();
  EXPECT_EQ(200, post(transport, server.url()).outcome.status);
}

// The tests below run an application in a child process, whose exit status is the result.

constexpr int kSuccess = 3;

int statusOf(const std::function<void()>& application) {
  const pid_t child = fork();
  if (child == 0) {
    // Runs last, without a search for leaks: OpenSSL does not free its error state of a thread that
    // still runs when the process exits.
    std::atexit([] { std::_Exit(kSuccess); });
    application();
    std::exit(kSuccess);
  }
  int status = 0;
  if (child < 0 || waitpid(child, &status, 0) != child) return -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

JXTransferSetup setupIn(const TemporaryFolder& folder) {
  JXTransferSetup setup;
  setup.clock = std::make_shared<JXSystemClock>();
  setup.outbox = std::make_shared<JXOutbox>(folder.file("outbox"), JXOutboxBounds(), setup.clock);
  return setup;
}

std::size_t queuedIn(const TemporaryFolder& folder) {
  const auto clock = std::make_shared<JXSystemClock>();
  return JXOutbox(folder.file("outbox"), JXOutboxBounds(), clock).counters().queued;
}

TEST(CurlLibraryAtExit, IsNeverInitialisedWithoutARequest) {
  const TemporaryFolder folder;
  EXPECT_EQ(kSuccess, statusOf([&] {
              JXNetworkManager::sharedInstance().start(setupIn(folder));
              if (canInitialiseLater() && initialisations != 0) std::_Exit(4);
            }));
}

// The state of an initialisation during which the process begins to exit.
std::atomic<bool> isInitialising{false};
std::atomic<bool> isExiting{false};
std::chrono::milliseconds rest;

class ExitWhileInitialising : public testing::TestWithParam<std::chrono::milliseconds> {};

// The longer time exceeds the time that an exit waits for the thread.
INSTANTIATE_TEST_SUITE_P(Rest, ExitWhileInitialising, testing::Values(50ms, 400ms));

TEST_P(ExitWhileInitialising, CleansUpOpenSslOnlyAfterwards) {
  const TemporaryFolder folder;
  rest = GetParam();
  EXPECT_EQ(kSuccess, statusOf([&] {
              afterInitialisation = [] {
                // Runs when OpenSSL is cleaned up.
                OPENSSL_atexit([] {
                  if (isInitialising) std::_Exit(5);
                });
                isInitialising = true;
                isInitialising.notify_one();
                isExiting.wait(false);
                std::this_thread::sleep_for(rest);
                isInitialising = false;
              };
              JXNetworkManager::sharedInstance().start(setupIn(folder));
              JXNetworkManager::sharedInstance().enqueue(kUnreachable, R"({"events":[]})");
              isInitialising.wait(false);
              std::atexit([] {
                isExiting = true;
                isExiting.notify_one();
              });
            }));
  EXPECT_EQ(1u, queuedIn(folder));
}

TEST(CurlLibraryAtExit, StopsTheThreadBeforeHandlersOfTheInitialisation) {
  const TemporaryFolder folder;
  EXPECT_EQ(kSuccess, statusOf([&] {
              static std::atomic<bool> hasRegistered{false};
              static std::atomic<bool> hasEnded{false};
              afterInitialisation = [] {
                std::atexit([] {
                  if (!hasEnded) std::_Exit(6);
                });
                hasRegistered = true;
                hasRegistered.notify_one();
              };
              JXTransferSetup setup = setupIn(folder);
              setup.beforeConnecting = [] {
                struct AtEnd {
                  ~AtEnd() { hasEnded = true; }
                };
                static thread_local AtEnd atEnd;
              };
              JXNetworkManager::sharedInstance().start(setup);
              JXNetworkManager::sharedInstance().enqueue(kUnreachable, R"({"events":[]})");
              hasRegistered.wait(false);
              // The request has been started when it has failed.
              while (JXNetworkManager::sharedInstance().counters().failures == 0)
                std::this_thread::yield();
            }));
  EXPECT_EQ(1u, queuedIn(folder));
}

TEST(CurlLibraryAtExit, CannotBeInitialisedAfterwards) {
  EXPECT_EQ(kSuccess, statusOf([] {
              std::atexit([] {
                try {
                  JXCurlLibrary::initialise();
                  std::_Exit(7);
                } catch (const std::runtime_error&) {
                  // Registered first, so the exit handler of the library has run.
                }
              });
              JXCurlLibrary::atExit([] {});
            }));
}

TEST(CurlLibraryFailure, RequestStaysQueuedAndIsRetried) {
  JXTestServer server;
  const TemporaryFolder folder;
  JXTransferSetup setup = setupIn(folder);
  setup.caFile = server.caFile();
  setup.timings.initialBackoff = setup.timings.maxBackoff = 1ms;
  failuresLeft = 2;
  JXNetworkManager& manager = JXNetworkManager::sharedInstance();
  manager.start(setup);
  manager.enqueue(server.url(), R"({"events":[]})");
  EXPECT_TRUE(manager.flush(20s));
  EXPECT_EQ(3, initialisations);
  EXPECT_EQ(1u, server.requests().size());
}

}  // namespace
}  // namespace jx
