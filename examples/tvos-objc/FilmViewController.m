// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "FilmViewController.h"

#import <AVKit/AVKit.h>

#import "AVPlayerReporter.h"

static NSString* const kConsentKey = @"ViewerConsents";
static NSString* const kTrailerURL = @"https://media.example/trailer.m3u8";

@implementation FilmViewController {
  ServerSide* _serverSide;
  ShopReporter* _shop;
  AVPlayer* _player;
  AVPlayerReporter* _playerReporter;
  UIButton* _consentButton;
}

- (instancetype)initWithServerSide:(ServerSide*)serverSide {
  self = [super initWithNibName:nil bundle:nil];
  if (self == nil) return nil;
  _serverSide = serverSide;
  JXProduct* const film =
      [[JXProduct alloc] initWithProductId:@"4711"
                                  withName:@"A film"
                                 withPrice:[NSDecimalNumber decimalNumberWithString:@"4.99"]];
  film.currency = @"EUR";
  _shop = [[ShopReporter alloc] initWithServerSide:serverSide film:film];
  _player = [[AVPlayer alloc] init];
  return self;
}

- (void)viewDidLoad {
  [super viewDidLoad];
  [self addPlayer];
  [self addButton:@"Add to cart" at:80 action:@selector(addToCart)];
  [self addButton:@"Buy" at:680 action:@selector(buy)];
  _consentButton = [self addButton:nil at:1280 action:@selector(changeConsent)];
  // The library does not store the viewer's answer for the next start of the application.
  [self setConsent:[[NSUserDefaults standardUserDefaults] boolForKey:kConsentKey]];
}

- (void)viewDidAppear:(BOOL)animated {
  [super viewDidAppear:animated];
  NSURL* const url = [NSURL URLWithString:kTrailerURL];
  if (url == nil) return;
  _playerReporter = [[AVPlayerReporter alloc] initWithPlayer:_player serverSide:_serverSide];
  [self openTrailer];
  [_player replaceCurrentItemWithPlayerItem:[AVPlayerItem playerItemWithURL:url]];
  [_player play];
}

- (void)viewDidDisappear:(BOOL)animated {
  [super viewDidDisappear:animated];
  [_playerReporter stop];
  _playerReporter = nil;
  [_player pause];
}

- (void)addPlayer {
  AVPlayerViewController* const controller = [[AVPlayerViewController alloc] init];
  controller.player = _player;
  [self addChildViewController:controller];
  controller.view.frame = CGRectMake(0, 0, self.view.bounds.size.width, 800);
  [self.view addSubview:controller.view];
  [controller didMoveToParentViewController:self];
}

- (UIButton*)addButton:(NSString*)title at:(CGFloat)x action:(SEL)action {
  UIButton* const button = [UIButton buttonWithType:UIButtonTypeSystem];
  [button setTitle:title forState:UIControlStateNormal];
  button.frame = CGRectMake(x, 860, 560, 100);
  [button addTarget:self action:action forControlEvents:UIControlEventPrimaryActionTriggered];
  [self.view addSubview:button];
  return button;
}

- (void)openTrailer {
  [_playerReporter openFilm:@"trailer-4711" title:@"A film: trailer"];
}

- (void)addToCart {
  [_shop addToCart];
}

- (void)buy {
  [_shop buyWithOrderID:[[NSUUID UUID] UUIDString]];
}

- (void)changeConsent {
  [self setConsent:_serverSide.serverSideState != EJXServerSideState_ENABLED];
}

- (void)setConsent:(BOOL)consents {
  [[NSUserDefaults standardUserDefaults] setBool:consents forKey:kConsentKey];
  if (consents) {
    // The events of the video session so far were not sent: begin another.
    [self openTrailer];
    [_shop giveConsent];
  } else {
    [_shop withdrawConsent];
  }
  [_consentButton setTitle:consents ? @"Stop statistics" : @"Allow statistics"
                  forState:UIControlStateNormal];
}

@end
