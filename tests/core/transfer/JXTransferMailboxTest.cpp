// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXTransferMailbox.h"

#include <gtest/gtest.h>

namespace jx {
namespace {

class TransferMailbox : public ::testing::Test {
 protected:
  int wakes = 0;
  JXTransferMailbox mailbox{[this] { ++wakes; }};
};

TEST_F(TransferMailbox, DoesNotWakeARunningThread) {
  mailbox.notifyAdded();
  mailbox.send([](JXTransferCommands& commands) { commands.inBackground = true; });
  EXPECT_EQ(0, wakes);
  EXPECT_TRUE(mailbox.readAdded());
  EXPECT_FALSE(mailbox.readAdded());
  EXPECT_TRUE(mailbox.readCommands().inBackground);
}

TEST_F(TransferMailbox, WakesASleepingThreadForTheFirstAdditionOnly) {
  ASSERT_TRUE(mailbox.prepareToSleep(false));
  mailbox.notifyAdded();
  mailbox.notifyAdded();
  EXPECT_EQ(1, wakes);
}

TEST_F(TransferMailbox, WakesAThreadThatIgnoresAdditionsForCommandsOnly) {
  ASSERT_TRUE(mailbox.prepareToSleep(true));
  mailbox.notifyAdded();
  EXPECT_EQ(0, wakes);
  mailbox.send([](JXTransferCommands& commands) { commands.stop = true; });
  EXPECT_EQ(1, wakes);
  mailbox.awake();
  EXPECT_TRUE(mailbox.readAdded());
}

TEST_F(TransferMailbox, PendingUpdatesKeepTheThreadAwake) {
  mailbox.notifyAdded();
  EXPECT_FALSE(mailbox.prepareToSleep(false));
  EXPECT_TRUE(mailbox.prepareToSleep(true));
  mailbox.awake();
  mailbox.send([](JXTransferCommands& commands) { ++commands.purges; });
  EXPECT_FALSE(mailbox.prepareToSleep(true));
  mailbox.readCommands();
  EXPECT_TRUE(mailbox.prepareToSleep(true));
}

}  // namespace
}  // namespace jx
