// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/validation/JsonTree.h"

#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>

#include <algorithm>
#include <deque>
#include <utility>

#include "jx/core/json/JXUtf8.h"
#include "tools/jx/collector/validation/LargeNumbers.h"

namespace jx {
namespace {

using Kind = JsonNode::Kind;

constexpr std::size_t kShownKeyBytes = 200;
constexpr std::size_t kShownPathBytes = 1000;

bool isPlainKey(std::string_view key) {
  constexpr std::string_view kPlain =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-";
  return !key.empty() && key.find_first_not_of(kPlain) == std::string_view::npos;
}

std::string step(std::string_view key, bool isFirst) {
  // Devices choose their keys, so a path could become megabytes long; cut each key.
  const std::string shown = withReplacementCharacters(key.substr(0, kShownKeyBytes));
  if (isPlainKey(key) && key.size() <= kShownKeyBytes) return (isFirst ? "" : ".") + shown;
  std::string quoted = "[\"";
  for (const char c : shown) {
    if (c == '"' || c == '\\') quoted += '\\';
    quoted += c;
  }
  return quoted + "\"]";
}

}  // namespace

// Receives the parser's tokens. Copies their strings into one buffer. Its reserved capacity is the
// size of the body, so it never reallocates.
class JsonTree::Builder : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, Builder> {
 public:
  Builder(JsonTree& tree, std::size_t size, std::size_t maxValues)
      : tree_(tree), text_(*tree.text_), maxValues_(maxValues) {
    text_.reserve(size);
  }

  Problem problem() const { return problem_; }
  /// Sets the digits that replace the parsed numbers, one entry per number (see LargeNumbers.h).
  void replaceNumbers(std::deque<std::string_view> digits) { digits_ = std::move(digits); }

  bool Null() { return put(Kind::Null, {}); }
  bool Bool(bool value) { return put(Kind::Bool, value ? "true" : "false"); }
  bool RawNumber(const char* text, rapidjson::SizeType size, bool) {
    std::string_view digits(text, size);
    if (!digits_.empty()) {
      if (!digits_.front().empty()) digits = digits_.front();
      digits_.pop_front();
    }
    return put(Kind::Number, kept(digits.data(), digits.size()));
  }
  bool String(const char* text, rapidjson::SizeType size, bool) {
    return put(Kind::String, kept(text, size));
  }
  bool Key(const char* text, rapidjson::SizeType size, bool) {
    key_ = kept(text, size);
    return true;
  }
  bool StartObject() { return open(Kind::Object); }
  bool EndObject(rapidjson::SizeType) { return close(); }
  bool StartArray() { return open(Kind::Array); }
  bool EndArray(rapidjson::SizeType) { return close(); }

 private:
  struct Open {
    std::uint32_t index;
    std::uint32_t count;
  };

  std::string_view kept(const char* text, std::size_t size) {
    const std::size_t begin = text_.size();
    text_.append(text, size);
    return std::string_view(text_).substr(begin, size);
  }

  bool put(Kind kind, std::string_view text) {
    if (tree_.nodes_.size() == maxValues_) {
      problem_ = Problem::TooMany;
      return false;
    }
    JsonNode& node = tree_.nodes_.emplace_back();
    node.kind = kind;
    node.key = key_;
    node.text = text;
    node.end = static_cast<std::uint32_t>(tree_.nodes_.size());
    if (!open_.empty()) {
      node.parent = open_.back().index;
      node.position = open_.back().count++;
    }
    key_ = {};
    return true;
  }

  bool open(Kind kind) {
    if (open_.size() == kMaxDepth) {
      problem_ = Problem::TooDeep;
      return false;
    }
    if (!put(kind, {})) return false;
    open_.push_back({static_cast<std::uint32_t>(tree_.nodes_.size() - 1), 0});
    return true;
  }

  bool close() {
    tree_.nodes_[open_.back().index].end = static_cast<std::uint32_t>(tree_.nodes_.size());
    open_.pop_back();
    return true;
  }

  JsonTree& tree_;
  std::string& text_;
  const std::size_t maxValues_;
  std::string_view key_;
  std::vector<Open> open_;
  std::deque<std::string_view> digits_;
  Problem problem_ = Problem::None;
};

// Returns true when the parser stopped at a number outside the range of a double.
bool JsonTree::parse(std::string_view text, Builder& builder) {
  rapidjson::MemoryStream stream(text.data() ? text.data() : "", text.size());
  rapidjson::Reader reader;
  // Iterative, so that a body of brackets only cannot exhaust the stack. Numbers are kept as
  // written, because a conversion to double would lose the digits to validate.
  constexpr unsigned kFlags =
      rapidjson::kParseIterativeFlag | rapidjson::kParseNumbersAsStringsFlag;
  const rapidjson::ParseResult result = reader.Parse<kFlags>(stream, builder);
  // The parser treats a NUL byte as the end of the document.
  if (result.IsError() || stream.Tell() != text.size()) problem_ = Problem::NotJson;
  if (builder.problem() != Problem::None) problem_ = builder.problem();
  if (problem_ != Problem::None) nodes_.clear();
  return result.Code() == rapidjson::kParseErrorNumberTooBig;
}

JsonTree JsonTree::read(std::string_view text, std::size_t maxValues) {
  JsonTree tree;
  tree.text_ = std::make_unique<std::string>();
  if (!isUtf8(text)) {
    tree.problem_ = Problem::NotUtf8;
    return tree;
  }
  Builder builder(tree, text.size(), maxValues);
  if (!tree.parse(text, builder)) return tree;
  tree.problem_ = Problem::None;
  tree.text_->clear();
  const TextWithoutLargeNumbers small = TextWithoutLargeNumbers::of(text);
  Builder again(tree, text.size(), maxValues);
  again.replaceNumbers(small.replaced);
  tree.parse(small.text, again);
  return tree;
}

std::optional<std::uint32_t> JsonTree::find(std::uint32_t object, std::string_view key) const {
  std::optional<std::uint32_t> found;
  if (!isObject(object)) return found;
  forEachIn(*this, object, [&](std::uint32_t child) {
    if (node(child).key == key) found = child;
  });
  return found;
}

std::size_t JsonTree::sizeOf(std::uint32_t container) const {
  std::size_t count = 0;
  forEachIn(*this, container, [&count](std::uint32_t) { ++count; });
  return count;
}

std::string JsonTree::pathOf(std::uint32_t index) const {
  std::vector<std::uint32_t> steps;
  for (; index != 0; index = node(index).parent)
    steps.push_back(index);
  std::string path;
  for (auto at = steps.rbegin(); at != steps.rend(); ++at) {
    if (path.size() > kShownPathBytes) return path + "...";
    const JsonNode& value = node(*at);
    path += isObject(value.parent)
                ? step(value.key, path.empty())
                : std::string("[").append(std::to_string(value.position)).append("]");
  }
  return path;
}

std::string JsonTree::pathOf(std::uint32_t object, std::string_view key) const {
  const std::string path = pathOf(object);
  return path + step(key, path.empty());
}

}  // namespace jx
