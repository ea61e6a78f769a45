// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXDevice.h"

#import "jx/objc/internal/JXBlockFields.h"
#include "jx/session/JXDevice.h"

using Core = jx::JXDevice;
using namespace jx::objc;

@implementation JXDevice

+ (std::shared_ptr<jx::JXAdditionalProperties>)jx_newCore {
  return unowned(Core::sharedInstance());
}

+ (JXDevice*)sharedInstance {
  static JXDevice* const instance = [[JXDevice alloc] init];
  return instance;
}

- (NSMutableDictionary*)getJsonObject {
  return toFoundation(coreOf<Core>(self).getJsonObject());
}

- (instancetype)reinit {
  coreOf<Core>(self).reinit();
  return self;
}

- (void)setAdvertisingIds {
  coreOf<Core>(self).setAdvertisingIds();
}

- (void)refreshContent {
  coreOf<Core>(self).refreshContent();
}

- (JXAdditionalProperties*)getOsProperties {
  return propertiesOf(coreOf<Core>(self).getOsProperties());
}

- (JXAdditionalProperties*)getScreenProperties {
  return propertiesOf(coreOf<Core>(self).getScreenProperties());
}

- (JXAdditionalProperties*)osProperties {
  return [self getOsProperties];
}

- (JXAdditionalProperties*)screenProperties {
  return [self getScreenProperties];
}

JX_STRING_FIELD(JXDevice, adTrackingEnabled, setAdTrackingEnabled)
JX_STRING_FIELD(JXDevice, user_agent, setUser_agent)
JX_STRING_FIELD(JXDevice, IDFA, setIDFA)
JX_STRING_FIELD(JXDevice, IDFV, setIDFV)
JX_STRING_FIELD(JXDevice, sdkID, setSdkID)
JX_STRING_FIELD(JXDevice, language, setLanguage)
JX_STRING_FIELD(JXDevice, region, setRegion)
JX_STRING_FIELD(JXDevice, manufacturer, setManufacturer)
JX_STRING_FIELD(JXDevice, model, setModel)
JX_STRING_FIELD(JXDevice, name, setName)
JX_STRING_FIELD(JXDevice, type, setType)
JX_STRING_FIELD(JXDevice, osName, setOsName)
JX_STRING_FIELD(JXDevice, osVersion, setOsVersion)
JX_NUMBER_FIELD(JXDevice, screenWidth, setScreenWidth)
JX_NUMBER_FIELD(JXDevice, screenHeight, setScreenHeight)
JX_STRING_FIELD(JXDevice, timezone, setTimezone)

@end
