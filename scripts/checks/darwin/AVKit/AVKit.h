// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// tvOS's AVKit, as far as the examples use it.
#pragma once

#import <AVFoundation/AVFoundation.h>
#import <UIKit/UIKit.h>

@interface AVPlayerViewController : UIViewController
@property(nonatomic, strong, nullable) AVPlayer* player;
@end
