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
#include <utility>
#include <vector>

#include "jx/core/storage/JXDefaultsFormat.h"
#include "jx/core/storage/JXErasures.h"
#include "jx/core/storage/JXJournal.h"
#include "jx/core/storage/JXStorageReport.h"
#include "jx/core/storage/JXThrottledCheck.h"
#include "jx/platform/JXPlatform.h"
#include "jx/platform/JXString.h"

namespace jx {

/// Stores user defaults in one journal file, for systems without a user defaults store.
///
/// A value has been written to the file when the setter returns, so it survives a killed process.
/// The next `maintain` call makes it durable (fsync). While the file cannot be opened or written,
/// values are kept in memory and written as soon as possible. Several processes may use one file:
/// each sees the values present when it opened the file and the values it set. The last value set
/// wins. After an erase, by this or another process, there are no values. Thread-safe.
///
/// Values that an event changes may be stored with its request instead (JXDeferredChanges). They
/// are written to the file by the next `maintain`, and before the file with the request is deleted.
/// After a killed process, the outbox finds them in its files (`addStored`, `applyStored`).
class JXDefaultsFile final : public JXPlatformDefaults {
 public:
  /// Opens the file; creates it and its folder if they are missing. `erasures` reports when the
  /// folder is erased; null if it never is.
  explicit JXDefaultsFile(std::string path, std::shared_ptr<JXErasures> erasures = nullptr);
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
  /// Writes all values that this thread has set since `beginChanges` with one write, or leaves them
  /// to the JXDeferredChanges of this thread.
  void endChanges() override;

  /// Permits that changes are stored with requests, by an outbox that finds them at the next start.
  /// Without it, and without random numbers, JXDeferredChanges has no effect.
  void allowDeferral();
  /// Replaces `payload` with the changes that are not in the file, to be stored with a request; see
  /// JXDefaultsFormat.h. Leaves it unchanged if there are none, or if the next start would not
  /// apply them. Returns the number to be passed to `changesStored` when they are stored.
  std::uint64_t encodeChanges(std::string& payload);
  void changesStored(std::uint64_t changes);
  /// Writes the changes that are not in the file. Returns whether all of them are.
  bool saveChanges();
  /// Writes all values again if the file is not at its path any more. Between changes that follow
  /// each other closely, this is not noticed.
  void restore();
  /// Reads changes that were stored with a request. Call it before any value is read.
  void addStored(std::string_view payload);
  /// Sets the values of `addStored` that no process set later, and writes them. Repeat it if it
  /// throws std::bad_alloc.
  void applyStored();

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
    return journal_ && pathCheck_.succeeds([this] { return journal_->file().isAt(path_); });
  }
  void ensureOpen();
  bool openOnce();
  bool readContent(JXJournal& journal, JXJournal::Writers writers, JXDefaultsContent& content);
  void adoptContent(const JXDefaultsContent& inFile, bool fileIsWhole);
  void readWithoutLock();
  bool defersChanges();
  bool isSetLater(const JXString& key, std::uint64_t writer) const;
  JXString valueOf(const JXString& key) const;
  JXString completeValueOf(const JXString& key) const;
  void forgetEarlierValueOf(const JXString& key);
  void forgetWritten();
  bool writeFrames(std::string_view frames);
  bool writeUnsaved();
  void syncChanges();
  void compact();
  bool needsCompaction() const;
  bool rewrite();
  bool beginRewrite(std::string& frames);
  bool finishRewrite(std::shared_ptr<JXJournal> fresh, const std::string& path, int error);
  void downgradeToSharedLock();

  /// A value that was stored with a request.
  struct Stored {
    JXString value;
    std::uint64_t writer = 0;
    std::uint64_t sequence = 0;
  };

  const std::string path_;
  const std::shared_ptr<JXErasures> erasures_;
  JXThrottledCheck pathCheck_;
  std::uint64_t seenErasures_ = 0;  ///< the count at which the values were read or set
  std::mutex maintenance_;          ///< serialises `maintain`; locked before `mutex_`
  mutable std::mutex mutex_;
  JXStorageReport report_;
  std::shared_ptr<JXJournal> journal_;  ///< null while the file cannot be opened
  JXDefaultsContent content_;
  std::unordered_set<JXString> unsaved_;  ///< keys whose last change is in memory only
  std::unordered_set<JXString> changed_;  ///< keys set since the current rewrite began
  std::thread::id changing_;              ///< the thread between `beginChanges` and `endChanges`
  /// The keys, in `content_`, that this thread has set so far, and their values before, which are
  /// the ones to write until `endChanges`. A key may occur again, with a later value.
  std::vector<std::pair<const JXString*, JXString>> earlier_;
  std::unordered_map<JXString, Stored> stored_;  ///< by key, until `applyStored`
  std::uint64_t writer_ = 0;                     ///< random; 0: changes are not deferred
  std::uint64_t sequence_ = 0;                   ///< of the last changes stored with a request
  std::uint64_t changes_ = 0;                    ///< number of values that were set
  std::uint64_t storedChanges_ = 0;              ///< how many of them are stored with requests
  /// The file contains a checkpoint of this writer after the values that it wrote.
  bool hasCheckpoint_ = false;
  bool rewriting_ = false;
  bool dirty_ = false;
  bool folderDirty_ = false;
  bool damaged_ = false;  ///< the file contains damaged data that a rewrite would remove
};

}  // namespace jx
