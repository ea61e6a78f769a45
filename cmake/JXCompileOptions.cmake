# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0

# Sets the compile options of a target of this project. The options are private: consumers of the
# library inherit the include path and the C++ standard, but neither warnings nor sanitizers.
function(jx_compile_options target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
      $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor;-Woverloaded-virtual;-Wold-style-cast>
      $<$<COMPILE_LANGUAGE:C>:-Wstrict-prototypes>)
  if(JX_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(JX_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=${JX_SANITIZE} -fno-omit-frame-pointer
                           -fno-sanitize-recover=all)
    target_link_options(${target} PRIVATE -fsanitize=${JX_SANITIZE})
  endif()
endfunction()
