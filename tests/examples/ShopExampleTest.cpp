// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <string>
#include <vector>

#include "jx/core/json/JXJsonReader.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/CollectorProgram.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::test {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::UnorderedElementsAreArray;

constexpr std::chrono::seconds kPatience{60};
constexpr const char* kUp = "\033[A";
constexpr const char* kDown = "\033[B";
constexpr const char* kRight = "\033[C";
constexpr const char* kLeft = "\033[D";
constexpr const char* kOk = "\n";

/// The shop, controlled by keys, with a collector.
class ShopExample : public testing::Test {
 protected:
  ChildProcess::Result press(const std::vector<std::string>& keys) const {
    std::string all;
    for (const std::string& key : keys)
      all += key;
    return ChildProcess::runWithInput(
        JX_EXAMPLE_SHOP, {collector_.address(), collector_.caFile(), folder_.path("state")}, all,
        kPatience);
  }
  /// Returns the names of the received events. Simultaneous events may arrive in any order.
  std::vector<std::string> arrivedNames() const {
    std::vector<std::string> names;
    const JXJsonArray events = collector_.events();
    for (const JXJsonValue& event : events.values()) {
      names.push_back(event.object().get("name").string().toStdString());
      EXPECT_TRUE(event.object().get("good").boolValue()) << names.back();
    }
    return names;
  }
  /// Returns the body of the only event of this name.
  JXJsonObject body(const std::string& name) const {
    std::vector<JXJsonObject> found;
    const JXJsonArray events = collector_.events();
    for (const JXJsonValue& event : events.values()) {
      if (event.object().get("name").string() != JXString(name)) continue;
      const JXString text = event.object().get("body").string();
      found.push_back(JXJsonReader::read(text.view()).value.object());
    }
    EXPECT_EQ(found.size(), 1u) << name;
    return found.empty() ? JXJsonObject() : found[0];
  }

  TemporaryFolder folder_;
  CollectorProgram collector_{JX_PROGRAM, folder_.path()};
};

TEST_F(ShopExample, SendsEachStepOfAPurchaseOnce) {
  const auto result = press({kOk, kDown, kOk, kOk, kOk,  // shop, mug, add to cart twice
                             "b", kDown, kOk, kOk,       // back, lamp, add to cart
                             "bb", kDown, kOk, kOk,      // home, cart, check out
                             kDown, kOk, "q"});          // by invoice
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output,
            "page_view\n"
            "page_view, view_item_list\n"
            "select_item, page_view, view_item\n"
            "add_to_cart\n"
            "add_to_cart\n"
            "page_view, view_item_list\n"
            "select_item, page_view, view_item\n"
            "add_to_cart\n"
            "page_view, view_item_list\n"
            "page_view\n"
            "page_view, view_cart\n"
            "begin_checkout, page_view\n"
            "add_payment_info, purchase, page_view\n");
  std::vector<std::string> expected(10, "page_view");
  expected.insert(expected.end(),
                  {"view_item_list", "view_item_list", "view_item_list", "select_item",
                   "select_item", "view_item", "view_item", "add_to_cart", "add_to_cart",
                   "add_to_cart", "view_cart", "begin_checkout", "add_payment_info", "purchase"});
  EXPECT_THAT(arrivedNames(), UnorderedElementsAreArray(expected));

  const JXJsonObject purchase = body("purchase");
  EXPECT_EQ(purchase.get("revenue").numberString(), JXString("74.00"));
  EXPECT_EQ(purchase.get("currency").string(), JXString("EUR"));
  EXPECT_EQ(purchase.get("payment_method").string(), JXString("by_invoice"));
  const JXJsonArray items = purchase.get("items").array();
  ASSERT_EQ(items.size(), 2u);
  EXPECT_EQ(items.at(0).object().get("id").string(), JXString("mug-07"));
  EXPECT_EQ(items.at(0).object().get("quantity").numberString(), JXString("2"));
  EXPECT_EQ(items.at(1).object().get("id").string(), JXString("lamp-2"));
}

TEST_F(ShopExample, DoesNotCheckOutARemovedItem) {
  const auto result = press({kOk, kOk, kOk, "bb", kDown, kOk, kLeft, kOk, "q"});
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.output, EndsWith("page_view, view_cart\nremove_from_cart\n"))
      << "an empty cart cannot be checked out";
  EXPECT_EQ(body("remove_from_cart").get("value").numberString(), JXString("24.90"));
}

TEST_F(ShopExample, ReportsPlayPauseSeekAndCompletionOfTheTrailer) {
  std::vector<std::string> keys{kUp, kUp, kOk, " ", " ", kRight, kLeft};
  keys.insert(keys.end(), 9, kRight);
  const auto result = press(keys);
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.output, HasSubstr("page_view, video_start\nvideo_pause\nvideo_resume\n"
                                       "video_seek_start, video_seek_complete\n"));
  EXPECT_THAT(result.output, EndsWith("video_seek_start, video_seek_complete, video_complete\n"));
  EXPECT_EQ(body("video_complete").get("cursor_position").numberString(), JXString("90"));
  EXPECT_EQ(body("video_start").get("video_session_id").string(),
            body("video_complete").get("video_session_id").string());
}

TEST_F(ShopExample, IgnoresUnknownKeys) {
  EXPECT_EQ(press({"xyz", "\033[Z", "\xff", "9", "q", kOk}).output, "page_view\n");
}

/// The shop in a pseudo-terminal.
class ShopTerminal : public testing::Test {
 protected:
  ShopTerminal() : master_(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
    if (::grantpt(master_) != 0 || ::unlockpt(master_) != 0) return;
    slave_ = ::open(::ptsname(master_), O_RDWR | O_NOCTTY | O_CLOEXEC);
    ::tcgetattr(slave_, &before_);
    pid_ = ::fork();
    if (pid_ != 0) return;
    ::setsid();
    for (int target = 0; target < 3; ++target)
      ::dup2(slave_, target);
    ::setenv("XDG_STATE_HOME", folder_.path().c_str(), 1);
    ::execl(JX_EXAMPLE_SHOP, "shop", nullptr);
    ::_exit(127);
  }
  ~ShopTerminal() override {
    if (pid_ > 0) {
      ::kill(pid_, SIGKILL);
      ::waitpid(pid_, nullptr, 0);
    }
    ::close(slave_);
    ::close(master_);
  }

  void press(const std::string& keys) const {
    ASSERT_EQ(::write(master_, keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
  }
  /// Sends the signal. The thread sanitizer holds a signal that arrives just before poll() until
  /// poll() returns, so under it `sees` sends the signal again every second.
  void end(int signal) {
    ::kill(pid_, signal);
#if defined(__SANITIZE_THREAD__)
    repeated_ = signal;
#endif
  }
  /// Reads until `text` appears after the text of the previous call.
  bool sees(const std::string& text) {
    for (std::size_t at = std::string::npos;;) {
      at = screen_.find(text, seen_);
      if (at != std::string::npos) {
        seen_ = at + text.size();
        return true;
      }
      pollfd source{master_, POLLIN, 0};
      char bytes[4096];
      const int ready = ::poll(&source, 1, repeated_ != 0 ? 1'000 : 60'000);
      if (ready == 0 && repeated_ != 0 && repetitions_++ < 60) {
        ::kill(pid_, repeated_);
        continue;
      }
      if (ready != 1) return false;
      const ssize_t count = ::read(master_, static_cast<char*>(bytes), sizeof bytes);
      if (count <= 0) return false;
      screen_.append(static_cast<const char*>(bytes), static_cast<std::size_t>(count));
    }
  }
  /// Waits for the end, checks that the terminal is restored, and returns the exit status.
  int endedCleanly() {
    EXPECT_TRUE(sees("\033[?25h\033[?1049l")) << "cursor and screen are restored";
    int status = 0;
    EXPECT_EQ(::waitpid(pid_, &status, 0), pid_);
    pid_ = -1;
    termios after{};
    EXPECT_EQ(::tcgetattr(slave_, &after), 0);
    EXPECT_EQ(after.c_lflag, before_.c_lflag);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  TemporaryFolder folder_;
  termios before_{};
  int master_ = -1;
  int slave_ = -1;
  pid_t pid_ = -1;
  std::string screen_;
  std::size_t seen_ = 0;
  int repeated_ = 0;  ///< a signal that `sees` sends again; 0 for none
  int repetitions_ = 0;
};

TEST_F(ShopTerminal, DrawsPagesAndRestoresTheTerminalAtTheEnd) {
  ASSERT_TRUE(sees("\033[?1049h\033[?25l"));
  ASSERT_TRUE(sees("What shall it be?"));
  ASSERT_TRUE(sees("sent: page_view"));
  termios during{};
  ASSERT_EQ(::tcgetattr(slave_, &during), 0);
  EXPECT_EQ(during.c_lflag & static_cast<tcflag_t>(ICANON | ECHO), 0u);
  press("\r");
  ASSERT_TRUE(sees("Lighthouse mug"));
  ASSERT_TRUE(sees("12.50 EUR"));
  press("q");
  EXPECT_EQ(endedCleanly(), 0);
}

TEST_F(ShopTerminal, RestoresTheTerminalAfterSigterm) {
  ASSERT_TRUE(sees("sent: page_view"));
  end(SIGTERM);
  EXPECT_EQ(endedCleanly(), 0);
}

TEST_F(ShopTerminal, RestoresTheTerminalAfterSigintDuringAFilm) {
  ASSERT_TRUE(sees("sent: page_view"));
  press(std::string(kUp) + kUp + "\r");
  ASSERT_TRUE(sees("sent: page_view, video_start"));
  end(SIGINT);
  ASSERT_TRUE(sees("sent: video_pause")) << "leaving the film sends a pause";
  EXPECT_EQ(endedCleanly(), 0);
}

}  // namespace
}  // namespace jx::test
