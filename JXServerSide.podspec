# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0

Pod::Spec.new do |pod|
  pod.name = 'JXServerSide'
  pod.version = '0.1.0'
  pod.summary = 'Event-collection SDK for TV applications, for Swift'
  pod.homepage = 'https://jxserverside.example'
  pod.license = { :type => 'Apache-2.0', :file => 'LICENSE' }
  pod.authors = 'The JXServerSide authors'
  pod.source = { :git => 'https://jxserverside.example/jxserverside.git', :tag => '0.1.0' }
  pod.platform = :tvos, '12.0'
  pod.swift_versions = ['5.5']

  pod.source_files = 'swift/JXServerSide/*.swift'
  pod.dependency 'JXServerSideObjC', '0.1.0'
end
