// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "jx/catalogue/JXFieldValue.h"
#include "jx/core/JXAdditionalProperties.h"
#include "jx/platform/JXApi.h"

namespace jx {

/// The type of a field, which determines its JSON form.
enum class JXFieldKind {
  String,           ///< a string
  Number,           ///< an exact decimal, written as a number; NaN is not written
  Boolean,          ///< a Boolean, always written
  Strings,          ///< a list of strings, written as an array
  NumberedStrings,  ///< a list of strings, each written under a numbered key, from 1
  Values,           ///< a list of any values, written as an array
  Enumeration,      ///< an enumeration, written as the string of its value
  Items,            ///< a list of items, written as an array of objects
  Product,          ///< a product, written as an object
};

/// One field of a class: JSON key, property name and type.
struct JX_API JXFieldInfo {
  /// The JSON key.
  std::string_view key;
  /// The property's name, as in its accessors.
  std::string_view property;
  /// The type of the field.
  JXFieldKind kind = JXFieldKind::String;
  JXEnumStrings enumStrings;  ///< Enumeration only; otherwise empty
  /// True if this class or a base lists the same property earlier. The writing order is part of the
  /// interface, so the field is listed again; it is written only at its first position.
  bool isDuplicate = false;

  /// Returns true if the field may write this key: its key, or, for numbered strings, its key
  /// followed by a number from 1.
  bool writesKey(std::string_view jsonKey) const;
};

/// Marks a list of strings that is written under "prefix1", "prefix2" and so on.
template <typename Owner>
struct JXNumberedStrings {
  JXList<JXString> Owner::*member;  ///< the member that stores the list
};

/// Marks an enumeration and its JSON strings. The value is stored as an integer, so that a value
/// outside the enumeration is allowed; it has no string and is not written.
template <typename Owner>
struct JXEnumField {
  int Owner::*member;     ///< the member that stores the value
  JXEnumStrings strings;  ///< the JSON string of each value
};

/// Reads and writes one field of an object. Objects must be of the class that has the field.
class JX_API JXFieldAccess {
 public:
  virtual ~JXFieldAccess() = default;
  /// See `JXFieldTable::write`.
  virtual void write(const JXAdditionalProperties& object, std::string_view key,
                     JXJsonSink& sink) const = 0;
  /// See `JXFieldTable::state`.
  virtual JXFieldState state(const JXAdditionalProperties& object) const = 0;
  /// See `JXFieldTable::set`.
  virtual std::string set(JXAdditionalProperties& object, const JXJsonValue& value) const = 0;
  /// See `JXFieldTable::get`.
  virtual JXJsonValue get(const JXAdditionalProperties& object) const = 0;
};

namespace detail {

/// The type of a field that is stored as `Value`; false if there is none.
template <typename Value>
inline constexpr bool kFieldKind = false;
template <>
inline constexpr JXFieldKind kFieldKind<JXString> = JXFieldKind::String;
template <>
inline constexpr JXFieldKind kFieldKind<std::optional<JXDecimal>> = JXFieldKind::Number;
template <>
inline constexpr JXFieldKind kFieldKind<bool> = JXFieldKind::Boolean;
template <>
inline constexpr JXFieldKind kFieldKind<JXList<JXString>> = JXFieldKind::Strings;
template <>
inline constexpr JXFieldKind kFieldKind<JXJsonArray> = JXFieldKind::Values;
template <typename Block>
inline constexpr JXFieldKind kFieldKind<JXList<std::shared_ptr<Block>>> = JXFieldKind::Items;
template <typename Block>
inline constexpr JXFieldKind kFieldKind<std::shared_ptr<Block>> = JXFieldKind::Product;

}  // namespace detail

/// One entry of a field table: the description of a field, and access to its value. All strings
/// must be constants.
struct JX_API JXField {
 private:
  // Access to a field that is stored in a member.
  template <typename Owner, typename Value>
  class MemberAccess final : public JXFieldAccess {
   public:
    // `isNumbered` marks a list of strings that is written under numbered keys.
    explicit MemberAccess(Value Owner::*member, bool isNumbered = false)
        : member_(member), isNumbered_(isNumbered) {}

    void write(const JXAdditionalProperties& object, std::string_view key,
               JXJsonSink& sink) const override {
      if constexpr (detail::kFieldKind<Value> == JXFieldKind::Strings) {
        if (isNumbered_) return fieldvalue::writeNumbered(valueOf(object), key, sink);
      }
      fieldvalue::write(valueOf(object), key, sink);
    }
    JXFieldState state(const JXAdditionalProperties& object) const override {
      return fieldvalue::state(valueOf(object));
    }
    std::string set(JXAdditionalProperties& object, const JXJsonValue& value) const override {
      return fieldvalue::read(value, static_cast<Owner&>(object).*member_);
    }
    JXJsonValue get(const JXAdditionalProperties& object) const override {
      return fieldvalue::toJson(valueOf(object));
    }

   private:
    const Value& valueOf(const JXAdditionalProperties& object) const {
      return static_cast<const Owner&>(object).*member_;
    }

    Value Owner::*member_;
    bool isNumbered_;
  };

  // Access to an enumeration that is stored as an integer.
  template <typename Owner>
  class EnumAccess final : public JXFieldAccess {
   public:
    // Refers to the strings of the enumeration.
    explicit EnumAccess(const JXEnumField<Owner>& field) : field_(field) {}

    void write(const JXAdditionalProperties& object, std::string_view key,
               JXJsonSink& sink) const override {
      fieldvalue::writeEnumValue(valueOf(object), field_.strings, key, sink);
    }
    JXFieldState state(const JXAdditionalProperties& object) const override {
      return fieldvalue::state(field_.strings.stringOf(valueOf(object)));
    }
    std::string set(JXAdditionalProperties& object, const JXJsonValue& value) const override {
      return fieldvalue::readEnumValue(value, field_.strings,
                                       static_cast<Owner&>(object).*field_.member);
    }
    JXJsonValue get(const JXAdditionalProperties& object) const override {
      return fieldvalue::toJson(field_.strings.enumeratorOf(valueOf(object)));
    }

   private:
    int valueOf(const JXAdditionalProperties& object) const {
      return static_cast<const Owner&>(object).*field_.member;
    }

    JXEnumField<Owner> field_;
  };

 public:
  /// A field that is stored in `member`, as a string, exact decimal, Boolean, list of strings, list
  /// of any values, list of items, or product.
  template <typename Owner, typename Value>
  JXField(std::string_view key, std::string_view property, Value Owner::*member)
      : info{key, property, detail::kFieldKind<Value>, {}, false},
        access(std::make_shared<MemberAccess<Owner, Value>>(member)) {}
  /// A list of strings that is written under numbered keys; `key` is their prefix.
  template <typename Owner>
  JXField(std::string_view key, std::string_view property, JXNumberedStrings<Owner> numbered)
      : info{key, property, JXFieldKind::NumberedStrings, {}, false},
        access(std::make_shared<MemberAccess<Owner, JXList<JXString>>>(numbered.member, true)) {}
  /// An enumeration.
  template <typename Owner>
  JXField(std::string_view key, std::string_view property, const JXEnumField<Owner>& field)
      : info{key, property, JXFieldKind::Enumeration, field.strings, false},
        access(std::make_shared<EnumAccess<Owner>>(field)) {}

  /// The description of the field.
  JXFieldInfo info;
  std::shared_ptr<const JXFieldAccess> access;  ///< never null
};

}  // namespace jx
