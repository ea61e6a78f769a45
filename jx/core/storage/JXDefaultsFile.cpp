// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXDefaultsFile.h"

#include <cerrno>
#include <utility>

#include "jx/core/storage/JXFolder.h"

namespace jx {
namespace {

constexpr std::uint64_t kRewriteAbove = 64 * 1024;

}  // namespace

JXDefaultsFile::JXDefaultsFile(std::string path, std::shared_ptr<JXErasures> erasures)
    : path_(std::move(path)),
      erasures_(std::move(erasures)),
      seenErasures_(erasures_ ? erasures_->count() : 0),
      report_("user defaults " + path_, folderOf(path_)) {
  JXReportingLock locked(mutex_, report_);
  ensureOpen();
  if (journal_ == nullptr) readWithoutLock();
}

JXDefaultsFile::~JXDefaultsFile() {
  JXReportingLock locked(mutex_, report_);
  dropErased();
  writeUnsaved();
}

void JXDefaultsFile::applyErasures() {
  const JXReportingLock locked(mutex_, report_);
  dropErased();
}

// Returns whether the values were erased. If the file could not be deleted, the values are removed
// from it, now or when it can be written.
bool JXDefaultsFile::dropErased() {
  const std::uint64_t erasures = erasures_ ? erasures_->count() : 0;
  if (erasures == seenErasures_) return false;
  unsaved_.clear();
  earlier_.clear();
  if (journal_ != nullptr && journal_->file().isLinked()) {
    for (const auto& entry : content_.values)
      unsaved_.insert(entry.first);
  } else {
    journal_.reset();
  }
  content_ = {};
  stored_.clear();
  hasCheckpoint_ = false;
  changed_.clear();
  rewriting_ = dirty_ = folderDirty_ = damaged_ = false;
  // Last: an exception before must not keep erased values.
  seenErasures_ = erasures;
  writeUnsaved();
  return true;
}

// Also notices an erase by another process.
bool JXDefaultsFile::noticesErasure() {
  if (erasures_) erasures_->check();
  return dropErased();
}

JXString JXDefaultsFile::objectForKey(const JXString& key) {
  JXReportingLock locked(mutex_, report_);
  dropErased();
  return valueOf(key);
}

JXString JXDefaultsFile::valueOf(const JXString& key) const {
  const auto found = content_.values.find(key);
  return found == content_.values.end() ? JXString() : found->second.value;
}

void JXDefaultsFile::setObject_forKey(const JXString& value, const JXString& key) {
  if (!key.isPresent()) return;
  JXReportingLock locked(mutex_, report_);
  dropErased();
  const auto found = content_.values.find(key);
  if (found == content_.values.end() ? !value.isPresent() : found->second.value == value) return;
  // Before the change, so that no value is changed and not written when memory is exhausted.
  unsaved_.insert(key);
  if (rewriting_) changed_.insert(key);
  auto& [ownKey, stored] = *content_.values.try_emplace(key).first;
  if (changing_ == std::this_thread::get_id()) {
    earlier_.emplace_back(&ownKey, stored.value);
    stored.value = value;
    return;
  }
  stored.value = value;
  ++changes_;
  forgetEarlierValueOf(key);
  ensureOpen();
  writeUnsaved();
}

bool JXDefaultsFile::needsMaintenance() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return dirty_ || folderDirty_ || !unsaved_.empty();
}

bool JXDefaultsFile::isAvailable() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return journal_ != nullptr && unsaved_.empty();
}

std::uint64_t JXDefaultsFile::damaged() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return report_.damagedFiles();
}

// Opens the file unless it is open. Recreates a file that was removed or moved with its folder.
void JXDefaultsFile::ensureOpen() {
  if (isOpenAtPath()) return;
  journal_.reset();
  hasCheckpoint_ = false;
  noticesErasure();
  // An attempt fails only when another process replaces the file at the same time.
  constexpr int kOpenAttempts = 3;
  for (int attempt = 0; attempt < kOpenAttempts && journal_ == nullptr; ++attempt) {
    if (!openOnce()) return;
  }
}

// Returns false when another attempt is useless.
bool JXDefaultsFile::openOnce() {
  int error = makeFolder(folderOf(path_));
  JXFile file;
  if (error == 0) file = JXFile::open(path_, JXFile::Access::Append, error);
  if (error != 0) {
    report_.failed("open the file", error);
    return false;
  }
  // With the exclusive lock, a torn end may be truncated. Otherwise the shared lock is enough; it
  // is unavailable only while another process replaces the file with a rewritten one.
  const bool alone = file.tryLock(JXFile::Lock::Exclusive);
  if (!alone && !file.tryLock(JXFile::Lock::Shared)) {
    report_.failed("lock the file", EWOULDBLOCK);
    return false;
  }
  if (!file.isAt(path_)) return true;
  auto journal = std::make_shared<JXJournal>(std::move(file), path_);
  JXDefaultsContent inFile;
  readContent(*journal, alone ? JXJournal::Writers::One : JXJournal::Writers::Several, inFile);
  // Another process may have replaced the file between releasing the exclusive lock and acquiring
  // the shared one.
  const bool shared = !alone || journal->file().tryLock(JXFile::Lock::Shared);
  if (!shared || !journal->file().isAt(path_)) return true;
  // An erase may have missed the file if it was created, or has erased what was read.
  if (noticesErasure()) return true;
  journal_ = std::move(journal);
  // The process that wrote the values may have been killed before it synced them.
  dirty_ = folderDirty_ = true;
  // If the file was removed while in use, the values of this process are written again.
  adoptContent(inFile, false);
  writeUnsaved();
  return true;
}

// Reads the whole file, quarantines damaged data, and allows other writers afterwards. Returns
// false on a read error.
bool JXDefaultsFile::readContent(JXJournal& journal, JXJournal::Writers writers,
                                 JXDefaultsContent& content) {
  const JXJournal::Recovery recovery =
      journal.recover(writers, [&](const JXFrame& frame) { content.apply(frame.payload); });
  journal.setWriters(JXJournal::Writers::Several);
  if (recovery.error != 0) report_.failed("read the file", recovery.error);
  report_.quarantined(path_, recovery.quarantined);
  damaged_ = recovery.damageRemains;
  return recovery.error == 0;
}

// Adopts the values in the file, except for keys whose change is not written yet. An entry missing
// from a complete file was removed by another process; one missing from a new file is written.
void JXDefaultsFile::adoptContent(const JXDefaultsContent& inFile, bool fileIsWhole) {
  JXDefaultsMap& values = content_.values;
  for (auto entry = values.begin(); entry != values.end();) {
    const bool missing =
        inFile.values.count(entry->first) == 0 && unsaved_.count(entry->first) == 0;
    if (missing && (fileIsWhole || !entry->second.value.isPresent())) {
      entry = values.erase(entry);
      continue;
    }
    if (missing) unsaved_.insert(entry->first);
    ++entry;
  }
  for (const auto& [key, stored] : inFile.values) {
    if (unsaved_.count(key) == 0) values[key] = stored;
  }
  content_.checkpoints = inFile.checkpoints;
  content_.lastPosition = inFile.lastPosition;
}

// Loads the values of a file that can be read but not written.
void JXDefaultsFile::readWithoutLock() {
  const int error =
      JXJournal::scan(path_, [&](const JXFrame& frame) { content_.apply(frame.payload); });
  if (error != 0 && error != ENOENT) report_.failed("read the file", error);
}

bool JXDefaultsFile::writeFrames(std::string_view frames) {
  if (journal_ == nullptr) return false;
  const int error = journal_->appendFrames(frames);
  if (error != 0) {
    report_.failed("write a value", error);
    return false;
  }
  dirty_ = true;
  return true;
}

// Returns whether all values are written, except those that a thread is setting together.
bool JXDefaultsFile::writeUnsaved() {
  if (unsaved_.empty()) return true;
  std::string frames;
  for (const JXString& key : unsaved_)
    encodeValue(key, completeValueOf(key), frames);
  if (writer_ != 0) encodeCheckpoint(writer_, sequence_, frames);
  // After a partial write, stored changes would not apply: some values may follow the checkpoint.
  hasCheckpoint_ = false;
  if (!writeFrames(frames)) return false;
  hasCheckpoint_ = writer_ != 0;
  for (const JXString& key : unsaved_) {
    const auto written = content_.values.find(key);
    if (written != content_.values.end()) written->second.position = ++content_.lastPosition;
  }
  forgetWritten();
  return true;
}

void JXDefaultsFile::maintain() {
  const std::lock_guard<std::mutex> maintenance(maintenance_);
  std::uint64_t failures = 0;
  {
    JXReportingLock locked(mutex_, report_);
    failures = report_.failures();
    dropErased();
    if (!dirty_ && !folderDirty_ && unsaved_.empty()) return;
    pathCheck_.forget();
    ensureOpen();
    writeUnsaved();
  }
  syncChanges();
  compact();
  const JXReportingLock locked(mutex_, report_);
  if (report_.failures() == failures && unsaved_.empty()) report_.recovered();
}

void JXDefaultsFile::compact() {
  JXReportingLock locked(mutex_, report_);
  if (journal_ == nullptr || !needsCompaction()) return;
  if (!journal_->file().tryLock(JXFile::Lock::Exclusive)) {
    downgradeToSharedLock();
    return;
  }
  locked.unlock();
  const bool replaced = rewrite();
  locked.lock();
  if (!replaced) downgradeToSharedLock();
}

void JXDefaultsFile::syncChanges() {
  JXReportingLock locked(mutex_, report_);
  const std::shared_ptr<JXJournal> journal = dirty_ ? journal_ : nullptr;
  const bool folder = folderDirty_;
  if (journal != nullptr) dirty_ = false;
  folderDirty_ = false;
  locked.unlock();
  const int error = journal != nullptr ? journal->sync() : 0;
  const int folderError = folder ? synchronizeFolder(folderOf(path_)) : 0;
  locked.lock();
  if (error != 0) {
    dirty_ = true;
    report_.failed("sync the file", error);
  }
  if (folderError != 0) {
    folderDirty_ = journal_ != nullptr;
    report_.failed("sync the folder", folderError);
  }
}

bool JXDefaultsFile::needsCompaction() const {
  if (damaged_) return true;
  std::uint64_t size = 0;
  return journal_->file().size(size) == 0 && size > kRewriteAbove &&
         content_.compactSize() < size / 2;
}

// Called when the exclusive lock is unavailable or no longer needed. Another process may have
// replaced the file while no lock was held; the file is then reopened.
void JXDefaultsFile::downgradeToSharedLock() {
  if (journal_ == nullptr) return;
  if (journal_->file().tryLock(JXFile::Lock::Shared) && journal_->file().isAt(path_)) return;
  journal_.reset();
  hasCheckpoint_ = false;
  ensureOpen();
}

// Called with the file locked exclusively. Values that other threads set in the old file during
// the rewrite are written again to the new one.
bool JXDefaultsFile::rewrite() {
  const std::string freshPath = path_ + ".new";
  int error = 0;
  auto fresh = std::make_shared<JXJournal>(
      JXFile::open(freshPath, JXFile::Access::AppendEmptied, error), path_);
  std::string frames;
  if (error == 0 && !beginRewrite(frames)) return false;
  if (error == 0) error = fresh->appendFrames(frames);
  if (error == 0) error = fresh->sync();
  const JXReportingLock locked(mutex_, report_);
  noticesErasure();  // it may have missed the new file
  const bool wasErased = !std::exchange(rewriting_, false);
  if (error == 0 && wasErased) {
    removeFile(freshPath);
    return false;
  }
  return finishRewrite(std::move(fresh), freshPath, error);
}

// Reads the file instead of using memory: a process that has exited may have set values.
bool JXDefaultsFile::beginRewrite(std::string& frames) {
  const JXReportingLock locked(mutex_, report_);
  // The next maintenance does it if a thread is setting values together.
  if (journal_ == nullptr || !earlier_.empty()) return false;
  JXDefaultsContent content;
  if (!readContent(*journal_, JXJournal::Writers::One, content)) return false;
  adoptContent(content, true);
  frames = content_.encode();
  changed_ = unsaved_;
  rewriting_ = true;
  return true;
}

// Adds the values that were set during the rewrite and replaces the file. `error` is the result of
// the rewrite so far.
bool JXDefaultsFile::finishRewrite(std::shared_ptr<JXJournal> fresh, const std::string& path,
                                   int error) {
  std::string frames;
  for (const JXString& key : changed_)
    encodeValue(key, completeValueOf(key), frames);
  if (writer_ != 0) encodeCheckpoint(writer_, sequence_, frames);
  if (error == 0 && !frames.empty()) error = fresh->appendFrames(frames);
  if (error == 0 && !fresh->file().tryLock(JXFile::Lock::Shared)) error = EWOULDBLOCK;
  error = replaceFile(path, path_, error);
  if (error != 0) {
    report_.failed("rewrite the file", error);
    return false;
  }
  fresh->setWriters(JXJournal::Writers::Several);
  journal_ = std::move(fresh);
  hasCheckpoint_ = writer_ != 0;
  forgetWritten();
  damaged_ = false;
  dirty_ = dirty_ || !frames.empty();
  folderDirty_ = true;
  return true;
}

}  // namespace jx
