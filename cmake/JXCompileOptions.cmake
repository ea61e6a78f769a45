# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0

# What every target of ours is compiled with. Private to our targets: a consumer of the library
# inherits the include path and the C++ standard, and neither our warnings nor our sanitizers.
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
