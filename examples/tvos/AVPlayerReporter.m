// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "AVPlayerReporter.h"

#include <math.h>

// How often the position is read, and from which difference it was moved by the viewer.
static const NSTimeInterval kInterval = 1;
static const double kJump = 3;

@implementation AVPlayerReporter

- (instancetype)initWithPlayer:(AVPlayer*)player serverSide:(ServerSide*)serverSide {
  self = [super init];
  if (self == nil) return nil;
#if __has_feature(objc_arc)
  _player = player;
#else
  _player = [player retain];
#endif
  _films = [[FilmReporter alloc] initWithServerSide:serverSide];
  [_player addObserver:self forKeyPath:@"timeControlStatus" options:0 context:NULL];
  NSNotificationCenter* const center = [NSNotificationCenter defaultCenter];
  [center addObserver:self
             selector:@selector(itemEnded:)
                 name:AVPlayerItemDidPlayToEndTimeNotification
               object:nil];
  [center addObserver:self
             selector:@selector(itemFailed:)
                 name:AVPlayerItemFailedToPlayToEndTimeNotification
               object:nil];
  // The run loop retains the timer, and the timer this object, until `stop`.
  _timer = [NSTimer scheduledTimerWithTimeInterval:kInterval
                                            target:self
                                          selector:@selector(readPosition)
                                          userInfo:nil
                                           repeats:YES];
  return self;
}

#if !__has_feature(objc_arc)
- (void)dealloc {
  [_player release];
  [_films release];
  [super dealloc];
}
#endif

- (void)openFilm:(NSString*)assetID title:(NSString*)title {
  [_films openFilm:assetID title:title];
  _lastPosition = 0;
  _isFailureReported = NO;
}

- (void)stop {
  if (_timer == nil) return;
  [_timer invalidate];
  _timer = nil;
  [_player removeObserver:self forKeyPath:@"timeControlStatus"];
  [[NSNotificationCenter defaultCenter] removeObserver:self];
  [_films leave];
}

- (void)readPosition {
  AVPlayerItem* const item = _player.currentItem;
  // An item that cannot be opened posts no notification.
  if (item.status == AVPlayerItemStatusFailed) [self reportFailure:item.error];
  if (item == nil || item.status != AVPlayerItemStatusReadyToPlay) return;
  const double position = CMTimeGetSeconds(_player.currentTime);
  if (!isfinite(position)) return;
  // Indefinite for a live stream.
  [_films setLength:CMTimeGetSeconds(item.duration)];
  const double expected = _lastPosition + (_player.rate > 0 ? kInterval * (double)_player.rate : 0);
  if (fabs(position - expected) > kJump) [_films seekFrom:_lastPosition to:position];
  _lastPosition = position;
  [_films moveTo:position];
}

- (void)observeValueForKeyPath:(NSString*)keyPath
                      ofObject:(id)object
                        change:(NSDictionary*)change
                       context:(void*)context {
  (void)keyPath;
  (void)object;
  (void)change;
  (void)context;
  const AVPlayerTimeControlStatus status = _player.timeControlStatus;
  [_films setWaiting:status == AVPlayerTimeControlStatusWaitingToPlayAtSpecifiedRate];
  [_films setPaused:status == AVPlayerTimeControlStatusPaused];
}

- (void)itemEnded:(NSNotification*)notification {
  if (notification.object == _player.currentItem) [_films finish];
}

- (void)itemFailed:(NSNotification*)notification {
  if (notification.object != _player.currentItem) return;
  NSDictionary* const info = notification.userInfo;
  [self reportFailure:[info objectForKey:AVPlayerItemFailedToPlayToEndTimeErrorKey]];
}

- (void)reportFailure:(NSError*)error {
  if (_isFailureReported) return;
  _isFailureReported = YES;
  [_films failWithReason:[error localizedDescription]];
}

@end
