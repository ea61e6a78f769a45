// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import Foundation
import JXServerSide

/// Sends the video events of a player that shows one film after another, like the class with this
/// name in Objective-C (examples/tvos). It depends on no player: PlaybackReporter calls it for an
/// AVPlayer. Positions and lengths are in seconds. Use it on one thread.
final class FilmReporter {
  private let serverSide: ServerSide
  private var session = ""
  private var assetID: String?
  private var title: String?
  private var length = 0.0
  private var position = 0.0
  private var reachedQuarters: Set<Int> = []
  private var isPlaying = false
  private var isOver = false
  private var isPaused = false
  private var isWaiting = false

  init(serverSide: ServerSide) {
    self.serverSide = serverSide
  }

  /// The following calls belong to this film. A film that was playing was left.
  func open(_ assetID: String, title: String?) {
    leave()
    self.assetID = assetID
    self.title = title
    length = 0
    position = 0
    isWaiting = false
    isOver = false
  }

  /// The length is known; 0 for a live stream.
  func setLength(_ seconds: Double) {
    length = seconds.isFinite && seconds > 0 ? seconds : 0
  }

  /// The player shows this position. The first call begins the film; after its end or a failure,
  /// the first call with an earlier position does.
  func move(to seconds: Double) {
    // The player still shows the film after its end: at the position that was read last, or after
    // it.
    if isOver && seconds > position - 1 { return }
    isOver = false
    let before = position
    position = seconds
    if isPlaying {
      passQuarters(from: before)
    } else if assetID != nil {
      begin()
    }
  }

  private func begin() {
    isPlaying = true
    reachedQuarters = []
    session = UUID().uuidString
    send(.start)
    send(content: .start)
    if isPaused { send(.pause) }
    if isWaiting { send(.bufferStart) }
  }

  private func passQuarters(from before: Double) {
    if length == 0 { return }
    for number in 1...3 {
      let quarter = length * Double(number) / 4
      let isPassed = before < quarter && quarter <= position
      if isPassed && reachedQuarters.insert(number).inserted { send(content: .quarterReached) }
    }
  }

  /// The viewer pauses or continues.
  func setPaused(_ isPaused: Bool) {
    if isPaused == self.isPaused { return }
    self.isPaused = isPaused
    if isPlaying { send(isPaused ? .pause : .resume) }
  }

  /// The player waits for data, or has it.
  func setWaiting(_ isWaiting: Bool) {
    if isWaiting == self.isWaiting { return }
    self.isWaiting = isWaiting
    if isPlaying { send(isWaiting ? .bufferStart : .bufferComplete) }
  }

  /// The viewer has moved the playhead.
  func seek(from: Double, to target: Double) {
    if !isPlaying { return }
    position = from
    send(.seekStart) { $0.seekPosition = decimal(target) }
    position = target
    send(.seekComplete) { $0.seekPosition = decimal(target) }
  }

  /// The film has ended.
  func finish() {
    if !isPlaying { return }
    send(content: .complete)
    send(.complete)
    isPlaying = false
    isOver = true
  }

  /// The film cannot be shown.
  func fail(reason: String?) {
    if !isPlaying { session = UUID().uuidString }
    send(.error) { event in
      event.interruptionMethod = "error"
      event.addAdditionalParameter("error", value: reason)
    }
    isPlaying = false
    isOver = true
  }

  /// The viewer leaves the film before its end. Reported as a pause without a later resume.
  func leave() {
    if isPlaying && !isPaused { send(.pause) { $0.interruptionMethod = "quit" } }
    isPlaying = false
  }

  private func send(
    _ mode: EJXVideoPlaybackMode, complete: (JXVideoPlaybackEvent) -> Void = { _ in }
  ) {
    let event = JXVideoPlaybackEvent(mode: mode, sessionId: session)
    describe(event)
    if let assetID = assetID { event.contentAssetID = [assetID] }
    event.fullScreen = true  // as television applications show films
    event.livestream = length == 0
    complete(event)
    serverSide.execute(event)
  }

  private func send(content mode: EJXVideoContentMode) {
    let event = JXVideoContentEvent(mode: mode, sessionId: session)
    describe(event)
    event.contentAssetID = assetID
    event.livestream = length == 0
    serverSide.execute(event)
  }

  private func describe(_ event: JXVideoEvent) {
    event.cursorPosition = decimal(position)
    event.totalLength = decimal(length)
    event.videoTitle = title ?? assetID
  }

  /// Rounds to milliseconds: the difference between two players is larger.
  private func decimal(_ seconds: Double) -> Decimal {
    guard seconds.isFinite else { return 0 }
    return Decimal(Int((seconds * 1000).rounded())) / 1000
  }
}
