// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <rapidjson/memorystream.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/reader.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <random>
#include <string>

#include "jx/core/json/JXJsonReader.h"
#include "jx/core/json/JXJsonWriter.h"

namespace jx {
namespace {

using Kind = JXJsonValue::Kind;

// Compares entry by entry, so that the writer is not used to verify itself.
testing::AssertionResult same(const JXJsonValue& a, const JXJsonValue& b) {
  if (a.kind() != b.kind()) return testing::AssertionFailure() << "kinds differ";
  if (a.boolValue() != b.boolValue()) return testing::AssertionFailure() << "booleans differ";
  if (a.string() != b.string())
    return testing::AssertionFailure() << a.string() << " is not " << b.string();
  if (a.numberString() != b.numberString())
    return testing::AssertionFailure() << a.numberString() << " is not " << b.numberString();
  if (a.array().size() != b.array().size() || a.object().size() != b.object().size())
    return testing::AssertionFailure() << "sizes differ";
  for (std::size_t i = 0; i < a.array().size(); ++i) {
    if (auto result = same(a.array().at(i), b.array().at(i)); !result) return result;
  }
  for (std::size_t i = 0; i < a.object().size(); ++i) {
    const JXJsonObject x = a.object();
    const JXJsonObject y = b.object();
    if (x.entries()[i].key != y.entries()[i].key)
      return testing::AssertionFailure() << x.entries()[i].key << " is not " << y.entries()[i].key;
    if (auto result = same(x.entries()[i].value, y.entries()[i].value); !result) return result;
  }
  return testing::AssertionSuccess();
}

// Creates the same values in every run.
class Generator {
 public:
  explicit Generator(unsigned seed) : random_(seed) {}

  JXJsonObject object(int depth) {
    JXJsonObject object;
    for (unsigned count = below(8); count > 0; --count)
      object.set(text(), value(depth + 1));
    return object;
  }

 private:
  unsigned below(unsigned limit) { return static_cast<unsigned>(random_() % limit); }

  JXJsonValue value(int depth) {
    switch (below(depth < 6 ? 7 : 5)) {
      case 0:
        return JXJsonValue::null();
      case 1:
        return below(2) == 0;
      case 2:
      case 3:
        return JXJsonValue::numberFromString(number());
      case 4:
        return text();
      case 5:
        return object(depth);
      default: {
        JXJsonArray array;
        for (unsigned count = below(8); count > 0; --count)
          array.append(value(depth + 1));
        return array;
      }
    }
  }

  std::string number() {
    std::string digits = below(2) == 0 ? "-" : "";
    digits += static_cast<char>('1' + below(9));
    for (unsigned count = below(45); count > 0; --count)
      digits += static_cast<char>('0' + below(10));
    if (below(2) == 0) {
      digits += '.';
      for (unsigned count = 1 + below(45); count > 0; --count)
        digits += static_cast<char>('0' + below(10));
    }
    return digits;
  }

  // Complete characters of one to four bytes, including control characters and NUL.
  std::string text() {
    static const std::string characters[] = {"a",
                                             "Z",
                                             " ",
                                             "\"",
                                             "\\",
                                             "/",
                                             "\n",
                                             "\x01",
                                             "\x1F",
                                             "\x7F",
                                             "\xC2\x80",
                                             "\xC3\xA9",
                                             "\xE2\x82\xAC",
                                             "\xEF\xBF\xBF",
                                             "\xF0\x9F\x93\xBA",
                                             "\xF4\x8F\xBF\xBF",
                                             std::string(1, '\0')};
    std::string text;
    for (unsigned count = below(40); count > 0; --count)
      text += characters[below(sizeof characters / sizeof *characters)];
    return text;
  }

  std::mt19937 random_;
};

TEST(JXJsonRoundTrip, ReadsBackTheWrittenValues) {
  Generator generator(20250428);
  for (int i = 0; i < 300; ++i) {
    const JXJsonObject object = generator.object(0);
    for (const JXJsonStyle style : {JXJsonStyle::Compact, JXJsonStyle::Pretty}) {
      const JXJsonText json = JXJsonWriter::write(object, style);
      ASSERT_EQ(json.leftOut, 0U);
      const JXJsonReading reading = JXJsonReader::read(json.text);
      ASSERT_EQ(reading.error, "") << i << " " << json.text;
      ASSERT_TRUE(same(reading.value, object)) << i << " " << json.text;
      ASSERT_EQ(JXJsonWriter::write(reading.value.object(), style).text, json.text) << i;
    }
  }
}

// Calls a writer for each event of a parser and passes numbers as their digits.
template <typename Writer>
struct Copying : rapidjson::BaseReaderHandler<rapidjson::UTF8<>, Copying<Writer>> {
  explicit Copying(Writer& into) : writer(into) {}
  bool Null() { return writer.Null(); }
  bool Bool(bool value) { return writer.Bool(value); }
  bool RawNumber(const char* digits, rapidjson::SizeType length, bool) {
    return writer.RawValue(digits, length, rapidjson::kNumberType);
  }
  bool String(const char* text, rapidjson::SizeType length, bool) {
    return writer.String(text, length);
  }
  bool Key(const char* text, rapidjson::SizeType length, bool) { return writer.Key(text, length); }
  bool StartObject() { return writer.StartObject(); }
  bool EndObject(rapidjson::SizeType count) { return writer.EndObject(count); }
  bool StartArray() { return writer.StartArray(); }
  bool EndArray(rapidjson::SizeType count) { return writer.EndArray(count); }

  Writer& writer;
};

template <typename Writer>
std::string copied(const std::string& json, Writer& writer, rapidjson::StringBuffer& buffer) {
  rapidjson::MemoryStream bytes(json.data(), json.size());
  rapidjson::EncodedInputStream<rapidjson::UTF8<>, rapidjson::MemoryStream> stream(bytes);
  Copying<Writer> handler(writer);
  rapidjson::Reader reader;
  reader.Parse<rapidjson::kParseNumbersAsStringsFlag>(stream, handler);
  return {buffer.GetString(), buffer.GetSize()};
}

TEST(JXJsonRoundTrip, WritesTheSameBytesAsAnotherWriter) {
  Generator generator(20261120);
  for (int i = 0; i < 300; ++i) {
    const JXJsonObject object = generator.object(0);
    rapidjson::StringBuffer compactBuffer;
    rapidjson::Writer<rapidjson::StringBuffer> compact(compactBuffer);
    const std::string compactText = JXJsonWriter::write(object, JXJsonStyle::Compact).text;
    ASSERT_EQ(copied(compactText, compact, compactBuffer), compactText) << i;

    rapidjson::StringBuffer prettyBuffer;
    rapidjson::PrettyWriter<rapidjson::StringBuffer> pretty(prettyBuffer);
    pretty.SetIndent(' ', 2);
    const std::string prettyText = JXJsonWriter::write(object, JXJsonStyle::Pretty).text;
    ASSERT_EQ(copied(prettyText, pretty, prettyBuffer), prettyText) << i;
  }
}

}  // namespace
}  // namespace jx
