// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import AVKit
import JXServerSide
import UIKit

/// One screen: a trailer that plays, and buttons to buy the film and to give or withdraw consent.
final class FilmViewController: UIViewController {
  private static let consentKey = "ViewerConsents"
  private static let trailer = "https://media.example/trailer.m3u8"

  private let serverSide: ServerSide
  private let shop: ShopReporter
  private let player = AVPlayer()
  private let consentButton = UIButton(type: .system)
  private var playback: PlaybackReporter?

  init(serverSide: ServerSide) {
    let film = JXProduct(productId: "4711", name: "A film", price: Decimal(string: "4.99"))
    film.currency = "EUR"
    self.serverSide = serverSide
    shop = ShopReporter(serverSide: serverSide, film: film)
    super.init(nibName: nil, bundle: nil)
  }

  @available(*, unavailable)
  required init?(coder: NSCoder) {
    return nil
  }

  override func viewDidLoad() {
    super.viewDidLoad()
    addPlayer()
    add(UIButton(type: .system), title: "Add to cart", x: 80, action: #selector(addToCart))
    add(UIButton(type: .system), title: "Buy", x: 680, action: #selector(buy))
    add(consentButton, title: nil, x: 1280, action: #selector(changeConsent))
    // The library does not store the viewer's answer for the next start of the application.
    setConsent(UserDefaults.standard.bool(forKey: Self.consentKey))
  }

  override func viewDidAppear(_ animated: Bool) {
    super.viewDidAppear(animated)
    guard let url = URL(string: Self.trailer) else { return }
    playback = PlaybackReporter(player: player, serverSide: serverSide)
    openTrailer()
    player.replaceCurrentItem(with: AVPlayerItem(url: url))
    player.play()
  }

  override func viewDidDisappear(_ animated: Bool) {
    super.viewDidDisappear(animated)
    playback?.stop()
    playback = nil
    player.pause()
  }

  private func addPlayer() {
    let controller = AVPlayerViewController()
    controller.player = player
    addChild(controller)
    controller.view.frame = CGRect(x: 0, y: 0, width: view.bounds.width, height: 800)
    view.addSubview(controller.view)
    controller.didMove(toParent: self)
  }

  private func add(_ button: UIButton, title: String?, x: CGFloat, action: Selector) {
    button.setTitle(title, for: .normal)
    button.frame = CGRect(x: x, y: 860, width: 560, height: 100)
    button.addTarget(self, action: action, for: .primaryActionTriggered)
    view.addSubview(button)
  }

  private func openTrailer() {
    playback?.open("trailer-4711", title: "A film: trailer")
  }

  @objc private func addToCart() {
    shop.addToCart()
  }

  @objc private func buy() {
    shop.buy(orderID: UUID().uuidString)
  }

  @objc private func changeConsent() {
    setConsent(serverSide.serverSideState != .enabled)
  }

  private func setConsent(_ consents: Bool) {
    UserDefaults.standard.set(consents, forKey: Self.consentKey)
    if consents {
      // The events of the video session so far were not sent: begin another.
      openTrailer()
      shop.giveConsent()
    } else {
      shop.withdrawConsent()
    }
    consentButton.setTitle(consents ? "Stop statistics" : "Allow statistics", for: .normal)
  }
}
