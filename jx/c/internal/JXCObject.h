// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "jx/c/internal/JXCall.h"
#include "jx/core/json/JXJsonValue.h"
#include "jx/events/JXEvent.h"
#include "jx/events/JXItem.h"
#include "jx/events/JXProduct.h"

namespace jx::c {

/// What a `jx_object` stands for. Knows fields by what the tables of the classes tell, so a class
/// or a field that is added needs no change here. Belongs to one thread at a time.
class JXCObject {
 public:
  JXCObject() = default;
  virtual ~JXCObject() = default;
  JXCObject(const JXCObject&) = delete;
  JXCObject& operator=(const JXCObject&) = delete;

  virtual const char* className() const = 0;
  /// The field of this property, the bases' included; null when there is none.
  virtual const JXFieldInfo* fieldOf(std::string_view property) const = 0;
  /// True when the object is of this class, itself or by its bases.
  virtual bool isOf(std::string_view className) const = 0;
  /// Gives a field a value. Returns what is wrong with it, empty when nothing is.
  virtual std::string set(const JXFieldInfo& field, const JXJsonValue& value) = 0;
  virtual Result addItem(const JXFieldInfo& field, const JXCObject& item) = 0;
  virtual void addParameter(std::string_view key, const JXJsonValue& value) = 0;
  virtual Result verify() = 0;
  virtual JXJsonObject json() = 0;
  /// The event; null for an item and a product.
  virtual std::shared_ptr<JXEvent> event() { return nullptr; }
  /// An item or a product as its properties say; absent for an event. Not changed any more.
  virtual JXJsonObject values() const { return nullptr; }
};

class JXCEvent final : public JXCObject {
 public:
  JXCEvent(const JXEventClass& type, std::shared_ptr<JXEvent> event);

  const char* className() const override;
  const JXFieldInfo* fieldOf(std::string_view property) const override;
  bool isOf(std::string_view className) const override;
  std::string set(const JXFieldInfo& field, const JXJsonValue& value) override;
  Result addItem(const JXFieldInfo& field, const JXCObject& item) override;
  void addParameter(std::string_view key, const JXJsonValue& value) override;
  Result verify() override;
  JXJsonObject json() override;
  std::shared_ptr<JXEvent> event() override;

 private:
  void applyLists();

  const JXEventClass& type_;
  std::shared_ptr<JXEvent> event_;
  // The lists of items by property, handed to the event when it is looked at: the tables take a
  // list as a whole, and adding a hundred items should not hand over a hundred lists.
  JXJsonObject lists_;
  bool listsChanged_ = false;
};

/// An item or a product.
template <typename Block>
class JXCBlock final : public JXCObject {
 public:
  JXCBlock() : block_(Block::init()) {}

  const char* className() const override;
  const JXFieldInfo* fieldOf(std::string_view property) const override;
  bool isOf(std::string_view className) const override;
  std::string set(const JXFieldInfo& field, const JXJsonValue& value) override;
  Result addItem(const JXFieldInfo& field, const JXCObject& item) override;
  void addParameter(std::string_view key, const JXJsonValue& value) override;
  Result verify() override;
  JXJsonObject json() override { return block_->getJsonObject(); }
  JXJsonObject values() const override { return values_.mutableCopy(); }

 private:
  std::shared_ptr<Block> block_;
  // The same by properties, from which copies are made. What nests in it is replaced, never
  // changed, so that a copy of one level is a copy.
  JXJsonObject values_;
};

extern template class JXCBlock<JXItem>;
extern template class JXCBlock<JXProduct>;

}  // namespace jx::c
