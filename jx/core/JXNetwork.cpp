// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXNetwork.h"

#include "jx/core/JXCoreServices.h"
#include "jx/core/JXForkedChild.h"
#include "jx/core/JXStartGuard.h"
#include "jx/core/json/JXJsonSink.h"

namespace jx {
namespace {

const char* toString(JXNetworkKind kind) {
  switch (kind) {
    case JXNetworkKind::Ethernet:
      return "ethernet";
    case JXNetworkKind::Wifi:
      return "wifi";
    case JXNetworkKind::Cellular:
      return "cellular";
    case JXNetworkKind::None:
      break;
  }
  return "none";
}

}  // namespace

JXNetwork& JXNetwork::sharedInstance() {
  static JXOnce<JXNetwork> once;
  return once.get([] {
    const JXCoreCaller caller("JXNetwork::sharedInstance()");
    return new JXNetwork();
  });
}

JXNetwork::JXNetwork() : JXAdditionalProperties(Sharing::AnyThread) { refresh(); }

JXJsonObject JXNetwork::getJsonObject() const { return newJsonObject(); }

void JXNetwork::writeOwnEntries(JXJsonSink& sink) const {
  sink.text("connection_type", toString(kind_));
}

void JXNetwork::refresh() {
  if (JXForkedChild::ignores("JXNetwork::refresh()")) return;
  kind_ = JXCoreServices::sharedInstance().platform().networkKind();
}

}  // namespace jx
