# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
#
# Doxygen reads the headers through this. What says everything by its place gets the comment that
# it would otherwise repeat: a setter below its accessor, and a key below its group's title. No line
# is added, so that warnings keep their place.

# The C headers have no class to stand in, so each is told as a file.
FNR == 1 {
  isC = FILENAME ~ /(^|\/)jx\/c\//
  field = ""
}

isC && !told && /^$/ {
  $0 = "/** @file */"
  told = 1
}

# A text of C, and the operation below it that sets the field of this name.
isC && /^#define [A-Za-z_]+ "/ {
  field = $2
  if (before !~ /^\/\/\//) $0 = $0 " /**< The text `" $3 "`. */"
}

isC && field != "" && /^static inline / && before !~ /^ *\/\/\// {
  $0 = "/** Sets the field of `" field "`. */ " $0
}

# The accessor that was declared last: "name() const".
match($0, /[A-Za-z_][A-Za-z_0-9]*\(\) const/) {
  accessor = substr($0, RSTART, RLENGTH - 8)
  setter = "set" toupper(substr(accessor, 1, 1)) substr(accessor, 2)
}

accessor != "" && index($0, "void " setter "(") && before !~ /^ *\/\/\// {
  sub(/^ */, "&/** Sets what " accessor "() returns. */ ")
}

# A text constant, which may go on to the next line.
/^inline constexpr std::string_view/ {
  bare = before !~ /^ *\/\/\/ [^@]/
}

bare && match($0, /"[^"]*";$/) {
  $0 = $0 " ///< The text `" substr($0, RSTART, RLENGTH - 1) "`."
  bare = 0
}

{
  before = $0
  # A comment behind a member would go on with the comment of the member below it.
  if (sub(/\/\/\/< /, "/**< ")) $0 = $0 " */"
  print
}
