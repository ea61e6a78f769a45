// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/validation/ContextRules.h"

#include <algorithm>

#include "jx/catalogue/JXEventPropertiesNames.h"
#include "jx/core/JXCoreConstants.h"
#include "tools/jx/collector/validation/DiagnosticCodes.h"

namespace jx {
namespace {

using Kind = JsonNode::Kind;

struct ContextBlock;

struct ContextField {
  std::string_view key;
  Kind kind;
  bool isRequired = false;
  const ContextBlock* block = nullptr;  // fields of an object; null for other kinds
};

struct ContextBlock {
  std::vector<ContextField> fields;
};

constexpr bool kRequired = true;

constexpr const char* mustBeSet() { return " must be set in every event"; }

const ContextBlock& networkBlock() {
  static const auto& block = *new ContextBlock{{{"connection_type", Kind::String}}};
  return block;
}

const ContextBlock& osBlock() {
  static const auto& block =
      *new ContextBlock{{{JXD_OS_NAME, Kind::String}, {JXD_OS_VERSION, Kind::String}}};
  return block;
}

const ContextBlock& screenBlock() {
  static const auto& block =
      *new ContextBlock{{{JXD_SCREEN_HEIGHT, Kind::Number}, {JXD_SCREEN_WIDTH, Kind::Number}}};
  return block;
}

const ContextBlock& lifecycleBlock() {
  static const auto& block = *new ContextBlock{{
      {JXL_SESSION_ID, Kind::String, kRequired},
      {JXL_NEW_SESSION, Kind::Bool, kRequired},
      {JXL_SESSION_DURATION, Kind::Number},
      {JXL_CURRENT_SESSION, Kind::Number},
      {JXL_VISIT_NUMBER, Kind::Number},
      {JXL_CURRENT_VISIT, Kind::Number},
      {JXL_CUR_VER_FIRST_VISIT, Kind::Number},
      {JXL_SESSION_NUMBER, Kind::Number},
      {JXL_FIRST_VISIT, Kind::Number},
      {JXL_LAST_VISIT, Kind::Number},
      {JXL_LAST_CALL, Kind::Number},
      {JXL_LAST_SESSION_START, Kind::Number},
      {JXL_LAST_SESSION_LAST_HIT, Kind::Number},
      {JXL_FOREGROUND_TRANSITIONS, Kind::Number},
      {JXL_FOREGROUND_TIME, Kind::Number},
      {JXL_BACKGROUND_TIME, Kind::Number},
      {JXL_FIRST_EXECUTE, Kind::Bool, kRequired},
      {JXL_IS_FIRST_VISIT, Kind::Bool, kRequired},
  }};
  return block;
}

const ContextBlock& deviceBlock() {
  static const auto& block = *new ContextBlock{{
      {JXD_ADTRACKING, Kind::Bool},
      {JXD_USER_AGENT, Kind::String},
      {JXD_IDFA, Kind::String},
      {JXD_IDFV, Kind::String},
      {JXD_SDK_ID, Kind::String},
      {JXD_LANGUAGE, Kind::String},
      {JXD_REGION, Kind::String},
      {JXD_MANUFACTURER, Kind::String},
      {JXD_MODEL, Kind::String},
      {JXD_NAME, Kind::String},
      {JXD_TYPE, Kind::String},
      {JXD_NETWORK, Kind::Object, kRequired, &networkBlock()},
      {JXD_OS, Kind::Object, kRequired, &osBlock()},
      {JXD_SCREEN, Kind::Object, kRequired, &screenBlock()},
      {JXD_TIMEZONE, Kind::String},
      {JXL_LIFECYCLE, Kind::Object, kRequired, &lifecycleBlock()},
  }};
  return block;
}

const ContextBlock& appBlock() {
  static const auto& block = *new ContextBlock{{
      {JXA_NAME, Kind::String},
      {JXA_VERSION, Kind::String},
      {JXA_BUILD, Kind::String},
      {JXA_NAMESPACE, Kind::String},
      {JXA_SERVERSIDEVERSION, Kind::String},
      {JXA_COREVERSION, Kind::String},
      {JXA_CONSENTVERSION, Kind::String},
  }};
  return block;
}

const ContextBlock& contextBlock() {
  static const auto& block = *new ContextBlock{{
      {JXE_EVENTID, Kind::String, kRequired},
      {JXD_DEVICE, Kind::Object, kRequired, &deviceBlock()},
      {JXA_APP, Kind::Object, kRequired, &appBlock()},
      {JX_EVENTTIMESTAMP, Kind::Number, kRequired},
  }};
  return block;
}

const ContextBlock& userBlock() {
  static const auto& block =
      *new ContextBlock{{{"anonymous_id", Kind::String, kRequired}, {"consent_id", Kind::String}}};
  return block;
}

class ContextRules {
 public:
  ContextRules(const JsonTree& tree, Diagnostics& diagnostics)
      : tree_(tree), diagnostics_(diagnostics) {}

  void validateBlock(std::uint32_t object, const ContextBlock& block) {
    forEachIn(tree_, object, [&](std::uint32_t value) { validateKey(value, block); });
    for (const ContextField& field : block.fields)
      validatePresence(object, field);
  }

  void validateTop(std::string_view key, const ContextBlock& block) {
    const std::optional<std::uint32_t> value = tree_.find(0, key);
    if (!value) {
      diagnostics_.error(kMissingContext, std::string(key), std::string(key) + mustBeSet());
    } else if (tree_.isObject(*value)) {
      validateBlock(*value, block);
    } else {
      diagnostics_.error(kWrongType, std::string(key),
                         "must be an object, not " + std::string(nameOf(tree_.node(*value).kind)));
    }
  }

 private:
  void validateKey(std::uint32_t value, const ContextBlock& block) {
    const JsonNode& node = tree_.node(value);
    const auto field = std::find_if(block.fields.begin(), block.fields.end(),
                                    [&](const ContextField& f) { return f.key == node.key; });
    if (field == block.fields.end()) {
      diagnostics_.warning(kUnknownKey, tree_.pathOf(value),
                           "is not a field of this block; treated as an additional property");
    } else if (field->kind != node.kind) {
      diagnostics_.error(kWrongType, tree_.pathOf(value),
                         "must be " + std::string(nameOf(field->kind)) + ", not " +
                             std::string(nameOf(node.kind)));
    } else if (field->block != nullptr) {
      validateBlock(value, *field->block);
    }
  }

  void validatePresence(std::uint32_t object, const ContextField& field) {
    if (!field.isRequired) return;
    const std::optional<std::uint32_t> value = tree_.find(object, field.key);
    if (!value) {
      diagnostics_.error(kMissingContext, tree_.pathOf(object, field.key),
                         std::string(field.key) + mustBeSet());
    } else if (tree_.node(*value).kind == Kind::String && tree_.node(*value).text.empty()) {
      diagnostics_.error(kMissingContext, tree_.pathOf(*value),
                         std::string(field.key) + " must not be empty");
    }
  }

  const JsonTree& tree_;
  Diagnostics& diagnostics_;
};

}  // namespace

void validateContext(const JsonTree& tree, Diagnostics& diagnostics) {
  ContextRules rules(tree, diagnostics);
  rules.validateTop(JXE_CONTEXT, contextBlock());
  const std::optional<std::uint32_t> user = tree.find(0, JXE_USER);
  // Until the user has made a consent choice, the library writes this string instead of the block.
  const bool isAwaited = user && tree.node(*user).kind == Kind::String &&
                         tree.node(*user).text == JX_WAITING_FOR_CONSENT;
  if (!isAwaited) rules.validateTop(JXE_USER, userBlock());
}

}  // namespace jx
