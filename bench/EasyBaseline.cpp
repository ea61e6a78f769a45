// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// The baseline of paced events: for each event, RapidJSON serialises the body from existing values,
// one plain write stores it, and libcurl's easy interface posts it over one kept connection:
//   jx_bench_easy --bodies FILE --url URL --ca FILE --events N --pace-us N [--store FILE]
//
//   --bodies   a file of jx_bench_application, of which the first body is used
//   --store    serialise the body for each event and write it to FILE; otherwise post it only

#include <curl/curl.h>
#include <fcntl.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "bench/JsonBaseline.h"
#include "bench/Program.h"
#include "bench/Usage.h"
#include "tests/soak/Arguments.h"

namespace jx::bench {
namespace {

std::string readFirstBody(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::size_t length = 0;
  if (!(file >> length)) throw std::runtime_error("no bodies in " + path);
  file.ignore(1);
  std::string body(length, '\0');
  file.read(body.data(), static_cast<std::streamsize>(length));
  return body;
}

std::size_t drop(char*, std::size_t, std::size_t bytes, void*) { return bytes; }

class Poster {
 public:
  Poster(const std::string& url, const std::string& caFile) : easy_(curl_easy_init()) {
    headers_ = curl_slist_append(headers_, "Content-Type: application/json; charset=utf-8");
    headers_ = curl_slist_append(headers_, "Expect:");
    curl_easy_setopt(easy_, CURLOPT_URL, url.c_str());
    curl_easy_setopt(easy_, CURLOPT_CAINFO, caFile.c_str());
    curl_easy_setopt(easy_, CURLOPT_POST, 1L);
    curl_easy_setopt(easy_, CURLOPT_HTTPHEADER, headers_);
    curl_easy_setopt(easy_, CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_2TLS));
    curl_easy_setopt(easy_, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(easy_, CURLOPT_NOPROXY, "*");
    curl_easy_setopt(easy_, CURLOPT_WRITEFUNCTION, drop);
  }
  ~Poster() {
    curl_easy_cleanup(easy_);
    curl_slist_free_all(headers_);
  }
  Poster(const Poster&) = delete;
  Poster& operator=(const Poster&) = delete;

  void post(std::string_view body) {
    curl_easy_setopt(easy_, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(body.size()));
    curl_easy_setopt(easy_, CURLOPT_POSTFIELDS, body.data());
    const CURLcode code = curl_easy_perform(easy_);
    long status = 0;
    curl_easy_getinfo(easy_, CURLINFO_RESPONSE_CODE, &status);
    if (code != CURLE_OK || status / 100 != 2) {
      throw std::runtime_error("a request failed: " + std::string(curl_easy_strerror(code)) +
                               ", status " + std::to_string(status));
    }
  }

 private:
  CURL* const easy_;
  curl_slist* headers_ = nullptr;
};

class Store {
 public:
  explicit Store(const std::string& path)
      : file_(::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC, 0600)) {
    if (file_ < 0) throw std::runtime_error("cannot create " + path);
  }
  ~Store() { ::close(file_); }
  Store(const Store&) = delete;
  Store& operator=(const Store&) = delete;

  void append(std::string_view body) const {
    if (::write(file_, body.data(), body.size()) != std::ssize(body)) {
      throw std::runtime_error("incomplete write");
    }
  }

 private:
  const int file_;
};

int run(const std::vector<std::string>& words) {
  soak::Arguments arguments(words);
  const std::string body = readFirstBody(arguments.text("bodies"));
  const std::string url = arguments.text("url");
  const std::string caFile = arguments.text("ca");
  const std::string store = arguments.text("store");
  const std::uint64_t events = arguments.number("events", 1);
  const std::chrono::microseconds pace(arguments.number("pace-us", 0));
  arguments.expectAllKnown();

  curl_global_init(CURL_GLOBAL_DEFAULT);
  JsonBaseline json(body);
  if (json.write() != body) throw std::runtime_error("RapidJSON writes a different body");
  const Store file(store.empty() ? "/dev/null" : store);
  const Usage before = Usage::now();
  {
    Poster poster(url, caFile);
    for (std::uint64_t i = 0; i < events; ++i) {
      if (pace.count() != 0) std::this_thread::sleep_for(pace);
      const std::string_view bytes = store.empty() ? std::string_view(body) : json.write();
      if (!store.empty()) file.append(bytes);
      poster.post(bytes);
    }
  }
  const Usage used = Usage::now() - before;
  std::printf(R"({"ms": %.2f, "cpu_ms": %.2f, "delivered": %llu})"
              "\n",
              used.wholeMs, used.processorMs, static_cast<unsigned long long>(events));
  return 0;
}

}  // namespace
}  // namespace jx::bench

int main(int argc, char** argv) {
  return jx::bench::runProgram("jx_bench_easy", argc, argv, jx::bench::run);
}
