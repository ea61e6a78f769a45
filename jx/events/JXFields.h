// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "jx/events/JXFieldTable.h"
#include "jx/events/JXFieldValue.h"

namespace jx {

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

/// Marks a field that the table or a base's table lists earlier. The writing order is part of the
/// interface, so the table lists the field again; it is written only at its first position.
inline constexpr bool kDuplicateField = true;

/// The field table of a class: key, property and member of each field, in writing order.
/// ```
/// static const JXFields<JXSearchEvent> table{{JXE_SEARCHTERM, "searchTerm",
///                                             &JXSearchEvent::searchTerm_}};
/// ```
template <typename Owner>
class JXFields final : public JXFieldTable {
 public:
  /// The member that stores a field, one alternative for each type.
  using Member =
      std::variant<JXString Owner::*, std::optional<JXDecimal> Owner::*, bool Owner::*,
                   JXList<JXString> Owner::*, JXNumberedStrings<Owner>, JXJsonArray Owner::*,
                   JXEnumField<Owner>, JXList<std::shared_ptr<JXItem>> Owner::*,
                   std::shared_ptr<JXProduct> Owner::*>;
  /// One entry of the table.
  struct Field {
    /// The JSON key.
    std::string_view key;
    /// The property's name.
    std::string_view property;
    /// The member that stores the value.
    Member member;
    /// See `JXFieldInfo::isDuplicate`.
    bool isDuplicate = false;
  };

  /// Creates the table. All strings must be constants.
  JXFields(std::initializer_list<Field> fields) {
    for (const Field& field : fields) {
      fields_.push_back({field.key, field.property, kindOf(field.member),
                         enumStringsOf(field.member), field.isDuplicate});
      members_.push_back(field.member);
    }
  }

  void write(const JXAdditionalProperties& object, JXJsonSink& sink) const override {
    const Owner& owner = static_cast<const Owner&>(object);
    for (std::size_t i = 0; i < members_.size(); ++i) {
      if (fields_[i].isDuplicate) continue;
      std::visit([&](const auto& member) { writeMember(owner, member, fields_[i].key, sink); },
                 members_[i]);
    }
  }

  JXFieldState state(const JXAdditionalProperties& object, std::size_t field) const override {
    const Owner& owner = static_cast<const Owner&>(object);
    return std::visit([&](const auto& member) { return stateOf(owner, member); }, members_[field]);
  }

  std::string set(JXAdditionalProperties& object, std::size_t field,
                  const JXJsonValue& value) const override {
    Owner& owner = static_cast<Owner&>(object);
    return std::visit([&](const auto& member) { return setMember(owner, member, value); },
                      members_[field]);
  }

  JXJsonValue get(const JXAdditionalProperties& object, std::size_t field) const override {
    const Owner& owner = static_cast<const Owner&>(object);
    return std::visit([&](const auto& member) { return getMember(owner, member); },
                      members_[field]);
  }

 private:
  // In the order of the alternatives of Member.
  static JXFieldKind kindOf(const Member& member) {
    constexpr JXFieldKind kinds[] = {
        JXFieldKind::String,      JXFieldKind::Number,          JXFieldKind::Boolean,
        JXFieldKind::Strings,     JXFieldKind::NumberedStrings, JXFieldKind::Values,
        JXFieldKind::Enumeration, JXFieldKind::Items,           JXFieldKind::Product};
    return kinds[member.index()];
  }
  static JXEnumStrings enumStringsOf(const Member& member) {
    const auto* field = std::get_if<JXEnumField<Owner>>(&member);
    return field != nullptr ? field->strings : JXEnumStrings();
  }

  template <typename T>
  static void writeMember(const Owner& owner, T Owner::*member, std::string_view key,
                          JXJsonSink& sink) {
    fieldvalue::write(owner.*member, key, sink);
  }
  static void writeMember(const Owner& owner, const JXNumberedStrings<Owner>& numbered,
                          std::string_view key, JXJsonSink& sink) {
    fieldvalue::writeNumbered(owner.*numbered.member, key, sink);
  }
  static void writeMember(const Owner& owner, const JXEnumField<Owner>& field, std::string_view key,
                          JXJsonSink& sink) {
    fieldvalue::writeEnumValue(owner.*field.member, field.strings, key, sink);
  }

  template <typename T>
  static JXFieldState stateOf(const Owner& owner, T Owner::*member) {
    return fieldvalue::state(owner.*member);
  }
  static JXFieldState stateOf(const Owner& owner, const JXNumberedStrings<Owner>& numbered) {
    return fieldvalue::state(owner.*numbered.member);
  }
  static JXFieldState stateOf(const Owner& owner, const JXEnumField<Owner>& field) {
    return fieldvalue::state(field.strings.stringOf(owner.*field.member));
  }

  template <typename T>
  static std::string setMember(Owner& owner, T Owner::*member, const JXJsonValue& value) {
    return fieldvalue::read(value, owner.*member);
  }
  static std::string setMember(Owner& owner, const JXNumberedStrings<Owner>& numbered,
                               const JXJsonValue& value) {
    return fieldvalue::read(value, owner.*numbered.member);
  }
  static std::string setMember(Owner& owner, const JXEnumField<Owner>& field,
                               const JXJsonValue& value) {
    const JXString name = value.string();
    for (std::size_t i = 0; i < field.strings.count; ++i) {
      if (name.isPresent() && name.view() == field.strings.enumerators[i]) {
        owner.*field.member = static_cast<int>(i);
        return {};
      }
    }
    return "must be one of the enumeration's names";
  }

  template <typename T>
  static JXJsonValue getMember(const Owner& owner, T Owner::*member) {
    return fieldvalue::toJson(owner.*member);
  }
  static JXJsonValue getMember(const Owner& owner, const JXNumberedStrings<Owner>& numbered) {
    return fieldvalue::toJson(owner.*numbered.member);
  }
  static JXJsonValue getMember(const Owner& owner, const JXEnumField<Owner>& field) {
    return fieldvalue::toJson(field.strings.enumeratorOf(owner.*field.member));
  }

  std::vector<Member> members_;
};

}  // namespace jx
