// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/validation/ContextRules.h"

#include <algorithm>

#include "jx/catalogue/JXContextBlocks.h"
#include "tools/jx/collector/validation/DiagnosticCodes.h"

namespace jx {
namespace {

using Kind = JsonNode::Kind;

constexpr const char* mustBeSet() { return " must be set in every event"; }

class ContextRules {
 public:
  ContextRules(const JsonTree& tree, Diagnostics& diagnostics)
      : tree_(tree), diagnostics_(diagnostics) {}

  void validateBlock(std::uint32_t object, const JXContextBlock& block) {
    forEachIn(tree_, object, [&](std::uint32_t value) { validateKey(value, block); });
    for (const JXContextField& field : block.fields)
      validatePresence(object, field);
  }

  void validateTop(const JXContextBlock& block) {
    const std::optional<std::uint32_t> value = tree_.find(0, block.key);
    const std::string key(block.key);
    if (!value) {
      diagnostics_.error(kMissingContext, key, key + mustBeSet());
    } else if (tree_.isObject(*value)) {
      validateBlock(*value, block);
    } else if (block.replacement.empty() || tree_.node(*value).kind != Kind::String ||
               tree_.node(*value).text != block.replacement) {
      diagnostics_.error(kWrongType, key,
                         "must be an object, not " + std::string(nameOf(tree_.node(*value).kind)));
    }
  }

 private:
  void validateKey(std::uint32_t value, const JXContextBlock& block) {
    const JsonNode& node = tree_.node(value);
    const auto field = std::find_if(block.fields.begin(), block.fields.end(),
                                    [&](const JXContextField& f) { return f.key == node.key; });
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

  void validatePresence(std::uint32_t object, const JXContextField& field) {
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
  for (const JXContextBlock* block : topLevelContextBlocks())
    rules.validateTop(*block);
}

}  // namespace jx
