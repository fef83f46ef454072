# The engine for browsers, by Debian's emscripten: korvane-web.js and korvane-web.wasm, which scripts/web.sh puts into one page.

# Headers alone; nothing else of the system's is to be seen.
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/include)
file(CREATE_LINK /usr/include/nlohmann ${PROJECT_BINARY_DIR}/include/nlohmann SYMBOLIC)
add_library(nlohmann_json INTERFACE)
target_include_directories(nlohmann_json SYSTEM INTERFACE ${PROJECT_BINARY_DIR}/include)
add_library(nlohmann_json::nlohmann_json ALIAS nlohmann_json)

# What its library lacks is in one header; the sources know nothing of it.
set(lacking ${PROJECT_SOURCE_DIR}/src/web/lacking)
add_compile_options(-fwasm-exceptions -include ${lacking}/lacking.h -I${lacking})
add_link_options(-fwasm-exceptions)
add_library(nettle STATIC ${lacking}/sha256.cpp)
add_library(PkgConfig::nettle ALIAS nettle)

add_subdirectory(src)
