// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/validation/ValidationResult.h"

#include "jx/events/JXCustomEvent.h"
#include "tools/jx/collector/validation/ContextRules.h"
#include "tools/jx/collector/validation/DiagnosticCodes.h"
#include "tools/jx/collector/validation/EventLine.h"
#include "tools/jx/collector/validation/EventNames.h"
#include "tools/jx/collector/validation/FieldRules.h"
#include "tools/jx/collector/validation/NumberLoss.h"

namespace jx {
namespace {

// Increment when a change of the rules alters the validity, counts or summary line of an event and
// the field tables do not show it. Diagnostic messages are not stored, so they need no increment.
constexpr std::int64_t kRulesVersion = 1;

void validateQuery(const EventMetadata& metadata, Diagnostics& diagnostics) {
  if (!metadata.site) {
    diagnostics.error(kWrongQuery, "", "the query parameter jx_s must be set to an integer");
  }
  if (!metadata.token) {
    diagnostics.error(kWrongQuery, "", "the query parameter token must be set");
  } else if (metadata.token->empty()) {
    diagnostics.error(kWrongQuery, "", "the query parameter token must not be empty");
  }
}

void validateWhole(const JsonTree& tree, Diagnostics& diagnostics) {
  switch (tree.problem()) {
    case JsonTree::Problem::NotUtf8:
      return diagnostics.error(kNotUtf8, "", "the body must be valid UTF-8");
    case JsonTree::Problem::NotJson:
      return diagnostics.error(kNotJson, "", "the body must be valid JSON");
    case JsonTree::Problem::TooDeep:
      return diagnostics.error(kTooDeep, "", "the body must not be nested deeper than 1000 levels");
    case JsonTree::Problem::TooMany:
      return diagnostics.error(kTooLarge, "", "the body must not contain more than 250000 values");
    case JsonTree::Problem::None:
      break;
  }
  if (!tree.isObject(0)) {
    diagnostics.error(kNotAnObject, "",
                      "the body must be an object, not " + std::string(nameOf(tree.node(0).kind)));
  }
}

void validateNumbers(const JsonTree& tree, Diagnostics& diagnostics) {
  const std::vector<JsonNode>& nodes = tree.nodes();
  for (std::uint32_t i = 0; i < nodes.size(); ++i) {
    if (nodes[i].kind != JsonNode::Kind::Number) continue;
    std::string loss = describeLoss(nodes[i].text);
    if (!loss.empty()) diagnostics.error(kLossyNumber, tree.pathOf(i), std::move(loss));
  }
}

// A name that no class writes belongs to a custom event, unless it looks like a typo.
void validateName(std::string_view name, Diagnostics& diagnostics) {
  const std::string_view suggestion = suggestedName(name);
  if (suggestion.empty()) return;
  diagnostics.error(kUnknownName, "event_name",
                    "is not a known event name; did you mean " + std::string(suggestion) + "?");
}

}  // namespace

ValidationResult ValidationResult::of(std::string_view query, std::string_view body) {
  const JsonTree tree = JsonTree::read(body);
  ValidationResult validation;
  validation.metadata = EventMetadata::read(query, tree);
  Diagnostics& diagnostics = validation.diagnostics;
  validateQuery(validation.metadata, diagnostics);
  validateWhole(tree, diagnostics);
  if (validation.metadata.problem) return validation;
  const std::string_view name =
      validation.metadata.name ? std::string_view(*validation.metadata.name) : std::string_view();
  const JXEventClass* type = classOfEventName(name);
  if (type == nullptr) {
    type = &JXCustomEvent::eventClass();
    validateName(name, diagnostics);
  }
  FieldRules(tree, diagnostics).validateEvent(0, *type, name);
  validateNumbers(tree, diagnostics);
  validateContext(tree, diagnostics);
  if (!name.empty()) validation.className = type->className;
  validation.line = summaryLineOf(tree, type);
  return validation;
}

std::int64_t ValidationResult::rulesVersion() { return schemaFingerprint() ^ kRulesVersion; }

}  // namespace jx
