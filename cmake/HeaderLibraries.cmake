# vesmora_header_libraries: CLI11 and JSON for Modern C++, which are headers only and therefore the
# build system's own on any target.
find_path(VESMORA_CLI11 CLI/CLI.hpp REQUIRED NO_CMAKE_FIND_ROOT_PATH)
find_path(VESMORA_JSON nlohmann/json.hpp REQUIRED NO_CMAKE_FIND_ROOT_PATH)
mark_as_advanced(VESMORA_CLI11 VESMORA_JSON)

# By links to just these folders: what else lies beside them may be for another target.
set(header_links "${CMAKE_BINARY_DIR}/headers")
file(MAKE_DIRECTORY "${header_links}")
file(CREATE_LINK "${VESMORA_CLI11}/CLI" "${header_links}/CLI" SYMBOLIC)
file(CREATE_LINK "${VESMORA_JSON}/nlohmann" "${header_links}/nlohmann" SYMBOLIC)

add_library(vesmora_header_libraries INTERFACE)
target_include_directories(vesmora_header_libraries SYSTEM INTERFACE "${header_links}")
