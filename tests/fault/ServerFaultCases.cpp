// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/fault/ServerFault.h"

namespace jx::test {
namespace {

using namespace std::chrono_literals;
using Manner = JXTestAnswer::Manner;
using Certificate = JXTestServerOptions::Certificate;

// Long enough for a handshake on a busy machine, short enough for a test.
constexpr std::chrono::milliseconds kShortTimeOut = 600ms;

JXTestAnswer response(Manner manner, int status = 200) {
  JXTestAnswer made;
  made.manner = manner;
  made.status = status;
  return made;
}

JXTestAnswer withHeader(int status, const std::string& name, const std::string& value) {
  JXTestAnswer made = response(Manner::Whole, status);
  made.headers = {{name, value}};
  return made;
}

std::function<void(ServerScenario&)> respondsWith(const JXTestAnswer& answer) {
  return [answer](ServerScenario& scenario) { scenario.server.answerAll(answer); };
}

std::function<void(ServerScenario&)> respondsLate(const JXTestAnswer& answer) {
  return [answer](ServerScenario& scenario) {
    scenario.setup.timings.requestTimeout = kShortTimeOut;
    scenario.server.answerAll(answer);
  };
}

std::function<void(ServerScenario&)> presents(const JXTestServerOptions& options) {
  return [options](ServerScenario& scenario) { scenario.server.present(options); };
}

ServerFault connectionFault(const std::string& name, const std::string& order,
                            const std::string& fault, const std::string& did,
                            std::function<void(ServerScenario&)> play, const std::string& reason) {
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
      [](ServerScenario& scenario) { scenario.server.refuse(); }, "connect to server");
  fault.heal = [](ServerScenario& scenario) { scenario.server.accept(); };
  fault.requestsRead = 0;
  return fault;
}

ServerFault statusFault(int status, const std::string& order, const std::string& meaning) {
  const std::string number = std::to_string(status);
  return connectionFault("Responds" + number, order, number + " " + meaning,
                         "responded with " + number, respondsWith(response(Manner::Whole, status)),
                         "HTTP status " + number);
}

ServerFault retryAfterFault(const std::string& name, const std::string& order,
                            const std::string& form, const std::string& value,
                            std::chrono::milliseconds secondBackoff) {
  ServerFault fault =
      connectionFault(name, order, "429 with Retry-After as " + form,
                      "responded with 429 and \"Retry-After: " + value + "\"",
                      respondsWith(withHeader(429, "Retry-After", value)), "HTTP status 429");
  fault.initialBackoff = 120s;
  fault.secondBackoff = secondBackoff;
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
      trustFault(
          "PresentsCertificateOfAnotherAuthority", "2.01", "certificate of another authority",
          "presented a certificate of an unknown authority", foreign, "SSL certificate problem: "),
      trustFault("PresentsCertificateOfAnotherName", "2.02", "certificate of another name",
                 "presented a certificate for elsewhere.example", misnamed,
                 "no alternative certificate subject name matches"),
      trustFault("PresentsExpiredCertificate", "2.03", "expired certificate",
                 "presented a certificate that expired 90 minutes ago", expired,
                 "certificate has expired"),
      trustFault("SupportsTls11Only", "2.04", "TLS 1.1 only", "offered nothing newer than TLS 1.1",
                 old, "SSL connect error"),
  };
}

JXTestAnswer slowAnswer() {
  JXTestAnswer slow = response(Manner::SlowBytes);
  slow.headers = {{"X-Long", std::string(1'000, 'x')}};
  return slow;
}

}  // namespace

std::vector<ServerFault> transientFaults() {
  std::vector<ServerFault> faults{
      refusal(),
      connectionFault("StallsBeforeTheHeaders", "1.02", "stall before the response",
                      "read the request and sent no response",
                      respondsLate(response(Manner::StallBeforeHead)), "Timeout was reached"),
      connectionFault("RespondsTooSlowly", "1.03", "response byte by byte, too slow",
                      "sent a header section of 1 KiB, one byte every 20 ms",
                      respondsLate(slowAnswer()), "Timeout was reached"),
      connectionFault("ClosesInTheHeaders", "1.04", "close in the header section",
                      "sent half of a header section with status 200 and closed the connection",
                      respondsWith(response(Manner::CloseInHead)),
                      "incomplete response header section"),
      connectionFault("ResetsTheConnection", "1.05", "connection reset",
                      "read the request and reset the connection",
                      respondsWith(response(Manner::Reset)), ""),
      connectionFault("SendsInvalidHttp", "1.06", "invalid data instead of HTTP",
                      "sent bytes that are not HTTP", respondsWith(response(Manner::Rubbish)),
                      "HTTP/0.9"),
      connectionFault("SendsEndlessHeaders", "1.07", "endless header section",
                      "sent headers without end", respondsWith(response(Manner::EndlessHead)),
                      "header"),
      connectionFault("ClosesInTheBodyOf503", "1.08", "503, close in the body",
                      "sent the header section of a 503 and closed the connection in the body",
                      respondsWith(response(Manner::CloseInBody, 503)), "HTTP status 503"),
      statusFault(408, "3.01", "Request Timeout"),
      statusFault(425, "3.02", "Too Early"),
      statusFault(429, "3.03", "Too Many Requests, without Retry-After"),
      retryAfterFault("Responds429WithSeconds", "3.04", "seconds", "120", 120s),
      retryAfterFault("Responds429WithADate", "3.05", "a date", "Mon, 21 Sep 2026 14:15:20 GMT",
                      1s),
      statusFault(503, "3.07", "Service Unavailable"),
  };
  for (ServerFault& fault : faultsOfTrust())
    faults.push_back(std::move(fault));
  return faults;
}

std::vector<ServerFault> rejectingFaults() {
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
  faults.front().play = [](ServerScenario& scenario) {
    scenario.server.answerAll(withHeader(301, "Location", scenario.elsewhere.url("/events")));
  };
  return faults;
}

std::vector<ServerFault> deliveringFaults() {
  return {
      connectionFault("StallsInTheBody", "5.01", "stall in the body",
                      "sent the header section of a 200 and then nothing",
                      respondsLate(response(Manner::StallInBody)), ""),
      connectionFault("ClosesInTheBody", "5.02", "close in the body",
                      "sent the header section of a 200 and closed the connection in the body",
                      respondsWith(response(Manner::CloseInBody)), ""),
      connectionFault("SendsEndlessBody", "5.03", "endless body",
                      "sent the header section of a 200 and an endless body",
                      respondsWith(response(Manner::EndlessBody)), ""),
      connectionFault("RespondsByteByByte", "5.04", "response byte by byte, in time",
                      "sent a 200, one byte every 20 ms", respondsWith(response(Manner::SlowBytes)),
                      ""),
  };
}

}  // namespace jx::test
