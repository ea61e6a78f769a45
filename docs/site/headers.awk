# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
#
# Doxygen reads the headers through this. What says everything by its place gets the comment that
# it would otherwise repeat: a setter below its accessor, and a key below its group's title. No line
# is added, so that warnings keep their place.

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
