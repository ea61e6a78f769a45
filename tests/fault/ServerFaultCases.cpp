// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/fault/ServerFault.h"

namespace jx::test {
namespace {

using namespace std::chrono_literals;
using Manner = JXTestAnswer::Manner;
using Certificate = JXTestServerOptions::Certificate;

// Long enough for a handshake on a busy machine, short enough to wait for.
constexpr std::chrono::milliseconds kShortTimeOut = 600ms;

JXTestAnswer told(Manner manner, int status = 200) {
  JXTestAnswer answer;
  answer.manner = manner;
  answer.status = status;
  return answer;
}

JXTestAnswer withHeader(int status, const std::string& name, const std::string& value) {
  JXTestAnswer answer = told(Manner::Whole, status);
  answer.headers = {{name, value}};
  return answer;
}

std::function<void(ServerStory&)> answers(const JXTestAnswer& answer) {
  return [answer](ServerStory& story) { story.server.answerAll(answer); };
}

std::function<void(ServerStory&)> answersLate(const JXTestAnswer& answer) {
  return [answer](ServerStory& story) {
    story.setup.timings.requestTimeout = kShortTimeOut;
    story.server.answerAll(answer);
  };
}

std::function<void(ServerStory&)> presents(const JXTestServerOptions& options) {
  return [options](ServerStory& story) { story.server.present(options); };
}

ServerFault connectionFault(const std::string& name, const std::string& order,
                            const std::string& fault, const std::string& did,
                            std::function<void(ServerStory&)> play, const std::string& reason) {
  ServerFault made;
  made.name = name;
  made.order = order;
  made.fault = fault;
  made.did = did;
  made.play = std::move(play);
  made.reason = reason;
  return made;
}

ServerFault refusal() {
  ServerFault fault = connectionFault(
      "RefusesConnections", "1.01", "connection refused", "refused every connection",
      [](ServerStory& story) { story.server.refuse(); }, "connect to server");
  fault.heal = [](ServerStory& story) { story.server.accept(); };
  fault.requestsRead = 0;
  return fault;
}

ServerFault statusFault(int status, const std::string& order, const std::string& meaning) {
  const std::string number = std::to_string(status);
  return connectionFault("Answers" + number, order, number + " " + meaning, "answered " + number,
                         answers(told(Manner::Whole, status)), "HTTP status " + number);
}

ServerFault waitAsked(const std::string& name, const std::string& order, const std::string& form,
                      const std::string& value, std::chrono::milliseconds secondPause) {
  ServerFault fault =
      connectionFault(name, order, "429 with Retry-After as " + form,
                      "answered 429 with \"Retry-After: " + value + "\"",
                      answers(withHeader(429, "Retry-After", value)), "HTTP status 429");
  fault.initialBackoff = 120s;
  fault.secondPause = secondPause;
  return fault;
}

ServerFault trustFault(const std::string& name, const std::string& order, const std::string& fault,
                       const std::string& did, const JXTestServerOptions& options,
                       const std::string& reason) {
  ServerFault made = connectionFault(name, order, fault, did, presents(options), reason);
  made.heal = presents(JXTestServerOptions());
  made.requestsRead = 0;
  return made;
}

std::vector<ServerFault> faultsOfTrust() {
  JXTestServerOptions foreign, misnamed, expired, old;
  foreign.certificate = Certificate::OfAnotherAuthority;
  misnamed.certificateNames = {"DNS:elsewhere.example"};
  expired.certificate = Certificate::Expired;
  old.newestTlsVersion = TLS1_1_VERSION;
  return {
      trustFault("ShowsACertificateOfAnotherAuthority", "2.01", "certificate of another authority",
                 "showed a certificate that an unknown authority signed", foreign,
                 "SSL certificate problem: "),
      trustFault("ShowsACertificateOfAnotherName", "2.02", "certificate of another name",
                 "showed a certificate for elsewhere.example", misnamed,
                 "no alternative certificate subject name matches"),
      trustFault("ShowsAnExpiredCertificate", "2.03", "expired certificate",
                 "showed a certificate that ended an hour and a half ago", expired,
                 "certificate has expired"),
      trustFault("SpeaksTls11Only", "2.04", "TLS 1.1 only", "offered nothing newer than TLS 1.1",
                 old, "SSL connect error"),
  };
}

JXTestAnswer slowAnswer() {
  JXTestAnswer slow = told(Manner::SlowBytes);
  slow.headers = {{"X-Long", std::string(1'000, 'x')}};
  return slow;
}

}  // namespace

std::vector<ServerFault> faultsThatHold() {
  std::vector<ServerFault> faults{
      refusal(),
      connectionFault("StallsBeforeTheHead", "1.02", "stall before the answer",
                      "read the request and said nothing",
                      answersLate(told(Manner::StallBeforeHead)), "Timeout was reached"),
      connectionFault("AnswersTooSlowly", "1.03", "answer byte by byte, too slow",
                      "sent a byte every 20 ms of a head of 1 KiB", answersLate(slowAnswer()),
                      "Timeout was reached"),
      connectionFault("ClosesInTheHead", "1.04", "close in the middle of the head",
                      "sent half of a head with status 200 and closed",
                      answers(told(Manner::CloseInHead)), "incomplete response header section"),
      connectionFault("ResetsTheConnection", "1.05", "connection reset",
                      "read the request and reset the connection", answers(told(Manner::Reset)),
                      ""),
      connectionFault("SendsRubbish", "1.06", "rubbish instead of HTTP",
                      "sent bytes that are no HTTP", answers(told(Manner::Rubbish)), "HTTP/0.9"),
      connectionFault("SendsAnEndlessHead", "1.07", "endless head", "sent header lines without end",
                      answers(told(Manner::EndlessHead)), "header"),
      connectionFault("ClosesInTheBodyOf503", "1.08", "503, close in the body",
                      "sent the head of a 503 and closed in the body",
                      answers(told(Manner::CloseInBody, 503)), "HTTP status 503"),
      statusFault(408, "3.01", "Request Timeout"),
      statusFault(425, "3.02", "Too Early"),
      statusFault(429, "3.03", "Too Many Requests, without Retry-After"),
      waitAsked("Answers429WithSeconds", "3.04", "seconds", "120", 120s),
      waitAsked("Answers429WithADate", "3.05", "a date", "Mon, 21 Sep 2026 14:15:20 GMT", 1s),
      statusFault(500, "3.06", "Internal Server Error"),
      statusFault(503, "3.07", "Service Unavailable"),
  };
  for (ServerFault& fault : faultsOfTrust())
    faults.push_back(std::move(fault));
  return faults;
}

std::vector<ServerFault> faultsThatReject() {
  std::vector<ServerFault> faults;
  int number = 1;
  for (const auto& [status, meaning] :
       std::vector<std::pair<int, std::string>>{{301, "Moved Permanently, to another server"},
                                                {400, "Bad Request"},
                                                {401, "Unauthorized"},
                                                {403, "Forbidden"},
                                                {404, "Not Found"},
                                                {413, "Content Too Large"}}) {
    faults.push_back(statusFault(status, "4.0" + std::to_string(number++), meaning));
    faults.back().status = status;
  }
  faults.front().play = [](ServerStory& story) {
    story.server.answerAll(withHeader(301, "Location", story.elsewhere.url("/events")));
  };
  return faults;
}

std::vector<ServerFault> faultsThatDeliver() {
  return {
      connectionFault("StallsInTheBody", "5.01", "stall in the body",
                      "sent the head of a 200 and then nothing more",
                      answersLate(told(Manner::StallInBody)), ""),
      connectionFault("ClosesInTheBody", "5.02", "close in the middle of the body",
                      "sent the head of a 200 and closed in the body",
                      answers(told(Manner::CloseInBody)), ""),
      connectionFault("SendsAnEndlessBody", "5.03", "endless body",
                      "sent the head of a 200 and a body without end",
                      answers(told(Manner::EndlessBody)), ""),
      connectionFault("AnswersByteByByte", "5.04", "answer byte by byte, in time",
                      "sent a 200 with a byte every 20 ms", answers(told(Manner::SlowBytes)), ""),
  };
}

}  // namespace jx::test
