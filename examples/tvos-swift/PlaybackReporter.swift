// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import AVFoundation
import JXServerSide

/// Follows an AVPlayer and sends its video events. Keep it as long as the player; use it on the
/// main thread.
final class PlaybackReporter {
  /// How often the position is read, and from which difference it was moved by the viewer.
  private static let interval = 1.0
  private static let jump = 3.0

  private let player: AVPlayer
  private let films: FilmReporter
  private var statusObservation: NSKeyValueObservation?
  private var itemObservations: [NSObjectProtocol] = []
  private var timer: Timer?
  private var lastPosition = 0.0
  private var isFailureReported = false

  init(player: AVPlayer, serverSide: ServerSide) {
    self.player = player
    films = FilmReporter(serverSide: serverSide)
    statusObservation = player.observe(\.timeControlStatus) { [weak self] player, _ in
      self?.films.setWaiting(player.timeControlStatus == .waitingToPlayAtSpecifiedRate)
      self?.films.setPaused(player.timeControlStatus == .paused)
    }
    observe(.AVPlayerItemDidPlayToEndTime) { [weak self] _ in self?.films.finish() }
    observe(.AVPlayerItemFailedToPlayToEndTime) { [weak self] notification in
      let error = notification.userInfo?[AVPlayerItemFailedToPlayToEndTimeErrorKey]
      self?.reportFailure(error as? Error)
    }
    timer = Timer.scheduledTimer(withTimeInterval: Self.interval, repeats: true) {
      [weak self] _ in self?.readPosition()
    }
  }

  deinit {
    stop()
  }

  /// Call it when the player gets another item: its ID in your catalogue, and its title.
  func open(_ assetID: String, title: String?) {
    films.open(assetID, title: title)
    lastPosition = 0
    isFailureReported = false
  }

  /// Call it when the viewer leaves the player. Afterwards the player is not followed any more.
  func stop() {
    guard let timer = timer else { return }
    timer.invalidate()
    self.timer = nil
    statusObservation = nil
    itemObservations.forEach { NotificationCenter.default.removeObserver($0) }
    itemObservations = []
    films.leave()
  }

  /// Calls `action` for the notifications of the item that the player shows.
  private func observe(_ name: Notification.Name, action: @escaping (Notification) -> Void) {
    itemObservations.append(
      NotificationCenter.default.addObserver(forName: name, object: nil, queue: .main) {
        [weak self] notification in
        guard let self = self, notification.object as? AVPlayerItem === self.player.currentItem
        else { return }
        action(notification)
      })
  }

  private func readPosition() {
    guard let item = player.currentItem else { return }
    // An item that cannot be opened posts no notification.
    if item.status == .failed { reportFailure(item.error) }
    let position = player.currentTime().seconds
    guard item.status == .readyToPlay, position.isFinite else { return }
    // Indefinite for a live stream.
    films.setLength(item.duration.seconds)
    let expected = lastPosition + (player.rate > 0 ? Self.interval * Double(player.rate) : 0)
    if abs(position - expected) > Self.jump { films.seek(from: lastPosition, to: position) }
    lastPosition = position
    films.move(to: position)
  }

  private func reportFailure(_ error: Error?) {
    if isFailureReported { return }
    isFailureReported = true
    films.fail(reason: error?.localizedDescription)
  }
}
