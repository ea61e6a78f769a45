// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import AVKit
import JXServerSide
import UIKit

/// One screen: a trailer that plays, and a button that buys the film.
final class FilmViewController: UIViewController {
  private static let price = Decimal(string: "4.99")
  private static let currency = "EUR"
  private static let trailer = "https://media.example/trailer.m3u8"

  private let serverSide: ServerSide
  private let player = AVPlayer()
  private var reporter: PlaybackReporter?

  init(serverSide: ServerSide) {
    self.serverSide = serverSide
    super.init(nibName: nil, bundle: nil)
  }

  @available(*, unavailable)
  required init?(coder: NSCoder) {
    return nil
  }

  override func viewDidLoad() {
    super.viewDidLoad()
    addPlayer()
    addButton()
    let page = JXPageViewEvent(type: "film")
    page.pageName = "A film"
    serverSide.execute(page)
    let view = JXViewItem(items: [film()])
    view.currency = Self.currency
    view.revenue = Self.price
    serverSide.execute(view)
  }

  private func addPlayer() {
    let controller = AVPlayerViewController()
    controller.player = player
    addChild(controller)
    controller.view.frame = CGRect(x: 0, y: 0, width: view.bounds.width, height: 800)
    view.addSubview(controller.view)
    controller.didMove(toParent: self)
    guard let url = URL(string: Self.trailer) else { return }
    reporter = PlaybackReporter(player: player, serverSide: serverSide, assetID: "trailer-4711")
    player.replaceCurrentItem(with: AVPlayerItem(url: url))
    player.play()
  }

  private func addButton() {
    let button = UIButton(type: .system)
    button.setTitle("Buy for 4.99 EUR", for: .normal)
    button.frame = CGRect(x: 80, y: 840, width: 600, height: 100)
    button.addTarget(self, action: #selector(buy), for: .primaryActionTriggered)
    view.addSubview(button)
  }

  private func film() -> JXItem {
    let product = JXProduct(productId: "4711", name: "A film", price: Self.price)
    product.currency = Self.currency
    return JXItem(itemId: "4711", product: product, quantity: 1)
  }

  @objc private func buy() {
    let purchase = JXPurchaseEvent()
    purchase.ID = UUID().uuidString
    purchase.revenue = Self.price
    purchase.value = Self.price
    purchase.currency = Self.currency
    purchase.items = [film()]
    if let condition = purchase.firstFailedCondition() {
      print("The purchase is not valid: \(condition)")
    }
    serverSide.execute(purchase)
  }
}
