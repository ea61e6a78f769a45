// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/judgement/Judgement.h"

#include "jx/events/JXCustomEvent.h"
#include "tools/jx/collector/judgement/ContextRules.h"
#include "tools/jx/collector/judgement/EventLine.h"
#include "tools/jx/collector/judgement/EventNames.h"
#include "tools/jx/collector/judgement/FieldRules.h"
#include "tools/jx/collector/judgement/NumberLoss.h"
#include "tools/jx/collector/judgement/ReasonCodes.h"

namespace jx {
namespace {

// Raised when a rule changes that the tables do not tell.
constexpr std::int64_t kRulesVersion = 1;

void judgeQuery(const EventFacts& facts, Reasons& reasons) {
  if (!facts.site) {
    reasons.error(kWrongQuery, "", "the query parameter jx_s is missing or no whole number");
  }
  if (!facts.token) {
    reasons.error(kWrongQuery, "", "the query parameter token is missing");
  } else if (facts.token->empty()) {
    reasons.error(kWrongQuery, "", "the query parameter token is empty");
  }
}

void judgeWhole(const JsonTree& tree, Reasons& reasons) {
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

void judgeNumbers(const JsonTree& tree, Reasons& reasons) {
  const std::vector<JsonNode>& nodes = tree.nodes();
  for (std::uint32_t i = 0; i < nodes.size(); ++i) {
    if (nodes[i].kind != JsonNode::Kind::Number) continue;
    std::string loss = lossOf(nodes[i].text);
    if (!loss.empty()) reasons.error(kLossyNumber, tree.pathOf(i), std::move(loss));
  }
}

// A name that no class writes is a custom event's, unless it looks like a slip.
void judgeName(std::string_view name, Reasons& reasons) {
  const std::string_view meant = nameMeantBy(name);
  if (meant.empty()) return;
  reasons.error(kUnknownName, "event_name",
                "no class writes this name; " + std::string(meant) + " was probably meant");
}

}  // namespace

Judgement Judgement::of(std::string_view query, std::string_view body) {
  const JsonTree tree = JsonTree::read(body);
  Judgement judgement;
  judgement.facts = EventFacts::read(query, tree);
  Reasons& reasons = judgement.reasons;
  judgeQuery(judgement.facts, reasons);
  judgeWhole(tree, reasons);
  if (judgement.facts.problem) return judgement;
  const std::string_view name =
      judgement.facts.name ? std::string_view(*judgement.facts.name) : std::string_view();
  const JXEventClass* type = classWriting(name);
  if (type == nullptr) {
    type = &JXCustomEvent::eventClass();
    judgeName(name, reasons);
  }
  FieldRules(tree, reasons).judgeEvent(0, *type, name);
  judgeNumbers(tree, reasons);
  judgeContext(tree, reasons);
  if (!name.empty()) judgement.className = type->className;
  judgement.line = lineOf(tree, type);
  return judgement;
}

std::int64_t Judgement::rules() { return fingerprintOfTables() ^ kRulesVersion; }

}  // namespace jx
