// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/soak/UnreliableServer.h"

#include <vector>

namespace jx::soak {
namespace {

using Manner = test::JXTestAnswer::Manner;

test::JXTestAnswer responseWith(int status, Manner manner = Manner::Whole) {
  test::JXTestAnswer answer;
  answer.status = status;
  answer.manner = manner;
  return answer;
}

}  // namespace

void UnreliableServer::choose() {
  succeed();
  switch (random_.below(10)) {
    case 0:
      return server_.answerAll(responseWith(503));
    case 1:
      return server_.answerAll(responseWith(200, Manner::Reset));
    case 2:
      return server_.answerAll(responseWith(200, Manner::StallBeforeHead));
    case 3:
      return server_.refuse();
    case 4:
    case 5:
      return failAtRandom();
    default:
      return;
  }
}

void UnreliableServer::succeed() {
  server_.accept();
  server_.forgetNext();
  server_.answerAll(responseWith(200));
}

void UnreliableServer::failAtRandom() {
  static const std::vector<test::JXTestAnswer> kErrors{responseWith(503),
                                                       responseWith(429),
                                                       responseWith(400),
                                                       responseWith(400, Manner::CloseInBody),
                                                       responseWith(200, Manner::Reset),
                                                       responseWith(200, Manner::CloseInBody)};
  for (int i = 0; i < 60; ++i) {
    const bool fails = random_.below(4) == 0;
    server_.answerNext(fails ? kErrors[random_.below(kErrors.size())] : responseWith(200));
  }
}

}  // namespace jx::soak
