// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/facade/JXPostData.h"

#include "jx/context/JXApp.h"
#include "jx/context/JXDevice.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXLogger.h"
#include "jx/core/JXUser.h"
#include "jx/core/json/JXJsonWriter.h"
#include "jx/events/JXEventPropertiesNames.h"
#include "jx/facade/ServerSide.h"
#include "jx/variables/JXPredefinedVariableNames.h"
#include "jx/variables/JXPredefinedVariables.h"

namespace jx {

JXString JXPostData::getPostParameters_withServerSideState(const JXEvent& event,
                                                           std::int32_t serverSideState) {
  JXJsonObject body = event.getJsonObject();
  JXJsonObject context = body.get(JXE_CONTEXT).object();
  if (serverSideState != EJXServerSideState_WAITING_FOR_CONSENT) {
    body.set(JXE_USER, JXUser::sharedInstance().getJsonObject());
  } else {
    body.set(JXE_USER, JX_WAITING_FOR_CONSENT);
  }
  context.set(JXD_DEVICE, JXDevice::sharedInstance().getJsonObject());
  context.set(JXA_APP, JXApp::sharedInstance().getJsonObject());
  context.set(JX_EVENTTIMESTAMP,
              JXJsonValue::numberFromText(JXPredefinedVariables::sharedInstance().getData(
                  kJXPredefinedVariable_CurrentCallMs)));
  const JXJsonText json = JXJsonWriter::write(body, JXJsonStyle::Pretty);
  if (json.leftOut != 0) {
    JXLogger::sharedInstance().logMessage_withLevel(
        "An event was sent without values that are endless or too large", 3);
  }
  return json.text;
}

}  // namespace jx
