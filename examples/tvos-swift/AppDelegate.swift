// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import AppTrackingTransparency
import JXServerSide
import UIKit

@main
final class AppDelegate: UIResponder, UIApplicationDelegate {
  var window: UIWindow?
  private var serverSide: ServerSide?

  func application(
    _ application: UIApplication,
    didFinishLaunchingWithOptions options: [UIApplication.LaunchOptionsKey: Any]?
  ) -> Bool {
    // Created once, on the main thread. It sends nothing before the viewer consents.
    let serverSide = ServerSide(
      siteID: 1, sourceKey: "source-key", defaultBehaviour: .disabledByDefault)
    self.serverSide = serverSide
    let window = UIWindow(frame: UIScreen.main.bounds)
    window.rootViewController = FilmViewController(serverSide: serverSide)
    window.makeKeyAndVisible()
    self.window = window
    return true
  }

  // The system shows the tracking prompt only while the application is active, and only once.
  func applicationDidBecomeActive(_ application: UIApplication) {
    let serverSide = self.serverSide
    if #available(tvOS 14, *) {
      ATTrackingManager.requestTrackingAuthorization { _ in
        DispatchQueue.main.async { serverSide?.addAdvertisingIDs() }
      }
    } else {
      serverSide?.addAdvertisingIDs()
    }
  }
}
