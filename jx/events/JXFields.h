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

/// Marks a list of texts that is written as "prefix1", "prefix2" and so on.
template <typename Owner>
struct JXNumberedStrings {
  JXList<JXString> Owner::*member;  ///< where the list is kept
};

/// Marks an enumeration with its texts. Held as an integer, so that a value outside the enumeration
/// is a value like any other and simply has no text.
template <typename Owner>
struct JXEnumField {
  int Owner::*member;   ///< where the value is kept
  JXEnumStrings texts;  ///< what JSON says for each value
};

/// Behind a field that the table or a base's table has named before, because the order of writing
/// is part of the interface: its value stands in its first place and is not written again.
inline constexpr bool kDuplicateField = true;

/// The table of a class: one line a field, in writing order, key beside property and member.
/// ```
/// static const JXFields<JXSearchEvent> table{{JXE_SEARCHTERM, "searchTerm",
///                                             &JXSearchEvent::searchTerm_}};
/// ```
template <typename Owner>
class JXFields final : public JXFieldTable {
 public:
  /// Where a field is kept, by its type.
  using Member =
      std::variant<JXString Owner::*, std::optional<JXDecimal> Owner::*, bool Owner::*,
                   JXList<JXString> Owner::*, JXNumberedStrings<Owner>, JXJsonArray Owner::*,
                   JXEnumField<Owner>, JXList<std::shared_ptr<JXItem>> Owner::*,
                   std::shared_ptr<JXProduct> Owner::*>;
  /// One line of the table.
  struct Field {
    /// The JSON key.
    std::string_view key;
    /// The property's name.
    std::string_view property;
    /// Where the value is kept.
    Member member;
    /// See `JXFieldInfo::isDuplicate`.
    bool isDuplicate = false;
  };

  /// A table of these lines; the texts must be constants.
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

 private:
  // The alternatives of Member stand in this order.
  static JXFieldKind kindOf(const Member& member) {
    constexpr JXFieldKind kinds[] = {
        JXFieldKind::String,      JXFieldKind::Number,          JXFieldKind::Boolean,
        JXFieldKind::Strings,     JXFieldKind::NumberedStrings, JXFieldKind::Values,
        JXFieldKind::Enumeration, JXFieldKind::Items,           JXFieldKind::Product};
    return kinds[member.index()];
  }
  static JXEnumStrings enumStringsOf(const Member& member) {
    const auto* choice = std::get_if<JXEnumField<Owner>>(&member);
    return choice != nullptr ? choice->texts : JXEnumStrings();
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
  static void writeMember(const Owner& owner, const JXEnumField<Owner>& choice,
                          std::string_view key, JXJsonSink& sink) {
    fieldvalue::write(choice.texts.stringOf(owner.*choice.member), key, sink);
  }

  template <typename T>
  static JXFieldState stateOf(const Owner& owner, T Owner::*member) {
    return fieldvalue::state(owner.*member);
  }
  static JXFieldState stateOf(const Owner& owner, const JXNumberedStrings<Owner>& numbered) {
    return fieldvalue::state(owner.*numbered.member);
  }
  static JXFieldState stateOf(const Owner& owner, const JXEnumField<Owner>& choice) {
    return fieldvalue::state(choice.texts.stringOf(owner.*choice.member));
  }

  template <typename T>
  static std::string setMember(Owner& owner, T Owner::*member, const JXJsonValue& value) {
    return fieldvalue::read(value, owner.*member);
  }
  static std::string setMember(Owner& owner, const JXNumberedStrings<Owner>& numbered,
                               const JXJsonValue& value) {
    return fieldvalue::read(value, owner.*numbered.member);
  }
  static std::string setMember(Owner& owner, const JXEnumField<Owner>& choice,
                               const JXJsonValue& value) {
    const JXString text = value.string();
    for (std::size_t i = 0; i < choice.texts.count; ++i) {
      if (text.isPresent() && text.view() == choice.texts.members[i]) {
        owner.*choice.member = static_cast<int>(i);
        return {};
      }
    }
    return "is no member of the enumeration";
  }

  std::vector<Member> members_;
};

}  // namespace jx
