# cmake -D SOURCE=folder -D VERSION=version -P VersionsAgree.cmake: fails where the newest version of the changelog or of
# the metadata is another one. What is not released yet may stand above it in the changelog.
function(check file line)
  file(STRINGS ${SOURCE}/${file} versions REGEX "${line}")
  list(POP_FRONT versions newest)
  string(REGEX REPLACE "${line}.*" "\\1" newest "${newest}")
  if(NOT newest STREQUAL VERSION)
    message(SEND_ERROR "CMakeLists.txt has version ${VERSION}, ${file} has ${newest}")
  endif()
endfunction()

check(CHANGELOG.md "^## ([0-9.]+)")
check(desktop/org.korvane.Korvane.metainfo.xml "^ *<release version=\"([0-9.]+)\"")
