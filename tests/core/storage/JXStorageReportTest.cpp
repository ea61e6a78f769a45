// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXStorageReport.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace jx {
namespace {

TEST(StorageReport, LogsACauseOnceForAllStoragesOfAFolder) {
  JXStorageReport outbox("outbox", "/state");
  JXStorageReport defaults("user defaults", "/state");
  outbox.failed("append a request", ENOSPC);
  outbox.failed("append a request", ENOSPC);
  defaults.failed("write a value", ENOSPC);
  ASSERT_EQ(outbox.takeMessages().size(), 1u);
  EXPECT_TRUE(defaults.takeMessages().empty());
  EXPECT_EQ(outbox.failures(), 2u);
  EXPECT_EQ(defaults.failures(), 1u);
}

TEST(StorageReport, LogsAnotherCauseAndAnotherFolder) {
  JXStorageReport outbox("outbox", "/state");
  JXStorageReport other("outbox", "/other");
  outbox.failed("append a request", ENOSPC);
  outbox.failed("append a request", EACCES);
  other.failed("append a request", ENOSPC);
  EXPECT_EQ(outbox.takeMessages().size(), 2u);
  EXPECT_EQ(other.takeMessages().size(), 1u);
}

// The outbox cannot be written, the user defaults can: each event fails and recovers.
TEST(StorageReport, AStorageThatRecoversDoesNotEndTheCauseOfAnother) {
  JXStorageReport outbox("outbox", "/state");
  JXStorageReport defaults("user defaults", "/state");
  for (int event = 0; event < 100; ++event) {
    outbox.failed("create a segment", EACCES);
    defaults.recovered();
  }
  EXPECT_EQ(outbox.takeMessages().size(), 1u);
}

TEST(StorageReport, LogsACauseAgainWhenEveryStorageHadRecovered) {
  JXStorageReport outbox("outbox", "/state");
  JXStorageReport defaults("user defaults", "/state");
  outbox.failed("append a request", ENOSPC);
  defaults.failed("write a value", ENOSPC);
  outbox.recovered();
  outbox.failed("append a request", ENOSPC);
  EXPECT_EQ(outbox.takeMessages().size(), 1u);
  outbox.recovered();
  defaults.recovered();
  defaults.failed("write a value", ENOSPC);
  EXPECT_EQ(defaults.takeMessages().size(), 1u);
}

TEST(StorageReport, ACauseEndsWithTheStorageThatReportedIt) {
  {
    JXStorageReport ended("outbox", "/state");
    ended.failed("append a request", ENOSPC);
  }
  JXStorageReport next("outbox", "/state");
  next.failed("append a request", ENOSPC);
  EXPECT_EQ(next.takeMessages().size(), 1u);
}

}  // namespace
}  // namespace jx
