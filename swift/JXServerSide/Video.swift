// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/video.toml by scripts/catalogue. Do not edit.
import Foundation
import JXServerSideObjC

extension JXVideoPlaybackEvent {
  /// The content assets of the playback, initially an empty list; callers may append to it. A nil
  /// list is not written.
  public var contentAssetID: [Any] {
    get { Array(__contentAssetID ?? []) }
    set { __setContentAssetID(newValue) }
  }

  /// The content pods of the playback; same rules as `contentAssetID`.
  public var contentPodID: [Any] {
    get { Array(__contentPodID ?? []) }
    set { __setContentPodID(newValue) }
  }

  /// The advertisements of the playback; same rules as `contentAssetID`.
  public var adAssetID: [Any] {
    get { Array(__adAssetID ?? []) }
    set { __setAdAssetID(newValue) }
  }

  /// The ad breaks of the playback; same rules as `contentAssetID`.
  public var adPodID: [Any] {
    get { Array(__adPodID ?? []) }
    set { __setAdPodID(newValue) }
  }

  /// The start or end position of a seek, in the unit of `cursorPosition`.
  public var seekPosition: Decimal? {
    get { __seekPosition?.decimalValue }
    set { __seekPosition = decimalNumber(newValue) }
  }

  /// The bit rate, in the unit that the application uses for all events; written unchanged.
  public var bitrate: Decimal? {
    get { __bitrate?.decimalValue }
    set { __bitrate = decimalNumber(newValue) }
  }

  /// The frame rate, in frames per second.
  public var framerate: Decimal? {
    get { __framerate?.decimalValue }
    set { __framerate = decimalNumber(newValue) }
  }

  /// The volume, on the scale that the application uses for all events.
  public var sound: Decimal? {
    get { __sound?.decimalValue }
    set { __sound = decimalNumber(newValue) }
  }
}

extension JXVideoAdEvent {
  /// The position of the advertisement in its break.
  public var podPosition: Decimal? {
    get { __podPosition?.decimalValue }
    set { __podPosition = decimalNumber(newValue) }
  }

  /// The length of the break, in the unit that the application chooses.
  public var podLength: Decimal? {
    get { __podLength?.decimalValue }
    set { __podLength = decimalNumber(newValue) }
  }

  /// The quarter of the advertisement that was reached, from 1 to 4. The range is not validated.
  public var adQuartile: Decimal? {
    get { __adQuartile?.decimalValue }
    set { __adQuartile = decimalNumber(newValue) }
  }
}

extension JXVideoContentEvent {
  /// The event's keywords, initially an empty list; callers may append to it. A nil list is not
  /// written.
  public var keywords: [Any] {
    get { Array(__keywords ?? []) }
    set { __setKeywords(newValue) }
  }

  /// The bit rate, in the unit that the application uses for all events; written unchanged.
  public var bitrate: Decimal? {
    get { __bitrate?.decimalValue }
    set { __bitrate = decimalNumber(newValue) }
  }

  /// The frame rate, in frames per second.
  public var framerate: Decimal? {
    get { __framerate?.decimalValue }
    set { __framerate = decimalNumber(newValue) }
  }
}

extension JXVideoSettingEvent {
  /// The event's keywords, initially an empty list; callers may append to it. A nil list is not
  /// written.
  public var keywords: [Any] {
    get { Array(__keywords ?? []) }
    set { __setKeywords(newValue) }
  }

  /// The bit rate, in the unit that the application uses for all events; written unchanged.
  public var bitrate: Decimal? {
    get { __bitrate?.decimalValue }
    set { __bitrate = decimalNumber(newValue) }
  }

  /// The frame rate, in frames per second.
  public var framerate: Decimal? {
    get { __framerate?.decimalValue }
    set { __framerate = decimalNumber(newValue) }
  }

  /// The volume, on the scale that the application uses for all events.
  public var sound: Decimal? {
    get { __sound?.decimalValue }
    set { __sound = decimalNumber(newValue) }
  }
}
