// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXSocketGate.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>

namespace jx {
namespace {

class SocketGate : public ::testing::Test {
 protected:
  SocketGate() {
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    EXPECT_EQ(0, ::bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address));
    EXPECT_EQ(0, ::listen(listener, 8));
    socklen_t size = sizeof address;
    EXPECT_EQ(0, ::getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size));
  }
  ~SocketGate() override { ::close(listener); }

  int connectTo(int socket) {
    return ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address);
  }
  // Uses the free descriptors below the highest open one, and returns the lowest free one then.
  static int fillDescriptors() {
    int highest = 0;
    for (int each = 0; each < 1'024; ++each)
      if (::fcntl(each, F_GETFD) != -1) highest = each;
    int lowest = 0;
    while (lowest <= highest)
      lowest = ::dup(STDERR_FILENO);
    ::close(lowest);
    return lowest;
  }
  static bool canSend(int socket) { return ::send(socket, "x", 1, MSG_NOSIGNAL) == 1; }

  sockaddr_in address{};
  const int listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  JXSocketGate gate;
};

TEST_F(SocketGate, OpensSocketsThatAreClosedOnExec) {
  const int socket = gate.open(AF_INET, SOCK_STREAM, 0);
  ASSERT_GE(socket, 0);
  EXPECT_EQ(FD_CLOEXEC, ::fcntl(socket, F_GETFD));
  ASSERT_EQ(0, connectTo(socket));
  EXPECT_TRUE(canSend(socket));
  gate.close(socket);
  EXPECT_EQ(-1, ::fcntl(socket, F_GETFD));
}

#ifdef TCP_CORK
TEST_F(SocketGate, HoldsBackSmallWritesUntilTheyAreSentTogether) {
  const int socket = gate.open(AF_INET, SOCK_STREAM, 0);
  ASSERT_EQ(0, connectTo(socket));
  const int peer = ::accept(listener, nullptr, nullptr);
  const auto isHoldingBack = [socket] {
    int value = -1;
    socklen_t size = sizeof value;
    EXPECT_EQ(0, ::getsockopt(socket, IPPROTO_TCP, TCP_CORK, &value, &size));
    return value == 1;
  };
  gate.holdBack();
  EXPECT_TRUE(isHoldingBack());
  EXPECT_TRUE(canSend(socket));
  EXPECT_TRUE(canSend(socket));
  gate.sendHeldBack();
  EXPECT_FALSE(isHoldingBack());
  char received[4];
  EXPECT_EQ(2, ::recv(peer, received, sizeof received, 0));
  ::close(peer);
}
#endif

TEST_F(SocketGate, LeavesThreeDescriptorsUnlessItHasNoOtherSocket) {
  rlimit limit{};
  ASSERT_EQ(0, ::getrlimit(RLIMIT_NOFILE, &limit));
  const rlim_t before = limit.rlim_cur;
  const int lowest = fillDescriptors();
  // A socket needs two descriptors.
  limit.rlim_cur = static_cast<rlim_t>(lowest) + 2 + 2 + 2;
  ASSERT_EQ(0, ::setrlimit(RLIMIT_NOFILE, &limit));
  const int first = gate.open(AF_INET, SOCK_STREAM, 0);
  EXPECT_GE(first, 0);
  errno = 0;
  EXPECT_EQ(-1, gate.open(AF_INET, SOCK_STREAM, 0)) << "only two would be left";
  EXPECT_EQ(EMFILE, errno);
  limit.rlim_cur += 1;
  ASSERT_EQ(0, ::setrlimit(RLIMIT_NOFILE, &limit));
  const int second = gate.open(AF_INET, SOCK_STREAM, 0);
  EXPECT_GE(second, 0) << "three are left";
  gate.close(first);
  gate.close(second);
  limit.rlim_cur = static_cast<rlim_t>(lowest) + 2;
  ASSERT_EQ(0, ::setrlimit(RLIMIT_NOFILE, &limit));
  const int only = gate.open(AF_INET, SOCK_STREAM, 0);
  EXPECT_GE(only, 0) << "without a connection nothing would be sent";
  gate.close(only);
  limit.rlim_cur = before;
  ASSERT_EQ(0, ::setrlimit(RLIMIT_NOFILE, &limit));
}

TEST_F(SocketGate, EndsWritingOnEveryConnectedSocket) {
  const int first = gate.open(AF_INET, SOCK_STREAM, 0);
  const int second = gate.open(AF_INET, SOCK_STREAM, 0);
  ASSERT_EQ(0, connectTo(first));
  ASSERT_EQ(0, connectTo(second));
  gate.shut();
  EXPECT_TRUE(gate.isShut());
  EXPECT_FALSE(canSend(first));
  EXPECT_EQ(EPIPE, errno);
  EXPECT_FALSE(canSend(second));
  gate.reopen();
  EXPECT_FALSE(canSend(first)) << "a socket never becomes usable again";
  gate.close(first);
  gate.close(second);
}

TEST_F(SocketGate, EndsASocketBeforeItIsConnected) {
  const int socket = gate.open(AF_INET, SOCK_STREAM, 0);
  gate.shut();
  connectTo(socket);
  EXPECT_FALSE(canSend(socket));
  gate.close(socket);
}

TEST_F(SocketGate, OpensNoSocketWhileItIsShut) {
  gate.shut();
  EXPECT_EQ(-1, gate.open(AF_INET, SOCK_STREAM, 0));
  gate.reopen();
  EXPECT_FALSE(gate.isShut());
  const int socket = gate.open(AF_INET, SOCK_STREAM, 0);
  ASSERT_EQ(0, connectTo(socket));
  EXPECT_TRUE(canSend(socket));
  gate.close(socket);
}

TEST_F(SocketGate, LeavesAForeignSocketWithAReusedDescriptorAlone) {
  const int socket = gate.open(AF_INET, SOCK_STREAM, 0);
  ::close(socket);  // not through the gate
  const int foreign = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  ASSERT_EQ(socket, foreign);
  ASSERT_EQ(0, connectTo(foreign));
  gate.shut();
  EXPECT_TRUE(canSend(foreign));
  ::close(foreign);
}

TEST_F(SocketGate, ForgetsSocketsWithoutAConnection) {
  const int connected = gate.open(AF_INET, SOCK_STREAM, 0);
  ASSERT_EQ(0, connectTo(connected));
  const int peer = ::accept(listener, nullptr, nullptr);
  const int unconnected = gate.open(AF_INET, SOCK_STREAM, 0);
  gate.forgetUnconnected();
  gate.shut();
  EXPECT_FALSE(canSend(connected));
  // The gate does not know the other one any more.
  ASSERT_EQ(0, connectTo(unconnected));
  EXPECT_TRUE(canSend(unconnected));
  ::close(unconnected);
  gate.close(connected);
  char byte = 0;
  EXPECT_LE(::recv(peer, &byte, 1, 0), 0) << "close leaves nothing open";
  ::close(peer);
}

TEST_F(SocketGate, DoesNotCollectSocketsThatLibcurlCloses) {
  const int before = ::dup(listener);
  for (int i = 0; i < 100; ++i) {
    ::close(gate.open(AF_INET, SOCK_STREAM, 0));
    gate.forgetUnconnected();
  }
  const int after = ::dup(listener);
  EXPECT_EQ(before + 1, after) << "no descriptor is left open";
  ::close(before);
  ::close(after);
}

TEST_F(SocketGate, ReportsAnUnknownFamilyAsFailure) {
  EXPECT_EQ(-1, gate.open(12'345, SOCK_STREAM, 0));
}

}  // namespace
}  // namespace jx
