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

// Raised when a rule changes that the tables do not tell.
constexpr std::int64_t kRulesVersion = 1;

void validateQuery(const EventMetadata& facts, Diagnostics& reasons) {
  if (!facts.site) {
    reasons.error(kWrongQuery, "", "the query parameter jx_s is missing or no whole number");
  }
  if (!facts.token) {
    reasons.error(kWrongQuery, "", "the query parameter token is missing");
  } else if (facts.token->empty()) {
    reasons.error(kWrongQuery, "", "the query parameter token is empty");
  }
}

void validateWhole(const JsonTree& tree, Diagnostics& reasons) {
  switch (tree.problem()) {
    case JsonTree::Problem::NotUtf8:
      return reasons.error(kNotUtf8, "", "the body holds bytes that are not UTF-8");
    case JsonTree::Problem::NotJson:
      return reasons.error(kNotJson, "", "the body is no JSON text");
    case JsonTree::Problem::TooDeep:
      return reasons.error(kTooDeep, "", "the body is nested deeper than 1000 levels");
    case JsonTree::Problem::TooMany:
      return reasons.error(kTooLarge, "", "the body holds more than 250000 values");
    case JsonTree::Problem::None:
      break;
  }
  if (!tree.isObject(0)) {
    reasons.error(kNotAnObject, "", "the body is " + std::string(nameOf(tree.node(0).kind)));
  }
}

void validateNumbers(const JsonTree& tree, Diagnostics& reasons) {
  const std::vector<JsonNode>& nodes = tree.nodes();
  for (std::uint32_t i = 0; i < nodes.size(); ++i) {
    if (nodes[i].kind != JsonNode::Kind::Number) continue;
    std::string loss = lossOf(nodes[i].text);
    if (!loss.empty()) reasons.error(kLossyNumber, tree.pathOf(i), std::move(loss));
  }
}

// A name that no class writes is a custom event's, unless it looks like a slip.
void validateName(std::string_view name, Diagnostics& reasons) {
  const std::string_view meant = nameMeantBy(name);
  if (meant.empty()) return;
  reasons.error(kUnknownName, "event_name",
                "no class writes this name; " + std::string(meant) + " was probably meant");
}

}  // namespace

ValidationResult ValidationResult::of(std::string_view query, std::string_view body) {
  const JsonTree tree = JsonTree::read(body);
  ValidationResult validation;
  validation.facts = EventMetadata::read(query, tree);
  Diagnostics& reasons = validation.reasons;
  validateQuery(validation.facts, reasons);
  validateWhole(tree, reasons);
  if (validation.facts.problem) return validation;
  const std::string_view name =
      validation.facts.name ? std::string_view(*validation.facts.name) : std::string_view();
  const JXEventClass* type = classWriting(name);
  if (type == nullptr) {
    type = &JXCustomEvent::eventClass();
    validateName(name, reasons);
  }
  FieldRules(tree, reasons).validateEvent(0, *type, name);
  validateNumbers(tree, reasons);
  validateContext(tree, reasons);
  if (!name.empty()) validation.className = type->className;
  validation.line = lineOf(tree, type);
  return validation;
}

std::int64_t ValidationResult::rules() { return fingerprintOfTables() ^ kRulesVersion; }

}  // namespace jx
