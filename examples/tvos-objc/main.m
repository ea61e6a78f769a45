// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "AppDelegate.h"

int main(int argc, char* argv[]) {
  @autoreleasepool {
    return UIApplicationMain(argc, argv, nil, NSStringFromClass([AppDelegate class]));
  }
}
