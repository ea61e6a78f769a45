// swift-tools-version:5.5
// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

import PackageDescription

// tvOS does not include libcurl. The application's developer puts libcurl, with its headers, here;
// docs/tvos.md describes it.
let libcurl = Target.binaryTarget(name: "libcurl", path: "tvos-libraries/libcurl.xcframework")

let package = Package(
  name: "JXServerSide",
  platforms: [.tvOS(.v12)],
  products: [
    .library(name: "JXServerSide", targets: ["JXServerSide"]),
    .library(name: "JXServerSideObjC", targets: ["JXServerSideObjC"]),
  ],
  targets: [
    .target(
      name: "JXServerSide",
      dependencies: ["JXServerSideObjC"],
      path: "swift/JXServerSide"),
    .target(
      name: "JXServerSideObjC",
      dependencies: ["libcurl"],
      path: ".",
      exclude: [
        "CHANGELOG.md", "CMakeLists.txt", "CMakePresets.json", "CONTRIBUTING.md",
        "JXServerSide.podspec", "JXServerSideObjC.podspec", "LICENSE", "NOTICE", "README.md",
        "SECURITY.md", "bench", "cmake", "deploy", "docs", "examples", "jx/CMakeLists.txt",
        "jx/c/module.modulemap", "jx/catalogue/base.toml", "jx/catalogue/context.toml",
        "jx/catalogue/ecommerce.toml", "jx/catalogue/engagement.toml", "jx/catalogue/keys.toml",
        "jx/catalogue/video.toml", "jx/platform/linux", "packaging/apple/data-types.toml",
        "packaging/copyright", "packaging/exports.map", "packaging/exports.txt",
        "packaging/internal-headers.txt", "packaging/jxserverside.pc.in",
        "packaging/jxserversideConfig.cmake.in", "scripts", "swift", "tests", "tools",
      ],
      sources: ["jx"],
      resources: [.process("packaging/apple/PrivacyInfo.xcprivacy")],
      publicHeadersPath: "jx/objc",
      cxxSettings: [
        .headerSearchPath("."),
        .define("JX_COLLECTION_HOST", to: "\"collect.jxserverside.example\""),
      ],
      linkerSettings: [
        .linkedFramework("Foundation"), .linkedFramework("Network"), .linkedFramework("UIKit"),
      ]),
    libcurl,
  ],
  cxxLanguageStandard: .cxx17)
