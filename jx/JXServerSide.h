// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

/// Includes the complete C++ API for applications.

#include "jx/JXVersion.h"
#include "jx/context/JXApp.h"
#include "jx/context/JXDevice.h"
#include "jx/context/JXLifecycle.h"
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
#include "jx/events/JXEventPropertiesNames.h"
#include "jx/events/JXItem.h"
#include "jx/events/JXProduct.h"
#include "jx/events/ecommerce/JXPaymentMethods.h"
#include "jx/events/ecommerce/JXPurchaseStatuses.h"
#include "jx/events/video/JXAdTypes.h"
#include "jx/events/video/JXVideoModes.h"
#include "jx/facade/ServerSide.h"
#include "jx/variables/JXPersistedKeys.h"
#include "jx/variables/JXPredefinedVariableNames.h"
#include "jx/variables/JXPredefinedVariables.h"
#include "jx/variables/JXServerSideVersion.h"
