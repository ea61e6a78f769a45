// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/platform/apple/JXFoundationString.h"

namespace jx {

JXString textOf(id object) {
  if (![object isKindOfClass:[NSString class]]) return nullptr;
  // Not UTF8String, which ends at the first NUL.
  NSData* const bytes = [static_cast<NSString*>(object) dataUsingEncoding:NSUTF8StringEncoding
                                                     allowLossyConversion:YES];
  return JXString(std::string_view(static_cast<const char*>([bytes bytes]), [bytes length]));
}

NSString* foundationString(const JXString& text) {
  if (!text.isPresent()) return nil;
  return [[[NSString alloc] initWithBytes:text.view().data()
                                   length:text.size()
                                 encoding:NSUTF8StringEncoding] autorelease];
}

}  // namespace jx
