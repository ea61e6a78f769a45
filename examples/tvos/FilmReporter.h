// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#if !__has_include("jx/objc/JXServerSide.h")
@import JXServerSideObjC;
#else
#import "jx/objc/JXServerSide.h"
#endif

NS_ASSUME_NONNULL_BEGIN

/// Sends the video events of a player that shows one film after another. It depends on no player:
/// AVPlayerReporter calls it for an AVPlayer. Positions and lengths are in seconds. Use it on one
/// thread.
@interface FilmReporter : NSObject {
 @private
  ServerSide* _serverSide;
  NSString* _session;
  NSString* _assetID;
  NSString* _title;
  double _length;
  double _position;
  NSUInteger _quarters;
  BOOL _isPlaying;
  BOOL _isOver;
  BOOL _isPaused;
  BOOL _isWaiting;
}

/// Sends the events with this object, which it retains.
- (instancetype)initWithServerSide:(ServerSide*)serverSide;

/// The following calls belong to this film. A film that was playing was left.
- (void)openFilm:(NSString*)assetID title:(nullable NSString*)title;
/// The length is known; 0 for a live stream.
- (void)setLength:(double)seconds;
/// The player shows this position. The first call begins the film; after its end or a failure, the
/// first call with an earlier position does.
- (void)moveTo:(double)seconds;
/// The viewer pauses or continues.
- (void)setPaused:(BOOL)isPaused;
/// The player waits for data, or has it.
- (void)setWaiting:(BOOL)isWaiting;
/// The viewer has moved the playhead.
- (void)seekFrom:(double)from to:(double)to;
/// The film has ended.
- (void)finish;
/// The film cannot be shown.
- (void)failWithReason:(nullable NSString*)reason;
/// The viewer leaves the film before its end.
- (void)leave;

@end

NS_ASSUME_NONNULL_END
