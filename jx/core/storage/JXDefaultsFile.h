// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <unordered_set>

#include "jx/core/storage/JXDefaultsRecord.h"
#include "jx/core/storage/JXJournal.h"
#include "jx/core/storage/JXStorageReport.h"
#include "jx/platform/JXPlatform.h"

namespace jx {

/// User defaults in one journal file, for systems that have no store of their own.
///
/// A value set is in the kernel's hands when the setter returns, so a killed process keeps it; the
/// disk has it after the next `maintain`. While the file cannot be opened or written, values live
/// in memory and are written as soon as it can. Several processes may use one file: each sees what
/// was there when it opened the file and what it set itself, and the last value set stays.
/// Thread-safe.
class JXDefaultsFile final : public JXPlatformDefaults {
 public:
  /// Opens the file, making it and its folder when they are missing.
  explicit JXDefaultsFile(std::string path);
  ~JXDefaultsFile() override;
  JXDefaultsFile(const JXDefaultsFile&) = delete;
  JXDefaultsFile& operator=(const JXDefaultsFile&) = delete;

  JXString objectForKey(const JXString& key) override;
  /// One write; none when the entry has this value already. An absent key is ignored.
  void setObject_forKey(const JXString& value, const JXString& key) override;
  /// Returns at once: waiting for the disk is the business of `maintain`.
  void synchronize() override {}
  void beginChanges() override;
  /// One write for all that this thread has set since.
  void endChanges() override;

  /// Makes what was set durable, writes what could not be written before, and rewrites the file
  /// when most of it is old. To be called within a second after a change, on the transfer thread:
  /// it waits for the disk, and keeps no other thread waiting meanwhile.
  void maintain();
  /// True when `maintain` has something to do.
  bool needsMaintenance() const;
  /// True when a value that is set now survives the process.
  bool isAvailable() const;
  /// Reads, writes and syncs that failed since the file was opened.
  std::uint64_t storageErrors() const;
  /// How often a damaged part of the file was set aside.
  std::uint64_t damaged() const;

 private:
  class Locked;

  void ensureOpen();
  bool openOnce();
  bool readContent(JXJournal& journal, JXJournal::Writers writers, JXDefaultsMap& content);
  void adoptContent(const JXDefaultsMap& inFile, bool fileIsWhole);
  void readWithoutLock();
  JXString valueOf(const JXString& key) const;
  bool write(const JXString& key);
  void writeUnsaved();
  void syncChanges();
  bool needsCompaction() const;
  bool rewrite();
  bool beginRewrite(JXDefaultsMap& content);
  bool replaceFile(std::shared_ptr<JXJournal> fresh, const std::string& path);
  void downgradeToSharedLock();

  const std::string path_;
  std::mutex maintenance_;  ///< one `maintain` at a time; taken before `mutex_`
  mutable std::mutex mutex_;
  JXStorageReport report_;
  std::shared_ptr<JXJournal> journal_;  ///< null while the file cannot be opened
  JXDefaultsMap values_;
  std::unordered_set<JXString> unsaved_;  ///< keys whose last change is in memory only
  std::unordered_set<JXString> changed_;  ///< keys set since the running rewrite began
  std::thread::id changing_;              ///< the thread between `beginChanges` and `endChanges`
  bool rewriting_ = false;
  bool dirty_ = false;
  bool folderDirty_ = false;
  bool damaged_ = false;  ///< the file holds damage that a rewrite would clear
};

}  // namespace jx
