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

/// The object that a `jx_object` handle refers to. Fields are defined by the field tables of the
/// classes, so a new class or field needs no change here. Belongs to one thread at a time.
class JXCObject {
 public:
  JXCObject() = default;
  virtual ~JXCObject() = default;
  JXCObject(const JXCObject&) = delete;
  JXCObject& operator=(const JXCObject&) = delete;

  virtual const char* className() const = 0;
  /// Returns the field of this property, including those of the bases; null if there is none.
  virtual const JXFieldInfo* fieldOf(std::string_view property) const = 0;
  /// Returns true if the object is of this class or of a class derived from it.
  virtual bool isOf(std::string_view className) const = 0;
  /// Sets a field. Returns an error message, which is empty on success.
  virtual std::string set(const JXFieldInfo& field, const JXJsonValue& value) = 0;
  virtual Result addItem(const JXFieldInfo& field, const JXCObject& item) = 0;
  virtual void addParameter(std::string_view key, const JXJsonValue& value) = 0;
  virtual Result verify() = 0;
  virtual JXJsonObject json() = 0;
  /// Returns the event; null for an item or a product.
  virtual std::shared_ptr<JXEvent> event() { return nullptr; }
  /// Returns a copy of the properties of an item or a product; null for an event.
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
  // The lists of items by property, set on the event only when it is read: the tables set a list as
  // a whole, and adding a hundred items should not set a hundred lists.
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
  // The same values by property, from which copies are made. Nested values are replaced and never
  // modified, so a shallow copy is sufficient.
  JXJsonObject values_;
};

extern template class JXCBlock<JXItem>;
extern template class JXCBlock<JXProduct>;

}  // namespace jx::c
