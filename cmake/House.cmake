# The rules of the house: how a room is built, what every source is compiled with, where programs go.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release)
endif()

find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

find_package(Threads REQUIRED)
find_package(ZLIB REQUIRED)
find_package(PkgConfig REQUIRED)
pkg_check_modules(UTF8PROC REQUIRED IMPORTED_TARGET libutf8proc)
if(NOT WIN32)
  pkg_check_modules(DBUS REQUIRED IMPORTED_TARGET dbus-1)
endif()

add_library(house_rules INTERFACE)
target_include_directories(house_rules INTERFACE ${CMAKE_SOURCE_DIR}/src)
target_compile_options(house_rules INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion
                                             -Wnon-virtual-dtor -Woverloaded-virtual)
# GCC 12 sees overlaps in std::string's operator+ that aren't there.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(house_rules INTERFACE -Wno-restrict)
endif()
if(QUBLET_WERROR)
  target_compile_options(house_rules INTERFACE -Werror)
endif()
if(QUBLET_SANITIZE)
  target_compile_options(house_rules INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                               -fno-omit-frame-pointer)
  target_link_options(house_rules INTERFACE -fsanitize=address,undefined)
endif()
if(QUBLET_FUZZ)
  # Which lines the inputs reach is counted for those who ask (see tests/fuzz/coverage.py).
  set(counted -fprofile-instr-generate=/dev/null -fcoverage-mapping)
  target_compile_options(house_rules INTERFACE -fsanitize=fuzzer-no-link,address,undefined
                                               -fno-sanitize-recover=all ${counted})
  target_link_options(house_rules INTERFACE -fsanitize=address,undefined ${counted})
endif()

include(Hardened)
include(Rooms)
include(BuildProgram)
