// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/facade/JXPostData.h"

#include <algorithm>
#include <atomic>

#include "jx/catalogue/JXEventPropertiesNames.h"
#include "jx/catalogue/JXOmissionLog.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXLogger.h"
#include "jx/core/JXUser.h"
#include "jx/core/json/JXJsonTextSink.h"
#include "jx/core/json/JXJsonTreeSink.h"
#include "jx/facade/ServerSide.h"
#include "jx/session/JXSession.h"

namespace jx {
namespace {

void writeUser(JXJsonSink& sink, std::int32_t serverSideState) {
  if (serverSideState != EJXServerSideState_WAITING_FOR_CONSENT) {
    sink.block(JXE_USER, JXUser::sharedInstance());
  } else {
    sink.text(JXE_USER, JX_WAITING_FOR_CONSENT);
  }
}

// Same as JXPostData::writeBody, but built from the event's JSON object, for events that override
// getJsonObject.
void writeBodyFromJsonObject(const JXEvent& event, std::int32_t serverSideState,
                             JXNewSessionClaim* claim, JXJsonTextSink& sink) {
  const JXJsonObject body = event.getJsonObject();
  JXJsonTreeSink tree(body);
  const JXJsonObject context = body.get(JXE_CONTEXT).object();
  if (context.isPresent()) {
    JXJsonTreeSink contextTree(context);
    JXSession::sharedInstance().writeContext(contextTree, claim);
  } else if (claim != nullptr) {
    JXSession::sharedInstance().advance(*claim);
  }
  // After the context, which renews the identifiers if the stored data was erased.
  writeUser(tree, serverSideState);
  sink.root(body);
}

}  // namespace

void JXPostData::writeBody(const JXEvent& event, std::int32_t serverSideState,
                           JXNewSessionClaim* claim, JXJsonTextSink& sink) {
  sink.entries(event.extraProperties());
  event.writeHead(sink);
  sink.beginObject(JXE_CONTEXT);
  event.writeContext(sink);
  JXSession::sharedInstance().writeContext(sink, claim);
  sink.endObject();
  event.writeFields(sink);
  writeUser(sink, serverSideState);
}

JXString JXPostData::bodyOf(const JXEvent& event, std::int32_t serverSideState,
                            JXNewSessionClaim* claim) {
  // The next body is probably about as large as the last one.
  static std::atomic<std::size_t> expectedSize{2048};
  constexpr std::size_t kMaxExpectedSize = std::size_t{64} * 1024;
  constexpr std::size_t kRoom = 128;  // of which the last value uses a part
  JXJsonTextSink sink(JXJsonStyle::Pretty, expectedSize.load(std::memory_order_relaxed));
  if (event.canSerialiseFromFieldTable()) {
    writeBody(event, serverSideState, claim, sink);
  } else {
    writeBodyFromJsonObject(event, serverSideState, claim, sink);
  }
  if (sink.leftOut() != 0) {
    JXLogger::sharedInstance().logMessage_withLevel(
        "Event sent without some values: circular reference or size limit exceeded", 3);
  }
  JXString body = sink.finish();
  expectedSize.store(std::min(body.size() + body.size() / 8 + kRoom, kMaxExpectedSize),
                     std::memory_order_relaxed);
  return body;
}

JXString JXPostData::getPostParameters_withServerSideState(const JXEvent& event,
                                                           std::int32_t serverSideState) {
  return bodyOf(event, serverSideState, nullptr);
}

JXString JXPostData::executionBody(const JXEvent& event, std::int32_t serverSideState,
                                   JXNewSessionClaim& claim) {
  const JXOmissionLog omissions(event.name(), event.ownEventClass().className);
  return bodyOf(event, serverSideState, &claim);
}

}  // namespace jx
