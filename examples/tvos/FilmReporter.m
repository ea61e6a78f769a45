// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "FilmReporter.h"

#include <math.h>

// Compiles with and without automatic reference counting.
#if __has_feature(objc_arc)
#define RETAIN_FILM(object) (object)
#define RELEASE_FILM(object) ((void)(object))
#else
#define RETAIN_FILM(object) [(object) retain]
#define RELEASE_FILM(object) [(object) release]
#endif

static NSDecimalNumber* decimal(double seconds) {
  if (!isfinite(seconds)) return [NSDecimalNumber zero];
  // Milliseconds: the difference between two players is larger.
  const long long milliseconds = llround(fabs(seconds) * 1000);
  return [NSDecimalNumber decimalNumberWithMantissa:(unsigned long long)milliseconds
                                           exponent:-3
                                         isNegative:seconds < 0];
}

@implementation FilmReporter

- (instancetype)initWithServerSide:(ServerSide*)serverSide {
  self = [super init];
  if (self != nil) _serverSide = RETAIN_FILM(serverSide);
  return self;
}

#if !__has_feature(objc_arc)
- (void)dealloc {
  [_serverSide release];
  [_session release];
  [_assetID release];
  [_title release];
  [super dealloc];
}
#endif

- (void)openFilm:(NSString*)assetID title:(NSString*)title {
  [self leave];
  RELEASE_FILM(_assetID);
  RELEASE_FILM(_title);
  _assetID = [assetID copy];
  _title = [title copy];
  _length = _position = 0;
  _isWaiting = NO;
  _isOver = NO;
}

- (void)setLength:(double)seconds {
  _length = isfinite(seconds) && seconds > 0 ? seconds : 0;
}

- (void)moveTo:(double)seconds {
  // The player still shows the film after its end: at the position that was read last, or after it.
  if (_isOver && seconds > _position - 1) return;
  _isOver = NO;
  const double before = _position;
  _position = seconds;
  if (_isPlaying) {
    [self passQuartersFrom:before];
  } else if (_assetID != nil) {
    [self begin];
  }
}

- (void)begin {
  _isPlaying = YES;
  _quarters = 0;
  [self beginSession];
  [self sendPlayback:EJXVideoPlaybackMode_START];
  [self sendContent:EJXVideoContentMode_START];
  if (_isPaused) [self sendPlayback:EJXVideoPlaybackMode_PAUSE];
  if (_isWaiting) [self sendPlayback:EJXVideoPlaybackMode_BUFFER_START];
}

- (void)beginSession {
  RELEASE_FILM(_session);
  _session = RETAIN_FILM([[NSUUID UUID] UUIDString]);
}

- (void)passQuartersFrom:(double)before {
  for (NSUInteger i = 0; i < 3; ++i) {
    const double quarter = _length * (double)(i + 1) / 4;
    const NSUInteger mark = 1u << i;
    const BOOL isPassed = before < quarter && quarter <= _position;
    if (_length == 0 || !isPassed || (_quarters & mark) != 0) continue;
    _quarters |= mark;
    [self sendContent:EJXVideoContentMode_QUARTER_REACHED];
  }
}

- (void)setPaused:(BOOL)isPaused {
  if (isPaused == _isPaused) return;
  _isPaused = isPaused;
  if (!_isPlaying) return;
  [self sendPlayback:isPaused ? EJXVideoPlaybackMode_PAUSE : EJXVideoPlaybackMode_RESUME];
}

- (void)setWaiting:(BOOL)isWaiting {
  if (isWaiting == _isWaiting) return;
  _isWaiting = isWaiting;
  if (!_isPlaying) return;
  [self sendPlayback:isWaiting ? EJXVideoPlaybackMode_BUFFER_START
                               : EJXVideoPlaybackMode_BUFFER_COMPLETE];
}

- (void)seekFrom:(double)from to:(double)to {
  if (!_isPlaying) return;
  _position = from;
  JXVideoPlaybackEvent* event = [self playback:EJXVideoPlaybackMode_SEEK_START];
  event.seekPosition = decimal(to);
  [_serverSide execute:event];
  _position = to;
  event = [self playback:EJXVideoPlaybackMode_SEEK_COMPLETE];
  event.seekPosition = decimal(to);
  [_serverSide execute:event];
}

- (void)finish {
  if (!_isPlaying) return;
  [self sendContent:EJXVideoContentMode_COMPLETE];
  [self sendPlayback:EJXVideoPlaybackMode_COMPLETE];
  _isPlaying = NO;
  _isOver = YES;
}

- (void)failWithReason:(NSString*)reason {
  if (!_isPlaying) [self beginSession];
  JXVideoPlaybackEvent* const event = [self playback:EJXVideoPlaybackMode_ERROR];
  event.interruptionMethod = @"error";
  [event addAdditionalParameter:@"error" withValue:reason];
  [_serverSide execute:event];
  _isPlaying = NO;
  _isOver = YES;
}

// Leaving is reported as a pause without a later resume.
- (void)leave {
  if (_isPlaying && !_isPaused) {
    JXVideoPlaybackEvent* const event = [self playback:EJXVideoPlaybackMode_PAUSE];
    event.interruptionMethod = @"quit";
    [_serverSide execute:event];
  }
  _isPlaying = NO;
}

- (void)sendPlayback:(EJXVideoPlaybackMode)mode {
  [_serverSide execute:[self playback:mode]];
}

- (JXVideoPlaybackEvent*)playback:(EJXVideoPlaybackMode)mode {
  JXVideoPlaybackEvent* const event = [[JXVideoPlaybackEvent alloc] initWithMode:mode
                                                                    andSessionId:_session];
  [self describe:event];
  if (_assetID != nil) [event.contentAssetID addObject:_assetID];
  event.fullScreen = YES;  // as television applications show films
  event.livestream = _length == 0;
#if !__has_feature(objc_arc)
  [event autorelease];
#endif
  return event;
}

- (void)sendContent:(EJXVideoContentMode)mode {
  JXVideoContentEvent* const event = [[JXVideoContentEvent alloc] initWithMode:mode
                                                                  andSessionId:_session];
  [self describe:event];
  event.contentAssetID = _assetID;
  event.livestream = _length == 0;
  [_serverSide execute:event];
  RELEASE_FILM(event);
}

- (void)describe:(JXVideoEvent*)event {
  event.cursorPosition = decimal(_position);
  event.totalLength = decimal(_length);
  event.videoTitle = _title != nil ? _title : _assetID;
}

@end
