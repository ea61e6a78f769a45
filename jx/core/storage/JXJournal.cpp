// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXJournal.h"

#include <array>
#include <cerrno>

namespace jx {
namespace {

constexpr std::size_t kMaxParts = 4;

iovec partOf(std::string_view bytes) {
  // writev takes pointers to non-const and does not write through them.
  return {const_cast<char*>(bytes.data()), bytes.size()};
}

}  // namespace

JXJournal::Recovery JXJournal::recover(Writers writers, const Visit& visit) {
  writers_ = writers;
  Recovery recovery;
  recovery.error = file_.size(end_);
  if (recovery.error != 0) return recovery;
  JXFrameReader reader(file_, end_);
  JXFrame frame;
  while (reader.next(frame))
    visit(frame);
  if (reader.error() != 0) {
    // The unreadable part may contain intact frames, so nothing is truncated.
    recovery.error = reader.error();
    return recovery;
  }
  return reader.damages().empty() ? recovery : repair(reader);
}

JXJournal::Recovery JXJournal::repair(const JXFrameReader& reader) {
  Recovery recovery;
  recovery.damageRemains = true;
  if (writers_ == Writers::Several) return recovery;
  const JXDamage& last = reader.damages().back();
  const bool atEnd = last.offset + last.length == end_;
  recovery.error = quarantine(file_, path_, reader.damages(), atEnd, recovery.quarantined);
  // Bytes that could not be copied stay in the file: readers find the frames after them anyway.
  if (recovery.error != 0 || !atEnd) return recovery;
  recovery.error = file_.truncate(last.offset);
  if (recovery.error == 0) {
    end_ = last.offset;
    recovery.damageRemains = reader.damages().size() > 1;
  }
  return recovery;
}

int JXJournal::append(JXFrameParts parts, std::uint64_t* offset, std::string_view before) {
  std::array<iovec, kMaxParts + 4> pieces;
  if (parts.size() > kMaxParts) return EFBIG;
  const JXFrameHeader header = makeFrameHeader(parts);
  JXFrameHeader headerBefore;
  std::size_t first = end_ == 0 ? kJXJournalMagic.size() : 0;
  pieces[0] = partOf(kJXJournalMagic.substr(0, first));
  int used = 1;
  if (!before.empty()) {
    headerBefore = makeFrameHeader({before});
    pieces[1] = partOf({headerBefore.data(), headerBefore.size()});
    pieces[2] = partOf(before);
    used = 3;
    first += headerBefore.size() + before.size();
  }
  pieces[static_cast<std::size_t>(used++)] = partOf({header.data(), header.size()});
  std::size_t length = 0;
  for (const std::string_view part : parts) {
    pieces[static_cast<std::size_t>(used++)] = partOf(part);
    length += part.size();
  }
  if (length > kJXMaxPayload) return EFBIG;
  const std::uint64_t place = end_ + first;
  const int error = write(pieces.data(), used, first + header.size() + length);
  if (error == 0 && offset != nullptr && writers_ == Writers::One) *offset = place;
  return error;
}

int JXJournal::appendFrames(std::string_view frames) {
  const std::size_t mark = end_ == 0 ? kJXJournalMagic.size() : 0;
  iovec pieces[] = {partOf(kJXJournalMagic.substr(0, mark)), partOf(frames)};
  return write(pieces, 2, mark + frames.size());
}

int JXJournal::write(iovec* pieces, int count, std::size_t size) {
  std::size_t written = 0;
  const int error = file_.append(pieces, count, written);
  if (written == size) {
    end_ += size;
    return 0;
  }
  // The disk is full. Truncates the partial write; when that fails, or when others may have written
  // after it, it stays as damaged data that readers skip.
  if (written != 0 && (writers_ == Writers::Several || file_.truncate(end_) != 0)) end_ += written;
  return error != 0 ? error : ENOSPC;
}

int JXJournal::read(std::uint64_t offset, std::size_t length, std::string& payload) const {
  std::uint64_t fileSize = 0;
  const int sizeError = file_.size(fileSize);
  if (sizeError != 0) return sizeError;
  const std::uint64_t whole = kJXFrameHeaderSize + std::uint64_t{length};
  if (offset > fileSize || whole > fileSize - offset) return EBADMSG;
  std::string frame(static_cast<std::size_t>(whole), '\0');
  std::size_t got = 0;
  const int error = file_.read(offset, frame.data(), frame.size(), got);
  if (error != 0) return error;
  if (got != frame.size() || !isWholeFrame(frame)) return EBADMSG;
  frame.erase(0, kJXFrameHeaderSize);
  payload = std::move(frame);
  return 0;
}

int JXJournal::scan(const std::string& path, const Visit& visit) {
  int error = 0;
  const JXFile file = JXFile::open(path, JXFile::Access::Read, error);
  std::uint64_t end = 0;
  if (error == 0) error = file.size(end);
  if (error != 0) return error;
  JXFrameReader reader(file, end);
  JXFrame frame;
  while (reader.next(frame))
    visit(frame);
  return reader.error();
}

}  // namespace jx
