// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <unordered_map>
#include <unordered_set>

#include "jx/core/storage/JXErasures.h"
#include "jx/core/storage/JXJournal.h"
#include "jx/core/storage/JXPathWatch.h"
#include "jx/core/storage/JXStorageReport.h"
#include "jx/platform/JXPlatform.h"
#include "jx/platform/JXString.h"

namespace jx {

using JXDefaultsMap = std::unordered_map<JXString, JXString>;

/// Stores user defaults in one journal file, for systems without a user defaults store.
///
/// A value has been written to the file when the setter returns, so it survives a killed process.
/// The next `maintain` call makes it durable (fsync). While the file cannot be opened or written,
/// values are kept in memory and written as soon as possible. Several processes may use one file:
/// each sees the values present when it opened the file and the values it set. The last value set
/// wins. After an erase, by this or another process, there are no values. Thread-safe.
class JXDefaultsFile final : public JXPlatformDefaults {
 public:
  /// Opens the file; creates it and its folder if they are missing. `erasures` reports when the
  /// folder is erased; null if it never is. `watch` reports whether the file may have been moved;
  /// without it, each change compares the path.
  explicit JXDefaultsFile(std::string path, std::shared_ptr<JXErasures> erasures = nullptr,
                          std::shared_ptr<JXPathWatch> watch = nullptr);
  ~JXDefaultsFile() override;
  JXDefaultsFile(const JXDefaultsFile&) = delete;
  JXDefaultsFile& operator=(const JXDefaultsFile&) = delete;

  JXString objectForKey(const JXString& key) override;
  /// Sets or, when `value` is null, removes an entry with one write. Writes nothing when the entry
  /// already has this value. A null key is ignored.
  void setObject_forKey(const JXString& value, const JXString& key) override;
  /// Returns immediately: `maintain` makes values durable.
  void synchronize() override {}
  void beginChanges() override;
  /// Writes all values that this thread has set since `beginChanges` with one write.
  void endChanges() override;

  /// Makes changed values durable, retries failed writes, and compacts the file when most of it is
  /// obsolete. Call it on the transfer thread within a second after a change. It blocks on disk
  /// I/O without blocking other threads.
  void maintain();
  /// Returns true when `maintain` has work to do.
  bool needsMaintenance() const;
  /// Returns true when a value that is set now survives the process.
  bool isAvailable() const;
  /// Returns the number of failed reads, writes and syncs since the file was opened.
  std::uint64_t storageErrors() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return report_.failures();
  }
  /// Returns how many times damaged data of the file was quarantined.
  std::uint64_t damaged() const;

  /// Forgets the values that were set before the last erase. The other operations do the same
  /// first; this one also closes the deleted file.
  void applyErasures();

 private:
  bool dropErased();
  bool noticesErasure();
  bool isOpenAtPath() {
    return journal_ &&
           seenAtPath_.confirm(watch_.get(), [this] { return journal_->file().isAt(path_); });
  }
  void ensureOpen();
  bool openOnce();
  bool readContent(JXJournal& journal, JXJournal::Writers writers, JXDefaultsMap& content);
  void adoptContent(const JXDefaultsMap& inFile, bool fileIsWhole);
  void readWithoutLock();
  JXString valueOf(const JXString& key) const;
  bool writeFrames(std::string_view frames);
  void writeUnsaved();
  void syncChanges();
  void compact();
  bool needsCompaction() const;
  bool rewrite();
  bool beginRewrite(JXDefaultsMap& content);
  bool finishRewrite(std::shared_ptr<JXJournal> fresh, const std::string& path, int error);
  void downgradeToSharedLock();

  const std::string path_;
  const std::shared_ptr<JXErasures> erasures_;
  const std::shared_ptr<JXPathWatch> watch_;  ///< null: none
  JXSeenAtPath seenAtPath_;
  std::uint64_t seenErasures_ = 0;  ///< the count at which the values were read or set
  std::mutex maintenance_;          ///< serialises `maintain`; locked before `mutex_`
  mutable std::mutex mutex_;
  JXStorageReport report_;
  std::shared_ptr<JXJournal> journal_;  ///< null while the file cannot be opened
  JXDefaultsMap values_;
  std::unordered_set<JXString> unsaved_;  ///< keys whose last change is in memory only
  std::unordered_set<JXString> changed_;  ///< keys set since the current rewrite began
  std::thread::id changing_;              ///< the thread between `beginChanges` and `endChanges`
  bool rewriting_ = false;
  bool dirty_ = false;
  bool folderDirty_ = false;
  bool damaged_ = false;  ///< the file contains damaged data that a rewrite would remove
};

}  // namespace jx
