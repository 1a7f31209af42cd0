# Programs that run while building, and so are made for the machine that builds, whatever system the rooms are made for.
if(CMAKE_CROSSCOMPILING)
  find_program(QUBLET_OWN_CXX NAMES c++ g++ clang++ REQUIRED DOC "A C++ compiler for the machine that builds")
else()
  set(QUBLET_OWN_CXX ${CMAKE_CXX_COMPILER})
endif()

# build_program(NAME OUT SOURCES ... LIBRARIES ...): sets OUT to the program, which a command of the same folder may run
# and depend on. LIBRARIES are named as the compiler's -l knows them.
function(build_program name out)
  cmake_parse_arguments(PARSE_ARGV 2 PROGRAM "" "" "SOURCES;LIBRARIES")
  set(objects "")
  foreach(source IN LISTS PROGRAM_SOURCES)
    set(object ${CMAKE_CURRENT_BINARY_DIR}/${name}.dir/${source}.o)
    cmake_path(GET object PARENT_PATH folder)
    file(MAKE_DIRECTORY ${folder})
    # The same numbers on every machine: no fused multiplications.
    add_custom_command(
      OUTPUT ${object}
      COMMAND ${CMAKE_CXX_COMPILER_LAUNCHER} ${QUBLET_OWN_CXX} -std=c++20 -O1 -ffp-contract=off -I${CMAKE_SOURCE_DIR}/src
              -MD -MF ${object}.d -c ${CMAKE_CURRENT_SOURCE_DIR}/${source} -o ${object}
      DEPENDS ${source}
      DEPFILE ${object}.d
      COMMENT "For building: ${source}"
      VERBATIM)
    list(APPEND objects ${object})
  endforeach()
  set(program ${CMAKE_CURRENT_BINARY_DIR}/${name})
  if(CMAKE_HOST_WIN32)
    string(APPEND program .exe)
  endif()
  list(TRANSFORM PROGRAM_LIBRARIES PREPEND -l)
  add_custom_command(OUTPUT ${program} COMMAND ${QUBLET_OWN_CXX} ${objects} ${PROGRAM_LIBRARIES} -o ${program}
                     DEPENDS ${objects} VERBATIM)
  set(${out} ${program} PARENT_SCOPE)
endfunction()
