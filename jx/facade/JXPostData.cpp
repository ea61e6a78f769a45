// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/facade/JXPostData.h"

#include <algorithm>
#include <atomic>

#include "jx/context/JXApp.h"
#include "jx/context/JXDevice.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXLogger.h"
#include "jx/core/JXUser.h"
#include "jx/core/json/JXJsonTextSink.h"
#include "jx/core/json/JXJsonTreeSink.h"
#include "jx/events/JXEventPropertiesNames.h"
#include "jx/facade/ServerSide.h"
#include "jx/variables/JXPredefinedVariableNames.h"
#include "jx/variables/JXPredefinedVariables.h"

namespace jx {
namespace {

JXString timestamp() {
  return JXPredefinedVariables::sharedInstance().getData(kJXPredefinedVariable_CurrentCallMs);
}

// Writes the parts of the context that do not belong to the event.
void writeDeviceAndApp(JXJsonSink& sink) {
  JXDevice& device = JXDevice::sharedInstance();
  device.refreshContent();
  sink.block(JXD_DEVICE, device);
  JXApp& app = JXApp::sharedInstance();
  app.refreshContent();
  sink.block(JXA_APP, app);
  sink.numberFromString(JX_EVENTTIMESTAMP, timestamp());
}

void writeUser(JXJsonSink& sink, std::int32_t serverSideState) {
  if (serverSideState != EJXServerSideState_WAITING_FOR_CONSENT) {
    sink.block(JXE_USER, JXUser::sharedInstance());
  } else {
    sink.text(JXE_USER, JX_WAITING_FOR_CONSENT);
  }
}

void writeBody(const JXEvent& event, std::int32_t serverSideState, JXJsonTextSink& sink) {
  sink.entries(event.getAdditionalProperties());
  event.writeHead(sink);
  sink.beginObject(JXE_CONTEXT);
  event.writeContext(sink);
  writeDeviceAndApp(sink);
  sink.endObject();
  event.writeFields(sink);
  writeUser(sink, serverSideState);
}

// Same, but built from the event's JSON object, for events that override getJsonObject.
void writeBodyFromJsonObject(const JXEvent& event, std::int32_t serverSideState,
                             JXJsonTextSink& sink) {
  const JXJsonObject body = event.getJsonObject();
  JXJsonTreeSink tree(body);
  writeUser(tree, serverSideState);
  const JXJsonObject context = body.get(JXE_CONTEXT).object();
  if (context.isPresent()) {
    JXJsonTreeSink contextTree(context);
    writeDeviceAndApp(contextTree);
  }
  sink.root(body);
}

}  // namespace

JXString JXPostData::getPostParameters_withServerSideState(const JXEvent& event,
                                                           std::int32_t serverSideState) {
  // The next body is probably about as large as the last one.
  static std::atomic<std::size_t> expectedSize{2048};
  constexpr std::size_t kMaxExpectedSize = std::size_t{64} * 1024;
  JXJsonTextSink sink(JXJsonStyle::Pretty, expectedSize.load(std::memory_order_relaxed));
  if (event.canSerialiseFromFieldTable()) {
    writeBody(event, serverSideState, sink);
  } else {
    writeBodyFromJsonObject(event, serverSideState, sink);
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

}  // namespace jx
