// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/platform/apple/JXFoundationString.h"

#import "jx/platform/apple/JXOwnership.h"

namespace jx {

JXString stringOf(id object) {
  if (![object isKindOfClass:[NSString class]]) return nullptr;
  // UTF8String would end at the first NUL.
  NSData* const bytes = [static_cast<NSString*>(object) dataUsingEncoding:NSUTF8StringEncoding
                                                     allowLossyConversion:YES];
  return JXString(std::string_view(static_cast<const char*>([bytes bytes]), [bytes length]));
}

NSString* foundationString(const JXString& string) {
  if (!string.isPresent()) return nil;
  return JX_AUTORELEASE([[NSString alloc] initWithBytes:string.view().data()
                                                 length:string.size()
                                               encoding:NSUTF8StringEncoding]);
}

}  // namespace jx
