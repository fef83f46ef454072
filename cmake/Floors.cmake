# The floors of the house. A floor sees its own headers and those of the floors that it links, and no others: the
# headers of src/<floor> are reached as "<floor>/name.h" through a folder of the build tree that holds only that floor,
# so an include that looks up does not build.

add_library(korvane_flags INTERFACE)
target_compile_options(korvane_flags INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
if(KORVANE_WERROR)
  target_compile_options(korvane_flags INTERFACE -Werror)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # g++ 12 takes a literal joined with a std::string for an overlapping copy (its bug 105651).
  target_compile_options(korvane_flags INTERFACE -Wno-restrict)
endif()
# What a program never calls isn't in it, and what it calls lies closer together: less to be read at its start.
target_compile_options(korvane_flags INTERFACE $<$<CONFIG:Release>:-ffunction-sections>)
target_link_options(korvane_flags INTERFACE $<$<CONFIG:Release>:-Wl,--gc-sections>)
if(KORVANE_SANITIZE)
  target_compile_options(korvane_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                 -fno-omit-frame-pointer)
  # The sanitizers' own code makes g++ see variables that may be uninitialized where none are.
  target_compile_options(korvane_flags INTERFACE -Wno-maybe-uninitialized)
  target_link_options(korvane_flags INTERFACE -fsanitize=address,undefined)
endif()

# korvane_floor(NAME floor SOURCES file... LINKS library...): the library korvane_<floor> from src/<floor>.
function(korvane_floor)
  cmake_parse_arguments(FLOOR "" "NAME" "SOURCES;LINKS" ${ARGN})
  set(view ${PROJECT_BINARY_DIR}/floors/${FLOOR_NAME})
  file(MAKE_DIRECTORY ${view})
  file(CREATE_LINK ${PROJECT_SOURCE_DIR}/src/${FLOOR_NAME} ${view}/${FLOOR_NAME} SYMBOLIC)
  list(TRANSFORM FLOOR_SOURCES PREPEND ${FLOOR_NAME}/)
  add_library(korvane_${FLOOR_NAME} STATIC ${FLOOR_SOURCES})
  target_include_directories(korvane_${FLOOR_NAME} PUBLIC ${view})
  target_link_libraries(korvane_${FLOOR_NAME} PUBLIC ${FLOOR_LINKS} PRIVATE korvane_flags)
endfunction()
