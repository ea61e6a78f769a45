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
#include "jx/session/JXApp.h"
#include "jx/session/JXDevice.h"
#include "jx/session/JXLifecycle.h"
#include "jx/session/JXPredefinedVariableNames.h"
#include "jx/session/JXPredefinedVariables.h"
#include "jx/session/JXSessionLock.h"

namespace jx {
namespace {

// Writes the parts of the context that do not belong to the event, as of one moment of the session.
// With a claim that moment is an execution: the variables advance first, and the event takes the
// mark of a new session.
void writeDeviceAndApp(JXJsonSink& sink, JXNewSessionClaim* claim) {
  JXPredefinedVariables& variables = JXPredefinedVariables::sharedInstance();
  JXDevice& device = JXDevice::sharedInstance();
  JXApp& app = JXApp::sharedInstance();
  const JXSessionLock lock;
  if (claim != nullptr) variables.advance();
  device.refreshContent();
  if (claim != nullptr) JXLifecycle::sharedInstance().setIsNewSession(claim->take());
  sink.block(JXD_DEVICE, device);
  app.refreshContent();
  sink.block(JXA_APP, app);
  sink.numberFromString(JX_EVENTTIMESTAMP, variables.getData(kJXPredefinedVariable_CurrentCallMs));
}

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
  writeUser(tree, serverSideState);
  const JXJsonObject context = body.get(JXE_CONTEXT).object();
  if (context.isPresent()) {
    JXJsonTreeSink contextTree(context);
    writeDeviceAndApp(contextTree, claim);
  } else if (claim != nullptr) {
    // An event without a context is part of the session too.
    const JXSessionLock lock;
    JXPredefinedVariables::sharedInstance().advance();
    claim->take();
  }
  sink.root(body);
}

}  // namespace

void JXPostData::writeBody(const JXEvent& event, std::int32_t serverSideState,
                           JXNewSessionClaim* claim, JXJsonTextSink& sink) {
  sink.entries(event.getAdditionalProperties());
  event.writeHead(sink);
  sink.beginObject(JXE_CONTEXT);
  event.writeContext(sink);
  writeDeviceAndApp(sink, claim);
  sink.endObject();
  event.writeFields(sink);
  writeUser(sink, serverSideState);
}

JXString JXPostData::bodyOf(const JXEvent& event, std::int32_t serverSideState,
                            JXNewSessionClaim* claim) {
  // The next body is probably about as large as the last one.
  static std::atomic<std::size_t> expectedSize{2048};
  constexpr std::size_t kMaxExpectedSize = std::size_t{64} * 1024;
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
  const JXString body = sink.finish();
  expectedSize.store(std::min(body.size() + body.size() / 8, kMaxExpectedSize),
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

JXNewSessionClaim::~JXNewSessionClaim() {
  if (session_) JXPredefinedVariables::sharedInstance().releaseNewSession(*session_, false);
}

bool JXNewSessionClaim::take() {
  session_ = JXPredefinedVariables::sharedInstance().claimNewSession();
  return session_.has_value();
}

void JXNewSessionClaim::keep() {
  if (!session_) return;
  JXPredefinedVariables::sharedInstance().releaseNewSession(*session_, true);
  session_.reset();
}

}  // namespace jx
