// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// The baseline of delivery: posts bodies from memory with libcurl alone, over as many connections
// and with as many requests in flight as the library uses:
//   jx_bench_curl --bodies FILE --url URL --ca FILE --connections N --in-flight N

#include <curl/curl.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/Program.h"
#include "bench/Usage.h"
#include "tests/soak/Arguments.h"

namespace jx::bench {
namespace {

struct Target {
  std::string url;
  std::string caFile;
  long connections = 1;
  std::uint64_t inFlight = 1;
};

std::vector<std::string> readBodies(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::vector<std::string> bodies;
  std::size_t length = 0;
  while (file >> length) {
    file.ignore(1);
    file.read(bodies.emplace_back(length, '\0').data(), static_cast<std::streamsize>(length));
  }
  if (bodies.empty()) throw std::runtime_error("no bodies in " + path);
  return bodies;
}

std::size_t drop(char*, std::size_t, std::size_t bytes, void*) { return bytes; }

class Sender {
 public:
  Sender(const Target& target, const std::vector<std::string>& bodies)
      : target_(target), bodies_(bodies) {
    curl_global_init(CURL_GLOBAL_DEFAULT);
    multi_ = curl_multi_init();
    curl_multi_setopt(multi_, CURLMOPT_PIPELINING, CURLPIPE_MULTIPLEX);
    curl_multi_setopt(multi_, CURLMOPT_MAX_TOTAL_CONNECTIONS, target.connections);
    headers_ = curl_slist_append(headers_, "Content-Type: application/json; charset=utf-8");
    headers_ = curl_slist_append(headers_, "Expect:");
  }
  ~Sender() {
    for (CURL* const easy : all_)
      curl_easy_cleanup(easy);
    curl_multi_cleanup(multi_);
    curl_slist_free_all(headers_);
  }
  Sender(const Sender&) = delete;
  Sender& operator=(const Sender&) = delete;

  void run() {
    const std::size_t count = std::min<std::size_t>(target_.inFlight, bodies_.size());
    for (std::size_t i = 0; i < count; ++i)
      start(createRequest());
    while (done_ < bodies_.size()) {
      int running = 0;
      curl_multi_perform(multi_, &running);
      int left = 0;
      bool ended = false;
      while (const CURLMsg* const message = curl_multi_info_read(multi_, &left)) {
        CURL* const easy = message->easy_handle;
        complete(easy, message->data.result);
        ended = true;
      }
      if (!ended) curl_multi_poll(multi_, nullptr, 0, 1'000, nullptr);
    }
  }

 private:
  CURL* createRequest() {
    CURL* const easy = curl_easy_init();
    all_.push_back(easy);
    curl_easy_setopt(easy, CURLOPT_URL, target_.url.c_str());
    curl_easy_setopt(easy, CURLOPT_CAINFO, target_.caFile.c_str());
    curl_easy_setopt(easy, CURLOPT_POST, 1L);
    curl_easy_setopt(easy, CURLOPT_HTTPHEADER, headers_);
    curl_easy_setopt(easy, CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_2TLS));
    curl_easy_setopt(easy, CURLOPT_PIPEWAIT, target_.connections == 1 ? 1L : 0L);
    curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(easy, CURLOPT_NOPROXY, "*");
    curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, drop);
    return easy;
  }

  void start(CURL* easy) {
    if (next_ == bodies_.size()) return;
    const std::string& body = bodies_[next_++];
    curl_easy_setopt(easy, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(body.size()));
    curl_easy_setopt(easy, CURLOPT_POSTFIELDS, body.data());
    if (curl_multi_add_handle(multi_, easy) != CURLM_OK) {
      throw std::runtime_error("curl_multi_add_handle failed");
    }
  }

  void complete(CURL* easy, CURLcode code) {
    long status = 0;
    curl_easy_getinfo(easy, CURLINFO_RESPONSE_CODE, &status);
    curl_multi_remove_handle(multi_, easy);
    if (code != CURLE_OK || status / 100 != 2) {
      throw std::runtime_error("a request failed: " + std::string(curl_easy_strerror(code)) +
                               ", status " + std::to_string(status));
    }
    ++done_;
    start(easy);
  }

  const Target& target_;
  const std::vector<std::string>& bodies_;
  CURLM* multi_ = nullptr;
  curl_slist* headers_ = nullptr;
  std::vector<CURL*> all_;
  std::size_t next_ = 0;
  std::size_t done_ = 0;
};

int run(const std::vector<std::string>& words) {
  soak::Arguments arguments(words);
  Target target;
  target.url = arguments.text("url");
  target.caFile = arguments.text("ca");
  target.connections = static_cast<long>(arguments.number("connections", 1));
  target.inFlight = arguments.number("in-flight", 1);
  const std::vector<std::string> bodies = readBodies(arguments.text("bodies"));
  arguments.expectAllKnown();

  const Usage before = Usage::now();
  Sender(target, bodies).run();
  const Usage used = Usage::now() - before;
  std::printf(R"({"ms": %.2f, "cpu_ms": %.2f, "delivered": %zu})"
              "\n",
              used.wholeMs, used.processorMs, bodies.size());
  return 0;
}

}  // namespace
}  // namespace jx::bench

int main(int argc, char** argv) {
  return jx::bench::runProgram("jx_bench_curl", argc, argv, jx::bench::run);
}
