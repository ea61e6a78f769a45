// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXUtils.h"

#include <optional>

#include "jx/core/JXUtils.h"
#import "jx/objc/internal/JXConversion.h"
#import "jx/objc/internal/JXOwnership.h"

using Core = jx::JXUtils;
using namespace jx::objc;

static constexpr char kPlace[] = "JXUtils";

static void setObject(id value, NSString* key, NSMutableDictionary* dict) {
  if (value == nil || !isOf([NSString class], key, kPlace)) return;
  if (isOf([NSMutableDictionary class], dict, kPlace)) [dict setObject:value forKey:key];
}

@implementation JXUtils

- (instancetype)init {
  return [super init];
}

+ (void)setString:(NSString*)value forKey:(NSString*)key onDict:(NSMutableDictionary*)dict {
  if (isOf([NSString class], value, kPlace)) setObject(JX_AUTORELEASE([value copy]), key, dict);
}

+ (void)setFloat:(NSNumber*)value forKey:(NSString*)key onDict:(NSMutableDictionary*)dict {
  const std::optional<jx::JXDecimal> number = toDecimal(value, kPlace);
  if (number && !number->isNaN()) setObject(toFoundation(number), key, dict);
}

+ (void)setFloatFromString:(NSString*)value
                    forKey:(NSString*)key
                    onDict:(NSMutableDictionary*)dict {
  jx::JXJsonObject number;
  Core::setFloatFromString_forKey_onDict(toString(value, kPlace), "number", number);
  setObject(toFoundation(number.get("number")), key, dict);
}

+ (void)setBool:(BOOL)value forKey:(NSString*)key onDict:(NSMutableDictionary*)dict {
  setObject([NSNumber numberWithBool:value], key, dict);
}

+ (void)setArray:(NSArray*)value forKey:(NSString*)key onDict:(NSMutableDictionary*)dict {
  if (isOf([NSArray class], value, kPlace)) setObject(value, key, dict);
}

+ (void)setJson:(NSDictionary*)value forKey:(NSString*)key onDict:(NSMutableDictionary*)dict {
  if (isOf([NSDictionary class], value, kPlace)) setObject(value, key, dict);
}

+ (int64_t)numberFromNSString:(NSString*)string {
  return Core::numberFromNSString(toString(string, kPlace));
}

+ (NSString*)jsonDictionaryToString:(NSDictionary*)dictionary {
  return toFoundation(Core::jsonDictionaryToString(toJsonObject(dictionary, kPlace)));
}

@end
