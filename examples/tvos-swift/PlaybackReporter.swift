// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import AVFoundation
import JXServerSide

/// Sends the start, the pauses and the end of the film that a player shows. Use it on the main
/// thread. The example in Objective-C also sends seeks, buffering and quarters.
final class PlaybackReporter {
  private let player: AVPlayer
  private let serverSide: ServerSide
  private let assetID: String
  private let session = UUID().uuidString
  private var statusObservation: NSKeyValueObservation?
  private var endObservation: NSObjectProtocol?
  private var lastMode: EJXVideoPlaybackMode?

  init(player: AVPlayer, serverSide: ServerSide, assetID: String) {
    self.player = player
    self.serverSide = serverSide
    self.assetID = assetID
    statusObservation = player.observe(\.timeControlStatus) { [weak self] player, _ in
      self?.follow(player.timeControlStatus)
    }
    endObservation = NotificationCenter.default.addObserver(
      forName: .AVPlayerItemDidPlayToEndTime, object: nil, queue: .main
    ) { [weak self] notification in
      guard let self = self, notification.object as? AVPlayerItem === self.player.currentItem
      else { return }
      self.send(.complete)
    }
  }

  deinit {
    if let endObservation = endObservation {
      NotificationCenter.default.removeObserver(endObservation)
    }
  }

  private func follow(_ status: AVPlayer.TimeControlStatus) {
    switch status {
    case .playing where lastMode == nil || lastMode == .complete:
      send(.start)
    case .playing where lastMode == .pause:
      send(.resume)
    case .paused where lastMode == .start || lastMode == .resume:
      send(.pause)
    default:
      break
    }
  }

  private func send(_ mode: EJXVideoPlaybackMode) {
    lastMode = mode
    let event = JXVideoPlaybackEvent(mode: mode, sessionId: session)
    event.contentAssetID = [assetID]
    event.cursorPosition = seconds(player.currentTime())
    event.totalLength = player.currentItem.flatMap { seconds($0.duration) }
    serverSide.execute(event)
  }

  /// Returns the seconds, rounded to milliseconds; nil while unknown, and for the length of a live
  /// stream.
  private func seconds(_ time: CMTime) -> Decimal? {
    guard time.isNumeric else { return nil }
    return Decimal(Int((time.seconds * 1000).rounded())) / 1000
  }
}
