// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/replay/ScriptLine.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "jx/core/json/JXJsonWriter.h"

namespace jx {
namespace {

template <typename Command>
Command commandOf(std::string_view line) {
  const Result<ScriptCommand> read = readScriptLine(line);
  if (!read) {
    ADD_FAILURE() << line << ": " << read.error().text;
    return {};
  }
  if (!std::holds_alternative<Command>(*read)) {
    ADD_FAILURE() << line << " is another command";
    return {};
  }
  return std::get<Command>(*read);
}

// Returns the error message of a bad line.
std::string errorOf(std::string_view line) {
  const Result<ScriptCommand> read = readScriptLine(line);
  return read ? "no error" : read.error().text;
}

std::string extrasOf(const ScriptEvent& event) {
  return JXJsonWriter::write(event.event->getAdditionalProperties(), JXJsonStyle::Compact).text;
}

TEST(ScriptLine, IgnoresBlankLines) {
  for (const char* line : {"", " ", "\t", "\r", " \t \r\n"})
    commandOf<ScriptNothing>(line);
}

TEST(ScriptLine, SetsNameAndFieldsOfACustomEvent) {
  const auto read = commandOf<ScriptEvent>(
      R"({"do":"event","class":"JXCustomEvent","name":"quiz","fields":{"pageName":"home"}})");
  EXPECT_EQ(read.event->ownEventClass().className, "JXCustomEvent");
  EXPECT_EQ(read.event->name(), JXString("quiz"));
  EXPECT_EQ(read.event->pageName(), JXString("home"));
  EXPECT_FALSE(read.event->pageType().isPresent());
}

TEST(ScriptLine, CreatesCustomEventWithNullName) {
  for (const char* line : {R"({"do":"event","class":"JXCustomEvent"})",
                           R"({"do":"event","class":"JXCustomEvent","name":null})"}) {
    EXPECT_FALSE(commandOf<ScriptEvent>(line).event->name().isPresent()) << line;
  }
}

TEST(ScriptLine, AcceptsNameAsAField) {
  const auto read = commandOf<ScriptEvent>(
      R"({"do":"event","class":"JXEvent","fields":{"name":"bare","pageType":""}})");
  EXPECT_EQ(read.event->name(), JXString("bare"));
  EXPECT_EQ(read.event->pageType(), JXString(""));
}

TEST(ScriptLine, NullSetsAFieldToNull) {
  const auto read = commandOf<ScriptEvent>(
      R"({"do":"event","class":"JXCustomEvent","name":"quiz","fields":{"name":null}})");
  EXPECT_FALSE(read.event->name().isPresent());
}

TEST(ScriptLine, KeepsAnyJsonInParametersExactly) {
  const auto read = commandOf<ScriptEvent>(
      R"({"do":"event","class":"JXCustomEvent","parameters":)"
      R"({"a":null,"b":[true,{"c":123456789012345678901234567890.10}],"d":"x","e":-0.50}})");
  EXPECT_EQ(extrasOf(read),
            R"({"a":null,"b":[true,{"c":123456789012345678901234567890.10}],"d":"x","e":-0.50})");
}

TEST(ScriptLine, ExpandsExponents) {
  const auto read = commandOf<ScriptEvent>(
      R"({"do":"event","class":"JXCustomEvent","parameters":{"a":1.5e3,"b":25e-4}})");
  EXPECT_EQ(extrasOf(read), R"({"a":1500,"b":0.0025})");
}

TEST(ScriptLine, AcceptsPositiveAndNegativeAdvance) {
  EXPECT_EQ(commandOf<ScriptAdvance>(R"({"do":"advance","ms":1800001})").ms, 1'800'001);
  EXPECT_EQ(commandOf<ScriptAdvance>(R"({"do":"advance","ms":-5})").ms, -5);
  EXPECT_EQ(commandOf<ScriptAdvance>(R"({"do":"advance","ms":0})").ms, 0);
  EXPECT_EQ(commandOf<ScriptAdvance>(R"({"do":"advance","ms":9223372036854775807})").ms,
            std::numeric_limits<std::int64_t>::max());
}

TEST(ScriptLine, AcceptsAnyJsonValueAsPermanent) {
  EXPECT_EQ(
      commandOf<ScriptPermanent>(R"({"do":"permanent","key":"store","value":"uk"})").value.string(),
      JXString("uk"));
  EXPECT_EQ(commandOf<ScriptPermanent>(R"({"do":"permanent","key":"k","value":null})").value.kind(),
            JXJsonValue::Kind::Null);
  EXPECT_EQ(
      commandOf<ScriptPermanent>(R"({"do":"permanent","key":"","value":[1]})").value.array().size(),
      1u);
}

TEST(ScriptLine, ReadsKeyOfForget) {
  EXPECT_EQ(commandOf<ScriptForget>(R"({"do":"forget","key":"store"})").key, "store");
}

TEST(ScriptLine, AcceptsTheFourStateChanges) {
  EXPECT_EQ(commandOf<ScriptAct>(R"({"do":"background"})"), ScriptAct::Background);
  EXPECT_EQ(commandOf<ScriptAct>(R"({"do":"foreground"})"), ScriptAct::Foreground);
  EXPECT_EQ(commandOf<ScriptAct>(R"({"do":"enable"})"), ScriptAct::Enable);
  EXPECT_EQ(commandOf<ScriptAct>(R"( { "do" : "disable" } )"), ScriptAct::Disable);
}

TEST(ScriptLine, ReportsTheErrorOfABadLine) {
  const std::pair<const char*, const char*> lines[]{
      {"[]", "a line must be a JSON object"},
      {"7", "a line must be a JSON object"},
      {"{}", "\"do\" is missing"},
      {R"({"do":null})", "\"do\" must be a string"},
      {R"({"do":"Event"})", "unknown command \"Event\""},
      {R"({"do":"event"})", "class is missing"},
      {R"({"do":"event","class":1})", "class must be a string"},
      {R"({"do":"event","class":"JXNoEvent"})", "unknown event class \"JXNoEvent\""},
      {R"({"do":"event","class":"JXCustomEvent","mode":"START"})",
       "mode is not allowed: JXCustomEvent has no modes"},
      {R"({"do":"event","class":"JXCustomEvent","name":5})", "name must be a string or null"},
      {R"({"do":"event","class":"JXCustomEvent","session":"s"})",
       "session is not a field of JXCustomEvent"},
      {R"({"do":"event","class":"JXEvent","name":"x"})",
       "name is allowed only for JXCustomEvent; set the name of a JXEvent in \"fields\""},
      {R"({"do":"event","class":"JXCustomEvent","fields":[]})", "fields must be an object"},
      {R"({"do":"event","class":"JXCustomEvent","fields":null})", "fields must be an object"},
      {R"({"do":"event","class":"JXCustomEvent","fields":{"pagename":"x"}})",
       "\"pagename\" is not a field of JXCustomEvent"},
      {R"({"do":"event","class":"JXCustomEvent","fields":{"pageName":1}})",
       "\"pageName\" must be a string"},
      {R"({"do":"event","class":"JXCustomEvent","parameters":"x"})",
       "parameters must be an object"},
      {R"({"do":"event","class":"JXCustomEvent","parametres":{}})",
       "unknown key \"parametres\" for command \"event\""},
      {R"({"do":"advance"})", "ms is missing"},
      {R"({"do":"advance","ms":"5"})", "ms must be a number"},
      {R"({"do":"advance","ms":1.5})", "ms must be a 64-bit integer"},
      {R"({"do":"advance","ms":9223372036854775808})", "ms must be a 64-bit integer"},
      {R"({"do":"background","ms":1})", "unknown key \"ms\" for command \"background\""},
      {R"({"do":"permanent","value":1})", "key is missing"},
      {R"({"do":"permanent","key":1,"value":1})", "key must be a string"},
      {R"({"do":"permanent","key":"k"})", "value is missing"},
      {R"({"do":"forget"})", "key is missing"},
  };
  for (const auto& [line, error] : lines)
    EXPECT_EQ(errorOf(line), error) << line;
}

TEST(ScriptLine, ReportsTheOffsetOfInvalidJson) {
  EXPECT_EQ(errorOf("{\"do\":\"\xFF\"}"), "invalid UTF-8");
  EXPECT_EQ(errorOf(R"({"do":"enable"} x)").substr(0, 23), "invalid JSON at byte 17");
  EXPECT_EQ(errorOf("{\"do\":\"enable\"").substr(0, 12), "invalid JSON");
  EXPECT_EQ(errorOf(std::string_view("{\"do\":\"enable\"}\0", 16)).substr(0, 12), "invalid JSON");
  EXPECT_EQ(errorOf(std::string(2'000, '[')).substr(0, 12), "invalid JSON");
}

TEST(ScriptLine, LimitsMessagesToOneShortLine) {
  const std::string error =
      errorOf(R"({"do":"event","class":"A\u001b[31m\n)" + std::string(5'000, 'a') + "\"}");
  EXPECT_EQ(error.find('\n'), std::string::npos);
  EXPECT_EQ(error.find('\033'), std::string::npos);
  EXPECT_LT(error.size(), 120u);
}

TEST(ScriptLine, CreatesANewEventForEachLine) {
  const char* const line = R"({"do":"event","class":"JXCustomEvent","parameters":{"a":1}})";
  const auto one = commandOf<ScriptEvent>(line);
  const auto other = commandOf<ScriptEvent>(line);
  one.event->addAdditionalParameter_withValue("b", "only here");
  EXPECT_EQ(extrasOf(other), R"({"a":1})");
}

TEST(ScriptLine, AcceptsALineOfOneMebibyte) {
  const std::string text(1u << 20, 'x');
  const auto read = commandOf<ScriptEvent>(
      R"({"do":"event","class":"JXCustomEvent","name":"big","parameters":{"t":")" + text + "\"}}");
  EXPECT_EQ(read.event->getAdditionalProperties().get("t").string().view().size(), text.size());
}

}  // namespace
}  // namespace jx
