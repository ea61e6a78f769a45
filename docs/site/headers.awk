# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
#
# Doxygen's filter for headers. Adds the comments that the headers omit as repetitive: to a setter
# below its accessor, and to a key constant below its group's title. No line is added, so that
# warnings show the right line number.

# The C headers have no classes, so each is documented as a file.
FNR == 1 {
  isC = FILENAME ~ /(^|\/)jx\/c\//
  field = ""
}

isC && !hasFileComment && /^$/ {
  $0 = "/** @file */"
  hasFileComment = 1
}

# A string constant of the C API, and the function below it that sets the field of this name.
isC && /^#define [A-Za-z_]+ "/ {
  field = $2
  if (before !~ /^\/\/\//) $0 = $0 " /**< The string `" $3 "`. */"
}

isC && field != "" && /^static inline / && before !~ /^ *\/\/\// {
  $0 = "/** Sets the field of `" field "`. */ " $0
}

# The accessor declared last: "name() const".
match($0, /[A-Za-z_][A-Za-z_0-9]*\(\) const/) {
  accessor = substr($0, RSTART, RLENGTH - 8)
  setter = "set" toupper(substr(accessor, 1, 1)) substr(accessor, 2)
}

accessor != "" && index($0, "void " setter "(") && before !~ /^ *\/\/\// {
  sub(/^ */, "&/** Sets the value of " accessor "(). */ ")
}

# A string constant, which may continue on the next line.
/^inline constexpr std::string_view|^static const char/ {
  bare = before !~ /^ *\/\/\/ [^@]/
}

bare && match($0, /"[^"]*";$/) {
  $0 = $0 " ///< The string `" substr($0, RSTART, RLENGTH - 1) "`."
  bare = 0
}

{
  before = $0
  # Doxygen would join a trailing comment with the comment of the next member.
  if (sub(/\/\/\/< /, "/**< ")) $0 = $0 " */"
  print
}
