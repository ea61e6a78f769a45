# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0

# Generates a source file that contains the files of the web UI as byte arrays:
#   cmake -D PAGE_FOLDER=... -D OUTPUT=... -P EmbedPage.cmake
file(GLOB files LIST_DIRECTORIES false ${PAGE_FOLDER}/*.html ${PAGE_FOLDER}/*.js
     ${PAGE_FOLDER}/*.css ${PAGE_FOLDER}/*.svg)
list(SORT files)
set(arrays "")
set(entries "")
set(number 0)
foreach(path ${files})
  get_filename_component(name ${path} NAME)
  file(READ ${path} hex HEX)
  if(hex STREQUAL "")
    message(FATAL_ERROR "${path} is empty")
  endif()
  string(REGEX REPLACE "([0-9a-f][0-9a-f])" "'\\\\x\\1'," bytes "${hex}")
  string(APPEND arrays "constexpr char kFile${number}[] = {${bytes}};\n")
  string(APPEND entries "      {\"${name}\", {kFile${number}, sizeof kFile${number}}},\n")
  math(EXPR number "${number} + 1")
endforeach()
file(WRITE ${OUTPUT} "#include \"tools/jx/collector/PageFiles.h\"

namespace jx {
namespace {

${arrays}
}  // namespace

const std::vector<PageFile>& pageFiles() {
  static const auto& files = *new std::vector<PageFile>{
${entries}  };
  return files;
}

}  // namespace jx
")
