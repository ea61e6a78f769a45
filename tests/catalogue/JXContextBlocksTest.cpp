// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/catalogue/JXContextBlocks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace jx::test {
namespace {

using Kind = JXJsonValue::Kind;

char letterOf(Kind kind) {
  return kind == Kind::String ? 's' : kind == Kind::Number ? 'n' : kind == Kind::Bool ? 'b' : 'o';
}

// Adds a line for each key: its path, its type and, if it is required, a "!".
void addLines(const JXContextBlock& block, const std::string& path,
              std::vector<std::string>& lines) {
  for (const JXContextField& field : block.fields) {
    const std::string inner = path + "." + std::string(field.key);
    lines.push_back(inner + " " + letterOf(field.kind) + (field.isRequired ? "!" : ""));
    EXPECT_EQ(field.block != nullptr, field.kind == Kind::Object) << inner;
    if (field.block != nullptr) addLines(*field.block, inner, lines);
  }
}

TEST(ContextBlocks, ListEveryKeyOfTheContextAndTheUser) {
  std::vector<std::string> lines;
  for (const JXContextBlock* block : topLevelContextBlocks())
    addLines(*block, std::string(block->key), lines);
  const std::string device = "context.device.";
  const std::string lifecycle = device + "lifecycle.";
  EXPECT_THAT(
      lines, testing::ElementsAre(
                 "context.event_id s!", "context.device o!", device + "ad_tracking b",
                 device + "user_agent s", device + "idfa s", device + "idfv s", device + "sdk_id s",
                 device + "language s", device + "region s", device + "manufacturer s",
                 device + "model s", device + "name s", device + "type s", device + "network o!",
                 device + "network.connection_type s", device + "os o!", device + "os.name s",
                 device + "os.version s", device + "screen o!", device + "screen.width n",
                 device + "screen.height n", device + "timezone s", device + "lifecycle o!",
                 lifecycle + "session_id s!", lifecycle + "new_session b!",
                 lifecycle + "session_duration n", lifecycle + "current_session n",
                 lifecycle + "visit_number n", lifecycle + "current_visit n",
                 lifecycle + "current_version_first_visit n", lifecycle + "session_number n",
                 lifecycle + "first_visit n", lifecycle + "last_visit n", lifecycle + "last_call n",
                 lifecycle + "last_session_start n", lifecycle + "last_session_last_hit n",
                 lifecycle + "foreground_transitions n", lifecycle + "foreground_time n",
                 lifecycle + "background_time n", lifecycle + "first_execute b!",
                 lifecycle + "is_first_visit b!", "context.app o!", "context.app.name s",
                 "context.app.version s", "context.app.build s", "context.app.namespace s",
                 "context.app.serverside_version s", "context.app.core_version s",
                 "context.app.consent_version s", "context.event_timestamp n!",
                 "user.anonymous_id s!", "user.consent_id s"));
}

TEST(ContextBlocks, OnlyTheUserMayBeReplaced) {
  ASSERT_EQ(topLevelContextBlocks().size(), 2u);
  EXPECT_EQ(topLevelContextBlocks()[0]->replacement, "");
  EXPECT_EQ(topLevelContextBlocks()[1]->replacement, "waiting_for_consent");
}

}  // namespace
}  // namespace jx::test
