// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "jx/core/storage/JXFile.h"
#include "jx/core/storage/JXFrame.h"
#include "jx/core/storage/JXQuarantine.h"

namespace jx {

/// An append-only file of frames, each written with one system call and protected by a CRC.
///
/// The content of a file never makes an operation fail: damaged data is skipped. A single writer
/// also quarantines it under a new name, truncates it at the end of the file, and continues after
/// the last intact frame. The owner is responsible for locking. One thread at a time, except that
/// `sync` may run concurrently with the other operations. Operations that can fail return an errno
/// value, 0 for success.
class JXJournal {
 public:
  /// Called for each frame, in order; the payload is valid during the call.
  using Visit = std::function<void(const JXFrame& frame)>;

  /// The processes that may append to the file.
  enum class Writers {
    One,     ///< only this one: a torn end may be truncated
    Several  ///< others too: nothing is ever truncated, readers skip a torn frame
  };

  struct Recovery {
    int error = 0;               ///< errno value of a failed read, quarantine or truncation
    bool damageRemains = false;  ///< the file still contains bytes that belong to no frame
    JXQuarantined quarantined;   ///< by this call
  };

  JXJournal() = default;
  /// Takes ownership of `file`, which was opened for appending at `path`.
  JXJournal(JXFile file, std::string path) : file_(std::move(file)), path_(std::move(path)) {}

  /// Reads all frames and prepares the journal for appending. Call it once, before anything else.
  Recovery recover(Writers writers, const Visit& visit);
  /// Changes which processes may append from now on.
  void setWriters(Writers writers) { writers_ = writers; }

  /// Appends one frame whose payload is the concatenation of the parts. `offset`, which may be
  /// null, receives its position; with several writers it is unknown and left unchanged. After a
  /// failure, no part of the frame is ever read back. `before`, unless it is empty, is the payload
  /// of a frame that precedes it in the same write; after a failure, it may be read back.
  int append(JXFrameParts parts, std::uint64_t* offset, std::string_view before = {});
  /// Appends complete frames with one write. After a failure, some of them may be read back.
  int appendFrames(std::string_view frames);
  /// Reads the payload, `length` bytes, of the frame at `offset`. Returns EBADMSG when there is no
  /// such frame or it is damaged.
  int read(std::uint64_t offset, std::size_t length, std::string& payload) const;
  /// Makes appended frames durable. Blocks until the disk has written them.
  int sync() const { return file_.synchronize(); }

  bool isOpen() const { return file_.isOpen(); }
  void close() { file_.close(); }
  /// Continues with `file`, which is at the path and has the same content.
  void setFile(JXFile file) noexcept { file_ = std::move(file); }
  /// Call this when the file was renamed.
  void setPath(std::string path) noexcept { path_ = std::move(path); }
  /// Continues with `file`, which has the same content, at `path`.
  void reopen(JXFile file, std::string path) {
    file_ = std::move(file);
    path_ = std::move(path);
  }
  /// Returns the offset of the next frame, as far as this process knows.
  std::uint64_t size() const { return end_; }
  JXFile& file() { return file_; }
  const JXFile& file() const { return file_; }
  const std::string& path() const { return path_; }

  /// Reads the frames of a file that other processes may be writing, without changing it.
  static int scan(const std::string& path, const Visit& visit);

 private:
  Recovery repair(const JXFrameReader& reader);
  int write(iovec* pieces, int count, std::size_t size);

  JXFile file_;
  std::string path_;
  std::uint64_t end_ = 0;
  Writers writers_ = Writers::One;
};

}  // namespace jx
