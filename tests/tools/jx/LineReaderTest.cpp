// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/replay/LineReader.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <stdexcept>
#include <thread>
#include <vector>

namespace jx {
namespace {

using Result = LineReader::Result;

class Pipe {
 public:
  Pipe() {
    if (::pipe(ends_) != 0) throw std::runtime_error("pipe");
  }
  ~Pipe() {
    close();
    ::close(ends_[0]);
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;

  int out() const { return ends_[0]; }
  void write(const std::string& text) {
    for (std::size_t at = 0; at < text.size();) {
      const ssize_t count = ::write(ends_[1], text.data() + at, text.size() - at);
      if (count < 0) throw std::runtime_error("write");
      at += static_cast<std::size_t>(count);
    }
  }
  void close() {
    if (ends_[1] >= 0) ::close(ends_[1]);
    ends_[1] = -1;
  }

 private:
  int ends_[2] = {-1, -1};
};

// Returns all lines of a text.
std::vector<std::string> linesOf(const std::string& text) {
  Pipe input;
  Pipe stop;
  input.write(text);
  input.close();
  LineReader reader(input.out(), stop.out());
  std::vector<std::string> lines;
  std::string line;
  while (reader.next(line) == Result::Line)
    lines.push_back(line);
  EXPECT_EQ(reader.next(line), Result::End);
  return lines;
}

using Lines = std::vector<std::string>;

TEST(LineReader, AcceptsLfAndCrLfLineEnds) {
  EXPECT_EQ(linesOf("a\nb\r\nc\n"), (Lines{"a", "b", "c"}));
}

TEST(LineReader, ReturnsLastLineWithoutLineEnd) {
  EXPECT_EQ(linesOf("a\nb"), (Lines{"a", "b"}));
  EXPECT_EQ(linesOf("a\r"), (Lines{"a"}));
}

TEST(LineReader, ReturnsEmptyLinesButNoneForEmptyInput) {
  EXPECT_EQ(linesOf("\n\r\n\n"), (Lines{"", "", ""}));
  EXPECT_EQ(linesOf(""), Lines{});
}

TEST(LineReader, AcceptsAnyByteInALine) {
  EXPECT_EQ(linesOf(std::string("a\0\xFF\rb\n", 6)), (Lines{std::string("a\0\xFF\rb", 5)}));
}

TEST(LineReader, ReturnsLineBeforePipeIsClosed) {
  Pipe input;
  Pipe stop;
  LineReader reader(input.out(), stop.out());
  std::string line;
  input.write("first\nsec");
  ASSERT_EQ(reader.next(line), Result::Line);
  EXPECT_EQ(line, "first");
  input.write("ond\n");
  ASSERT_EQ(reader.next(line), Result::Line);
  EXPECT_EQ(line, "second");
}

TEST(LineReader, StopsImmediatelyWithLinesBuffered) {
  Pipe input;
  Pipe stop;
  input.write("a\nb\n");
  LineReader reader(input.out(), stop.out());
  std::string line;
  ASSERT_EQ(reader.next(line), Result::Line);
  stop.write("!");
  EXPECT_EQ(reader.next(line), Result::Stopped);
}

TEST(LineReader, StopsWhileWaitingForInput) {
  Pipe input;
  Pipe stop;
  LineReader reader(input.out(), stop.out());
  std::thread other([&stop] { stop.write("!"); });
  std::string line;
  EXPECT_EQ(reader.next(line), Result::Stopped);
  other.join();
}

TEST(LineReader, ReportsReadErrors) {
  Pipe stop;
  Pipe other;
  const int closed = ::dup(other.out());
  ::close(closed);
  LineReader reader(closed, stop.out());
  std::string line;
  EXPECT_EQ(reader.next(line), Result::Failed);
}

TEST(LineReader, SkipsLinesOverTheLimit) {
  Pipe input;
  Pipe stop;
  std::thread writer([&input] {
    input.write(std::string(LineReader::kMaxLineBytes, 'x') + "\n" +
                std::string(LineReader::kMaxLineBytes + 1, 'y') + "\nshort\n" +
                std::string(LineReader::kMaxLineBytes + 1, 'z'));
    input.close();
  });
  LineReader reader(input.out(), stop.out());
  std::string line;
  EXPECT_EQ(reader.next(line), Result::Line);
  EXPECT_EQ(line.size(), LineReader::kMaxLineBytes);
  EXPECT_EQ(reader.next(line), Result::TooLong);
  EXPECT_EQ(reader.next(line), Result::Line);
  EXPECT_EQ(line, "short");
  EXPECT_EQ(reader.next(line), Result::TooLong);
  EXPECT_EQ(reader.next(line), Result::End);
  writer.join();
}

}  // namespace
}  // namespace jx
