// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "jx/core/storage/JXFile.h"
#include "jx/core/storage/JXFrame.h"

namespace jx {

/// An append-only file of frames, each written with one system call and guarded by a CRC.
///
/// The content of a file never makes an operation fail: a damaged place is passed, set aside under
/// a new name when it is at the end of the file, and the journal goes on behind the last good
/// frame. Locking is the owner's matter. One thread at a time, except that `sync` may run beside
/// the others. Failures are errno values, 0 for success.
class JXJournal {
 public:
  /// Called for each frame, in order; the payload is valid during the call.
  using Visit = std::function<void(const JXFrame& frame)>;

  /// Who else may append to the file.
  enum class Writers {
    One,     ///< nobody: a torn end may be cut off
    Several  ///< other processes: nothing is ever cut off, a torn frame is passed by the reader
  };

  struct Recovery {
    int error = 0;               ///< why reading stopped early, or setting aside failed
    bool damageRemains = false;  ///< the file still holds bytes that belong to no frame
    bool quarantined = false;    ///< damaged bytes were copied to a file of their own just now
  };

  JXJournal() = default;
  /// Takes over `file`, which was opened for appending from `path`.
  JXJournal(JXFile file, std::string path) : file_(std::move(file)), path_(std::move(path)) {}

  /// Reads all frames and makes the journal ready for appending. To be called once, first.
  Recovery recover(Writers writers, const Visit& visit);
  /// From now on others may append too, or no longer may.
  void setWriters(Writers writers) { writers_ = writers; }

  /// Appends one frame whose payload is the parts one after the other. `offset` receives its
  /// place; with several writers it is not known and stays untouched. When it fails, no part of
  /// the frame is ever read back.
  int append(const std::string_view* parts, std::size_t count, std::uint64_t* offset);
  /// Appends whole frames with one write. When it fails, some of them may be read back.
  int appendFrames(std::string_view frames);
  /// Reads the payload of the frame at `offset`, which is `length` bytes long. EBADMSG when there
  /// is no such frame or it is damaged.
  int read(std::uint64_t offset, std::size_t length, std::string& payload) const;
  /// Waits until what was appended before is on the disk.
  int sync() const { return file_.synchronize(); }

  bool isOpen() const { return file_.isOpen(); }
  void close() { file_.close(); }
  /// Where the next frame goes, as far as this process knows.
  std::uint64_t size() const { return end_; }
  JXFile& file() { return file_; }
  const JXFile& file() const { return file_; }
  const std::string& path() const { return path_; }

  /// Reads the frames of a file that other processes may be writing, and changes nothing.
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
