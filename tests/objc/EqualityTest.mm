// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <random>
#include <regex>
#include <set>

#include "jx/c/jx_object.h"
#include "jx/c/jx_server_side.h"
#include "jx/core/json/JXJsonArray.h"
#include "jx/core/json/JXJsonObject.h"
#include "jx/core/json/JXJsonWriter.h"
#include "jx/events/JXCustomEvent.h"
#include "jx/events/JXEventClass.h"
#include "jx/events/JXItem.h"
#include "jx/events/JXProduct.h"
#import "jx/objc/JXServerSide.h"
#import "jx/objc/internal/JXConversion.h"
#import "tests/objc/ObjectiveCTest.h"

namespace jx::objc {
namespace {

using Kind = JXFieldKind;

/// An event as the values of its properties, in the form that the catalogue reads.
struct Description {
  const JXEventClass* type = nullptr;
  int mode = 0;
  JXString argument;  // of the initialiser: the name or the video session ID
  JXJsonObject properties;
};

class RandomEvents {
 public:
  explicit RandomEvents(unsigned seed) : random_(seed) {}

  Description next(const JXEventClass& type, bool hasAllFields) {
    Description event;
    event.type = &type;
    if (!type.modes.empty()) event.mode = static_cast<int>(below(type.modes.size()));
    if (below(8) != 0) event.argument = text();
    hasAllFields_ = hasAllFields;
    fill(type, event.properties);
    return event;
  }

 private:
  void fill(const JXBlockClass& type, JXJsonObject& properties) {
    for (const JXBlockClass* block = &type; block != nullptr; block = block->base) {
      for (const JXFieldTable* table : {block->written, block->unwritten}) {
        if (table == nullptr) continue;
        for (const JXFieldInfo& field : table->fields()) {
          if (hasAllFields_ || below(3) != 0) properties.set(field.property, value(field));
        }
      }
    }
  }

  JXJsonValue value(const JXFieldInfo& field) {
    switch (field.kind) {
      case Kind::String:
        return text();
      case Kind::Number:
        return number();
      case Kind::Boolean:
        return below(2) == 0;
      case Kind::Enumeration:
        return field.enumStrings.enumeratorOf(static_cast<int>(below(field.enumStrings.count)));
      case Kind::Strings:
      case Kind::NumberedStrings:
        return list([&] { return JXJsonValue(text()); });
      case Kind::Values:
        return list([&] { return anyValue(); });
      case Kind::Items:
        return list([&] { return object(JXItem::blockClass()); });
      case Kind::Product:
        return object(JXProduct::blockClass());
    }
    return {};
  }

  template <typename Element>
  JXJsonValue list(const Element& element) {
    JXJsonArray array;
    const std::size_t count = hasAllFields_ ? 2 : below(4);
    for (std::size_t i = 0; i < count; ++i)
      array.append(element());
    return array;
  }

  JXJsonValue object(const JXBlockClass& type) {
    JXJsonObject properties;
    fill(type, properties);
    return properties;
  }

  JXJsonValue anyValue() {
    switch (below(4)) {
      case 0:
        return number();
      case 1:
        return below(2) == 0;
      case 2:
        return list([&] { return JXJsonValue(text()); });
      default:
        return text();
    }
  }

  JXString text() {
    constexpr const char* kPieces[] = {"a",
                                       "B",
                                       "7",
                                       " ",
                                       "\"",
                                       "\\",
                                       "\n",
                                       "/",
                                       "\xC3\xA9",
                                       "<b>",
                                       "\xE2\x82\xAC",
                                       "\t",
                                       "\x01",
                                       "%",
                                       "\xF0\x9F\x98\x80",
                                       "\xE2\x80\xA8"};
    std::string text;
    const std::size_t count = hasAllFields_ ? 3 : below(12);
    for (std::size_t i = 0; i < count; ++i)
      text += kPieces[below(std::size(kPieces))];
    return text;
  }

  // Without zeros at its end, which NSDecimalNumber drops.
  JXJsonValue number() {
    std::string digits = below(2) == 0 ? "" : "-";
    digits += std::to_string(below(1'000'000'000));
    if (below(2) == 0)
      digits += "." + std::to_string(below(100'000)) + std::to_string(1 + below(9));
    return JXDecimal::fromString(digits == "-0" ? "0" : digits);
  }

  std::size_t below(std::size_t limit) { return random_() % limit; }

  std::mt19937 random_;
  bool hasAllFields_ = false;
};

std::shared_ptr<jx::JXEvent> cppEvent(const Description& event) {
  std::shared_ptr<jx::JXEvent> result = event.type->create(event.mode, event.argument);
  for (const JXJsonEntry& entry : event.properties.entries())
    EXPECT_EQ(event.type->setProperty(*result, entry.key.view(), entry.value), "") << entry.key;
  return result;
}

// Any value as JSON text.
std::string jsonOf(const JXJsonValue& value) {
  JXJsonObject object;
  object.set("v", value);
  const std::string text = JXJsonWriter::write(object, JXJsonStyle::Compact).text;
  return text.substr(5, text.size() - 6);
}

jx_object* cEvent(const Description& event) {
  jx_object* result = nullptr;
  const std::string name(event.type->className);
  const std::string argument = event.argument.toStdString();
  const char* const text = event.argument.isPresent() ? argument.c_str() : nullptr;
  if (!event.type->modes.empty()) {
    jx_event_create_with_mode(name.c_str(), static_cast<std::uint32_t>(event.mode), text, &result);
  } else if (name == "JXCustomEvent") {
    jx_custom_event_create(text, &result);
  } else {
    jx_event_create(name.c_str(), &result);
  }
  for (const JXJsonEntry& entry : event.properties.entries()) {
    const std::string json = jsonOf(entry.value);
    EXPECT_EQ(jx_object_set_json(result, entry.key.c_str(), json.c_str()), JX_OK) << entry.key;
  }
  return result;
}

void setProperties(id object, const JXBlockClass& type, const JXJsonObject& properties);

id block(Class objectClass, const JXBlockClass& type, const JXJsonValue& properties) {
  const id result = [[[objectClass alloc] init] autorelease];
  setProperties(result, type, properties.object());
  return result;
}

// The value as an application passes it to the property.
id propertyValue(const JXFieldInfo& field, const JXJsonValue& value) {
  switch (field.kind) {
    case Kind::Number:
      return toFoundation(std::optional(value.decimal()));
    case Kind::Enumeration:
      for (std::size_t i = 0; i < field.enumStrings.count; ++i) {
        if (field.enumStrings.enumerators[i] == value.string().view()) {
          return [NSNumber numberWithInt:static_cast<int>(i)];
        }
      }
      return nil;
    case Kind::Items: {
      NSMutableArray* const items = [NSMutableArray array];
      const JXJsonArray elements = value.array();
      for (const JXJsonValue& element : elements.values())
        [items addObject:block([::JXItem class], JXItem::blockClass(), element)];
      return items;
    }
    case Kind::Product:
      return block([::JXProduct class], JXProduct::blockClass(), value);
    default:
      return toFoundation(value);
  }
}

void setProperties(id object, const JXBlockClass& type, const JXJsonObject& properties) {
  for (const JXJsonEntry& entry : properties.entries()) {
    const JXFieldInfo* const field = type.fieldOfProperty(entry.key.view());
    // By name, as a key path or a storyboard does it.
    [object setValue:propertyValue(*field, entry.value) forKey:toFoundation(entry.key)];
  }
}

::JXEvent* objectiveCEvent(const Description& event) {
  const Class type = NSClassFromString(toFoundation(JXString(event.type->className)));
  id result = nil;
  NSString* const argument = toFoundation(event.argument);
  if (!event.type->modes.empty()) {
    // The parameter of each video class is an enumeration of this size.
    result = [[type alloc] initWithMode:static_cast<EJXVideoAdMode>(event.mode)
                           andSessionId:argument];
  } else if (event.type->className == "JXCustomEvent") {
    result = [[type alloc] initWithName:argument];
  } else {
    result = [[type alloc] init];
  }
  setProperties(result, *event.type, event.properties);
  return [result autorelease];
}

class LanguageEquality : public test::ObjectiveCTest {
 protected:
  void createAll() {
    start();
    cpp_ = jx::ServerSide::initWithSiteID_andSourceKey(1234, "key");
    ASSERT_EQ(jx_server_side_create(1234, "key", JX_BEHAVIOUR_DEFAULT, nullptr, &c_), JX_OK);
    objectiveC_ = [[[::ServerSide alloc] initWithSiteID:1234 andSourceKey:@"key"] autorelease];
    // The first events of a session differ from later ones.
    for (int i = 0; i < 2; ++i)
      cpp_->execute(jx::JXCustomEvent::initWithName("first"));
  }
  void TearDown() override {
    jx_server_side_free(c_);
    ObjectiveCTest::TearDown();
  }

  std::string lastBody() const {
    static const std::regex identifier(
        "[0-9A-F]{8}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{12}");
    return std::regex_replace(requests().back().text, identifier, "UUID");
  }

  // Returns whether the three bodies are equal, byte for byte.
  ::testing::AssertionResult areEqual(const Description& event) {
    cpp_->execute(cppEvent(event));
    const std::string cpp = lastBody();
    jx_object* const object = cEvent(event);
    jx_execute(c_, object);
    jx_object_free(object);
    const std::string c = lastBody();
    NSAutoreleasePool* const pool = [[NSAutoreleasePool alloc] init];
    [objectiveC_ execute:objectiveCEvent(event)];
    [pool release];
    const std::string objectiveC = lastBody();
    if (cpp == c && cpp == objectiveC) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure()
           << "C++: " << cpp << "\nC: " << c << "\nObjective-C: " << objectiveC;
  }

 private:
  std::shared_ptr<jx::ServerSide> cpp_;
  jx_server_side* c_ = nullptr;
  ::ServerSide* objectiveC_ = nil;
};

TEST_F(LanguageEquality, EveryClassWithAllFieldsHasTheSameBody) {
  createAll();
  RandomEvents events(1);
  std::size_t count = 0;
  for (const JXEventClass* type : allEventClasses()) {
    ASSERT_TRUE(areEqual(events.next(*type, true))) << type->className;
    ++count;
  }
  EXPECT_EQ(count, 26u);
}

TEST_F(LanguageEquality, TwoThousandRandomEventsHaveTheSameBodies) {
  createAll();
  RandomEvents events(2);
  const auto& types = allEventClasses();
  std::set<std::string_view> seen;
  for (std::size_t i = 0; i < 2'000; ++i) {
    const JXEventClass& type = *types[i % types.size()];
    ASSERT_TRUE(areEqual(events.next(type, false))) << "event " << i << ", " << type.className;
    seen.insert(type.className);
  }
  EXPECT_EQ(seen.size(), types.size());
}

}  // namespace
}  // namespace jx::objc
