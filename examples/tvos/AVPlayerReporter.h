// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import <AVFoundation/AVFoundation.h>

#import "FilmReporter.h"

NS_ASSUME_NONNULL_BEGIN

/// Follows an AVPlayer and sends its video events. Keep it as long as the player; use it on the
/// main thread.
@interface AVPlayerReporter : NSObject {
 @private
  AVPlayer* _player;
  FilmReporter* _films;
  NSTimer* _timer;
  double _lastPosition;
  BOOL _isFailureReported;
}

/// Retains both.
- (instancetype)initWithPlayer:(AVPlayer*)player serverSide:(ServerSide*)serverSide;
/// Call it when the player gets another item: its ID in your catalogue, and its title.
- (void)openFilm:(NSString*)assetID title:(nullable NSString*)title;
/// Call it when the viewer leaves the player. Afterwards the player is not followed any more.
- (void)stop;

@end

NS_ASSUME_NONNULL_END
