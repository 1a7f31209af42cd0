# A build on a machine where nothing was compiled before: headers that many sources include are compiled once, and
# programs know their lines but not their variables. That takes a third off the time. Elsewhere ccache does better.
option(QUBLET_LEAN "Build in less time, without a compiler cache and a debugger" OFF)

if(QUBLET_LEAN)
  set(CMAKE_CXX_FLAGS_DEBUG "-g1")
  set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O2 -g1 -DNDEBUG")
endif()

set(LIBRARY_HEADERS <algorithm> <chrono> <filesystem> <functional> <map> <memory> <optional> <ostream> <string>
                    <string_view> <vector>)

# precompile(TARGET GROUP HEADERS ... RULES ... DEFINITIONS ...): once for all targets of a group, which are compiled by
# the same rules. What only some of them define must mean nothing to the headers.
function(precompile target group)
  if(NOT QUBLET_LEAN)
    return()
  endif()
  set(holder precompiled_${group})
  if(NOT TARGET ${holder})
    cmake_parse_arguments(PARSE_ARGV 2 GROUP "" "" "HEADERS;RULES;DEFINITIONS")
    file(WRITE ${CMAKE_BINARY_DIR}/${holder}.cpp "")
    add_library(${holder} OBJECT ${CMAKE_BINARY_DIR}/${holder}.cpp)
    target_link_libraries(${holder} PRIVATE house_rules ${GROUP_RULES})
    target_compile_definitions(${holder} PRIVATE ${GROUP_DEFINITIONS})
    target_precompile_headers(${holder} PRIVATE ${LIBRARY_HEADERS} ${GROUP_HEADERS})
  endif()
  target_precompile_headers(${target} REUSE_FROM ${holder})
  # GCC 12 sees faults in the library's own text where that comes precompiled.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(${target} PRIVATE -Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread)
  endif()
endfunction()

# The rules of the release build, which users make, do without: a source that forgets an include is found there.
function(precompile_room room)
  get_target_property(knows_qt ${room} KNOWS_QT)
  if(knows_qt)
    precompile(${room} windows HEADERS <QtWidgets> RULES hardened Qt6::Widgets DEFINITIONS ${QT_WITHOUT_SURPRISES})
  elseif(WIN32 OR NOT CMAKE_BUILD_TYPE STREQUAL "Release")
    precompile(${room} rules RULES hardened)
  endif()
endfunction()

function(precompile_tests program)
  get_target_property(libraries ${program} LINK_LIBRARIES)
  if(Qt6::Test IN_LIST libraries)
    # Qt's own header for tests is another one in each folder.
    precompile(${program} window_tests HEADERS <gtest/gtest.h> <QtWidgets> RULES test_rules Qt6::Widgets)
  else()
    precompile(${program} tests HEADERS <gtest/gtest.h> RULES test_rules)
  endif()
endfunction()
