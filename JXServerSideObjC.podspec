# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0

Pod::Spec.new do |pod|
  pod.name = 'JXServerSideObjC'
  pod.version = '0.1.0'
  pod.summary = 'Event-collection SDK for TV applications, for Objective-C'
  pod.homepage = 'https://jxserverside.example'
  pod.license = { :type => 'Apache-2.0', :file => 'LICENSE' }
  pod.authors = 'The JXServerSide authors'
  pod.source = { :git => 'https://jxserverside.example/jxserverside.git', :tag => '0.1.0' }
  pod.platform = :tvos, '12.0'

  pod.source_files = 'jx/**/*.{h,cpp,m,mm}'
  pod.exclude_files = 'jx/platform/linux/**/*'
  pod.public_header_files = 'jx/objc/*.h'
  pod.module_map = 'jx/objc/module.modulemap'
  pod.resource_bundles = { 'JXServerSidePrivacy' => ['packaging/apple/PrivacyInfo.xcprivacy'] }
  pod.requires_arc = true
  pod.frameworks = 'Foundation', 'Network', 'UIKit'
  # The application provides libcurl in the folder tvos-libraries beside its Podfile, because tvOS
  # does not include it.
  pod.libraries = 'c++', 'curl'
  pod.user_target_xcconfig = { 'LIBRARY_SEARCH_PATHS' => '"$(PODS_ROOT)/../tvos-libraries/lib"' }
  # Several headers have the same name, so they are found by their folders only.
  pod.pod_target_xcconfig = {
    'CLANG_CXX_LANGUAGE_STANDARD' => 'c++17',
    'GCC_PREPROCESSOR_DEFINITIONS' =>
      '$(inherited) JX_COLLECTION_HOST=\"collect.jxserverside.example\"',
    'HEADER_SEARCH_PATHS' => '"$(PODS_TARGET_SRCROOT)" "$(PODS_ROOT)/../tvos-libraries/include"',
    'USE_HEADERMAP' => 'NO'
  }
end
