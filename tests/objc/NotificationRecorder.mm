// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "tests/objc/NotificationTest.h"

@implementation NotificationRecorder
- (id)init {
  self = [super init];
  if (self != nil) _received = [[NSMutableArray alloc] init];
  return self;
}
- (void)dealloc {
  [[NSNotificationCenter defaultCenter] removeObserver:self];
  [_received release];
  [super dealloc];
}
- (void)observe:(NSString*)name on:(NSNotificationCenter*)center {
  [center addObserver:self selector:@selector(onNotificationReceived:) name:name object:nil];
}
- (NSUInteger)count:(NSString*)name {
  NSUInteger count = 0;
  for (NSNotification* notification in _received)
    count += [[notification name] isEqualToString:name] ? 1 : 0;
  return count;
}
- (void)onNotificationReceived:(NSNotification*)notification {
  [_received addObject:notification];
  NSString* const next = _nextName;
  _nextName = nil;
  if (next != nil) {
    [[NSNotificationCenter defaultCenter] postNotificationName:next object:nil];
  }
  if (_raises) [NSException raise:NSGenericException format:@"not ready"];
}
- (JXEventListener*)listenerDelegate {
  return nil;
}
@end
