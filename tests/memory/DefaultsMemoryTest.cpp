// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <new>
#include <string>

#include "jx/core/storage/JXDefaultsFile.h"
#include "tests/core/storage/JXTemporaryFolder.h"
#include "tests/memory/FailingMemory.h"

namespace jx {
namespace {

using test::Failing;
using test::FailingMemory;

class DefaultsMemory : public ::testing::TestWithParam<Failing> {};

INSTANTIATE_TEST_SUITE_P(Failing, DefaultsMemory,
                         ::testing::Values(Failing::OnlyOne, Failing::AllLater));

TEST_P(DefaultsMemory, StoresTheValueThatItReturnsAtEachFailingAllocation) {
  const TemporaryFolder folder;
  const JXString key("a key that is longer than an inline string");
  const JXString before("before");
  const JXString after("after");
  bool hasFailed = true;
  int changed = 0;
  std::size_t succeeding = 0;
  for (; hasFailed && succeeding < 1'000; ++succeeding) {
    const std::string path = folder.file("defaults" + std::to_string(succeeding));
    JXString value;
    {
      JXDefaultsFile file(path);
      file.setObject_forKey(before, succeeding % 2 == 0 ? key : JXString("other"));
      {
        const FailingMemory memory(succeeding / 2, GetParam());
        try {
          file.setObject_forKey(after, key);
        } catch (const std::bad_alloc&) {
        }
        hasFailed = memory.hasFailed();
      }
      value = file.objectForKey(key);
      file.maintain();
    }
    if (value == after) ++changed;
    EXPECT_EQ(JXDefaultsFile(path).objectForKey(key), value) << succeeding;
  }
  EXPECT_FALSE(hasFailed);
  EXPECT_GE(succeeding, 5u);
  EXPECT_GE(changed, 1);
}

}  // namespace
}  // namespace jx
