// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

/// Includes the complete C++ API for applications.

#include "jx/JXVersion.h"
#include "jx/catalogue/JXEventPropertiesNames.h"
#include "jx/core/JXApplication.h"
#include "jx/core/JXClassRegistry.h"
#include "jx/core/JXCoreConfiguration.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreVariables.h"
#include "jx/core/JXLogger.h"
#include "jx/core/JXNetwork.h"
#include "jx/core/JXUser.h"
#include "jx/core/transfer/JXNetworkManager.h"
#include "jx/events/JXEventClasses.h"
#include "jx/events/JXItem.h"
#include "jx/events/JXProduct.h"
#include "jx/events/ecommerce/JXPaymentMethods.h"
#include "jx/events/ecommerce/JXPurchaseStatuses.h"
#include "jx/events/video/JXAdTypes.h"
#include "jx/events/video/JXVideoModes.h"
#include "jx/facade/JXStoredData.h"
#include "jx/facade/ServerSide.h"
#include "jx/session/JXApp.h"
#include "jx/session/JXDevice.h"
#include "jx/session/JXLifecycle.h"
#include "jx/session/JXPersistedKeys.h"
#include "jx/session/JXPredefinedVariableNames.h"
#include "jx/session/JXPredefinedVariables.h"
#include "jx/session/JXServerSideVersion.h"
