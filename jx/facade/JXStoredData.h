// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include "jx/platform/JXApi.h"

namespace jx {

/// The result of `JXStoredData::eraseAll`.
struct JX_API JXErasure {
  /// True if nothing is left.
  bool isComplete = false;
  /// One line for each file that could not be deleted: its path, and the reason. A line about the
  /// file "erased" means that another process that uses the folder may write its values again.
  std::vector<std::string> left;
};

/// The data that the library stores on the device.
class JX_API JXStoredData {
 public:
  JXStoredData() = delete;

  /// Erases everything that the library has stored on the device: queued events, dead letters,
  /// quarantined data, identifiers, counts and times of visits and sessions. Deletes the files of
  /// the storage folder, or removes the values from the settings store of a system that has one.
  /// Also erases what this process has in memory: events are dropped with the reason Purged, those
  /// in flight are aborted, and the advertising and vendor identifiers are removed until
  /// `ServerSide::addAdvertisingIDs` is called again.
  ///
  /// The process then continues as after a first installation: the next event has new identifiers
  /// and starts the first visit and a new session. An event that another thread is executing during
  /// the call is dropped. Another process that uses the folder drops its events before it sends one
  /// or executes the next one, and gets new identifiers too; only its requests in flight may still
  /// arrive. If the process is killed during the call, the next start completes it.
  ///
  /// Not erased are the values that the application sets: permanent data, additional properties,
  /// consent ID, configuration, and whether events are sent. The exception is a consent ID that
  /// `useLegacyUniqueIDForConsentID` has set. Files that the library has not written stay, and so
  /// does the file "erased", which contains a random number that tells other processes of the
  /// erase, and nothing about the viewer.
  ///
  /// May be called on any thread, before the first `ServerSide` is created too: it then erases the
  /// data of earlier processes in the configured folder. Blocks on disk I/O. Never throws.
  static JXErasure eraseAll();
};

}  // namespace jx
