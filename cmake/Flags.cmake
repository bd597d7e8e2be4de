# vesmora_flags: what every target of the project is compiled and linked with.
add_library(vesmora_flags INTERFACE)

# Coordinates are single precision in the file format: results must not depend on what the
# compiler fuses or reorders. Nobody reads errno after a math function, so lrint may be inlined.
target_compile_options(vesmora_flags INTERFACE -ffp-contract=off -fno-math-errno)

target_compile_options(vesmora_flags INTERFACE
  -Wall -Wextra -Wpedantic
  -Wcast-align
  -Wcast-qual
  -Wconversion
  -Wextra-semi
  -Wformat=2
  -Wimplicit-fallthrough
  -Wnon-virtual-dtor
  -Wold-style-cast
  -Woverloaded-virtual
  -Wshadow
  -Wsign-conversion
  -Wundef
  -Wunused)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(vesmora_flags INTERFACE
    -Wduplicated-branches
    -Wduplicated-cond
    -Wlogical-op)
  if(CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # g++ 12 sees overlapping copies inside std::string's own operator+.
    target_compile_options(vesmora_flags INTERFACE -Wno-restrict)
  endif()
endif()
if(VESMORA_WERROR)
  target_compile_options(vesmora_flags INTERFACE -Werror)
endif()

# What is handed out carries no path of whoever builds it, and is the same wherever it is built.
target_compile_options(vesmora_flags INTERFACE
  $<$<CONFIG:Release>:-ffile-prefix-map=${CMAKE_SOURCE_DIR}=.>)

if(WIN32)
  # The calls of Windows 10 in their wide form, no macros named like std::min, M_PI as elsewhere.
  target_compile_definitions(vesmora_flags INTERFACE
    UNICODE NOMINMAX _WIN32_WINNT=0x0A00 _USE_MATH_DEFINES)
endif()

# Checked standard containers wherever speed is not the point.
target_compile_definitions(vesmora_flags INTERFACE $<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)

if(VESMORA_SANITIZE)
  list(JOIN VESMORA_SANITIZE "," sanitizers)
  set(sanitizer_flags -fsanitize=${sanitizers} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_compile_options(vesmora_flags INTERFACE ${sanitizer_flags})
  target_link_options(vesmora_flags INTERFACE ${sanitizer_flags})
endif()

if(VESMORA_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    message(FATAL_ERROR "The fuzz targets need clang: configure with the preset 'fuzz'.")
  endif()
  # Coverage feedback in the library; only the fuzz executables link libFuzzer's main.
  target_compile_options(vesmora_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()

if(VESMORA_COVERAGE)
  target_compile_options(vesmora_flags INTERFACE --coverage)
  target_link_options(vesmora_flags INTERFACE --coverage)
endif()
