// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import JXServerSide
import UIKit

@main
final class AppDelegate: UIResponder, UIApplicationDelegate {
  var window: UIWindow?

  func application(
    _ application: UIApplication,
    didFinishLaunchingWithOptions options: [UIApplication.LaunchOptionsKey: Any]?
  ) -> Bool {
    // Created once, on the main thread, and kept by the screen.
    let serverSide = ServerSide(siteID: 1, sourceKey: "source-key")
    let window = UIWindow(frame: UIScreen.main.bounds)
    window.rootViewController = FilmViewController(serverSide: serverSide)
    window.makeKeyAndVisible()
    self.window = window
    return true
  }
}
