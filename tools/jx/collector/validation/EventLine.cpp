// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/validation/EventLine.h"

#include <array>

#include "jx/catalogue/JXEventPropertiesNames.h"
#include "jx/core/JXCoreConstants.h"
#include "tools/jx/Printable.h"

namespace jx {
namespace {

using Kind = JsonNode::Kind;

constexpr std::size_t kLineWidth = 120;
constexpr std::size_t kTextWidth = 40;
constexpr int kMaxParts = 5;

class Line {
 public:
  explicit Line(const JsonTree& tree) : tree_(tree) {}

  void add(const std::string& part) {
    if (part.empty() || parts_ == kMaxParts) return;
    text_ += (text_.empty() ? "" : ", ") + part;
    ++parts_;
  }
  bool isEmpty() const { return parts_ == 0; }
  std::string text() const { return shortened(text_, kLineWidth); }

  /// Returns the string or number under a key; empty when the key is not set.
  std::string valueOf(std::string_view key) const {
    const std::optional<std::uint32_t> value = tree_.find(0, key);
    return value ? shown(*value) : std::string();
  }
  std::string shown(std::uint32_t value) const {
    const JsonNode& node = tree_.node(value);
    if (node.kind == Kind::Array || node.kind == Kind::Object || node.kind == Kind::Null) return {};
    return shortened(asOneLine(node.text.substr(0, 4 * kTextWidth)), kTextWidth);
  }

  void addItems() {
    const std::optional<std::uint32_t> items = tree_.find(0, JXE_ITEMS);
    if (!items || tree_.node(*items).kind != Kind::Array) return;
    const std::size_t count = tree_.sizeOf(*items);
    if (count > 0) add(std::to_string(count) + (count == 1 ? " item" : " items"));
  }
  void addAmount() {
    std::string amount = valueOf(JXE_REVENUE);
    if (amount.empty()) amount = valueOf(JXE_VALUE);
    const std::string currency = valueOf(JXE_CURRENCY);
    if (!amount.empty()) add(amount + (currency.empty() ? "" : " " + currency));
  }
  void addPosition() {
    const std::string cursor = valueOf(JXV_CURSOR_POSITION);
    const std::string total = valueOf(JXV_TOTAL_LENGTH);
    if (!cursor.empty()) {
      add("at " + cursor + (total.empty() ? "" : " of " + total));
    } else if (!total.empty()) {
      add(total + " long");
    }
  }
  void addOwnProperties(const JXEventClass& type) {
    forEachIn(tree_, 0, [&](std::uint32_t value) {
      const std::string_view key = tree_.node(value).key;
      if (parts_ == kMaxParts || key == JXE_CONTEXT || key == JXE_USER) return;
      if (type.fieldOfKey(key) != nullptr) return;
      const std::string text = shown(value);
      if (!text.empty())
        add(shortened(asOneLine(key.substr(0, 4 * kTextWidth)), kTextWidth) + " " + text);
    });
  }

 private:
  const JsonTree& tree_;
  std::string text_;
  int parts_ = 0;
};

// Keys that identify an event to a reader, most significant first.
constexpr std::array<std::string_view, 11> kSummaryKeys{
    JXE_PAGENAME,    JXE_SEARCHTERM,       JXE_METHOD,        JXE_CONTENTTYPE,
    JXE_ITEMID,      JXE_ITEMLISTNAME,     JXE_PAYMENTMETHOD, JXE_SHIPPINGTIER,
    JXV_VIDEO_TITLE, JXV_CONTENT_ASSET_ID, JXV_AD_ASSET_ID};

}  // namespace

std::string summaryLineOf(const JsonTree& tree, const JXEventClass* type) {
  if (type == nullptr) return {};
  Line line(tree);
  line.addItems();
  line.addAmount();
  for (const std::string_view key : kSummaryKeys) {
    if (type->fieldOfKey(key) != nullptr) line.add(line.valueOf(key));
  }
  line.addPosition();
  if (type->eventNames.empty() || line.isEmpty()) line.addOwnProperties(*type);
  return line.text();
}

}  // namespace jx
