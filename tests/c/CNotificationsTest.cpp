// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Tests observers of the C API.

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "jx/c/jx.h"
#include "jx/core/JXCoreConstants.h"
#include "tests/support/ServerSideFixture.h"

namespace jx::test {
namespace {

struct Received {
  std::vector<std::string> lines;
  jx_observer* observer = nullptr;
};

void receive(void* context, const char* name, const char* info) {
  static_cast<Received*>(context)->lines.push_back(std::string(name) + " " +
                                                   (info != nullptr ? info : "(null)"));
}

void receiveAndFree(void* context, const char* name, const char* info) {
  receive(context, name, info);
  EXPECT_EQ(jx_observer_free(static_cast<Received*>(context)->observer), JX_OK);
}

class CNotifications : public ServerSideFixture {
 protected:
  Received received;
};

TEST_F(CNotifications, ReceivesNotificationsByNameUntilFreed) {
  start();
  ASSERT_EQ(jx_observer_create(::kJXNotification_HitSent, &receive, &received, &received.observer),
            JX_OK);
  EXPECT_EQ(jx_post_notification(::kJXNotification_HitSent, R"({"n":1.50})"), JX_OK);
  EXPECT_EQ(jx_post_notification(::kJXNotification_HitSent, nullptr), JX_OK);
  EXPECT_EQ(jx_post_notification("another", nullptr), JX_OK);
  EXPECT_EQ(jx_observer_free(received.observer), JX_OK);
  EXPECT_EQ(jx_post_notification(::kJXNotification_HitSent, nullptr), JX_OK);
  EXPECT_EQ(received.lines, (std::vector<std::string>{R"(JXNotification: Hit Sent {"n":1.50})",
                                                      "JXNotification: Hit Sent (null)"}));
}

TEST_F(CNotifications, ReceivesRequestsWithUrlAndBody) {
  ASSERT_EQ(
      jx_observer_create(::kJXNotification_HTTPRequest, &receive, &received, &received.observer),
      JX_OK);
  const auto serverSide = make();
  const Request sent = execute(*serverSide);
  ASSERT_EQ(received.lines.size(), 1u);
  EXPECT_EQ(received.lines[0].find(R"(JXNotification: HTTP Request {"JXUserInfo: URL":)"
                                   R"("https://collect.example.com/events?jx_s=1234&token=key")"),
            0u);
  EXPECT_EQ(jx_observer_free(received.observer), JX_OK);
}

TEST_F(CNotifications, MayFreeItselfDuringACall) {
  start();
  ASSERT_EQ(jx_observer_create("name", &receiveAndFree, &received, &received.observer), JX_OK);
  EXPECT_EQ(jx_post_notification("name", nullptr), JX_OK);
  EXPECT_EQ(jx_post_notification("name", nullptr), JX_OK);
  EXPECT_EQ(received.lines.size(), 1u);
}

TEST_F(CNotifications, StopsAllServerSidesByANotification) {
  jx_server_side* serverSide = nullptr;
  start();
  ASSERT_EQ(jx_server_side_create(1, "key", JX_BEHAVIOUR_DEFAULT, nullptr, &serverSide), JX_OK);
  jx_state state = JX_STATE_ENABLED;
  EXPECT_EQ(jx_post_notification(::kJXNotification_StoppingTheServerSide, nullptr), JX_OK);
  EXPECT_EQ(jx_get_state(serverSide, &state), JX_OK);
  EXPECT_EQ(state, JX_STATE_DISABLED);
  EXPECT_EQ(jx_server_side_free(serverSide), JX_OK);
}

TEST_F(CNotifications, RejectsUserInfoThatIsNotAnObject) {
  start();
  EXPECT_EQ(jx_post_notification("name", "[1]"), JX_ERROR_INVALID_JSON);
  EXPECT_EQ(jx_post_notification("name", "{"), JX_ERROR_INVALID_JSON);
  EXPECT_TRUE(posted("name").empty());
}

}  // namespace
}  // namespace jx::test
