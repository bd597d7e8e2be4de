# vesmora_glob(OUT [INCLUDE REGEX] [EXCLUDE REGEX] PATTERNS PATTERN...): absolute paths of the files
# below the current source folder that match, found again on every build. Filters run on paths
# relative to that folder, so the place of the checkout never matters. What is written for another
# system (*_posix.cpp, *_windows.cpp and their tests) is left out.
function(vesmora_glob out)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "INCLUDE;EXCLUDE" "PATTERNS")
  file(GLOB_RECURSE files CONFIGURE_DEPENDS
    RELATIVE "${CMAKE_CURRENT_SOURCE_DIR}" ${arg_PATTERNS})
  if(arg_INCLUDE)
    list(FILTER files INCLUDE REGEX "${arg_INCLUDE}")
  endif()
  if(arg_EXCLUDE)
    list(FILTER files EXCLUDE REGEX "${arg_EXCLUDE}")
  endif()
  if(WIN32)
    list(FILTER files EXCLUDE REGEX "_posix(_test)?\\.cpp$")
  else()
    list(FILTER files EXCLUDE REGEX "_windows(_test)?\\.cpp$")
  endif()
  list(TRANSFORM files PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/")
  set(${out} ${files} PARENT_SCOPE)
endfunction()

# What moc writes is not ours to polish: no warnings from the file that collects it.
function(vesmora_quiet_moc target)
  set_source_files_properties(
    "${CMAKE_CURRENT_BINARY_DIR}/${target}_autogen/mocs_compilation.cpp"
    PROPERTIES COMPILE_OPTIONS "-w")
endfunction()
