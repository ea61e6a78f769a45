// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import <UIKit/UIKit.h>

#import "ShopReporter.h"

NS_ASSUME_NONNULL_BEGIN

/// One screen: a trailer that plays, and buttons to buy the film and to give or withdraw consent.
@interface FilmViewController : UIViewController

- (instancetype)initWithServerSide:(ServerSide*)serverSide;

@end

NS_ASSUME_NONNULL_END
