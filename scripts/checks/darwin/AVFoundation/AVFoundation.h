// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// tvOS's AVFoundation, as far as the examples use it.
#pragma once

#import <CoreMedia/CoreMedia.h>
#import <Foundation/Foundation.h>

NS_ASSUME_NONNULL_BEGIN

typedef NS_ENUM(NSInteger, AVPlayerItemStatus) {
  AVPlayerItemStatusUnknown = 0,
  AVPlayerItemStatusReadyToPlay = 1,
  AVPlayerItemStatusFailed = 2
};
typedef NS_ENUM(NSInteger, AVPlayerTimeControlStatus) {
  AVPlayerTimeControlStatusPaused = 0,
  AVPlayerTimeControlStatusWaitingToPlayAtSpecifiedRate = 1,
  AVPlayerTimeControlStatusPlaying = 2
};

FOUNDATION_EXPORT NSNotificationName const AVPlayerItemDidPlayToEndTimeNotification;
FOUNDATION_EXPORT NSNotificationName const AVPlayerItemFailedToPlayToEndTimeNotification;
FOUNDATION_EXPORT NSString* const AVPlayerItemFailedToPlayToEndTimeErrorKey;

@interface AVPlayerItem : NSObject <NSCopying>
@property(nonatomic, readonly) AVPlayerItemStatus status;
@property(nonatomic, readonly, nullable) NSError* error;
@property(nonatomic, readonly) CMTime duration;
+ (instancetype)playerItemWithURL:(NSURL*)url;
@end

@interface AVPlayer : NSObject
@property(nonatomic, readonly, nullable) AVPlayerItem* currentItem;
@property(nonatomic, readonly) AVPlayerTimeControlStatus timeControlStatus;
@property(nonatomic) float rate;
- (void)play;
- (void)pause;
- (CMTime)currentTime;
- (void)replaceCurrentItemWithPlayerItem:(nullable AVPlayerItem*)item;
@end

NS_ASSUME_NONNULL_END
