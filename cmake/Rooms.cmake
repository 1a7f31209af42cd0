include(${CMAKE_CURRENT_LIST_DIR}/Lean.cmake)

# The rooms and their borders. `rooms.txt` in the build folder lists them for tests/house/borders.py, which holds every
# #include against them.
set(ROOMS_LIST ${CMAKE_BINARY_DIR}/rooms.txt)
file(WRITE ${ROOMS_LIST} "")
define_property(TARGET PROPERTY IS_ROOM)
define_property(TARGET PROPERTY KNOWS_QT)

# What the toolkit converts or connects by itself and shouldn't: texts of unknown encoding, numbers that don't fit, calls
# into objects that are gone (that one from Qt 6.8 on; till then tests/house/connects.py).
set(QT_WITHOUT_SURPRISES
    QT_NO_CAST_FROM_ASCII
    QT_NO_CAST_FROM_BYTEARRAY
    QT_NO_CAST_TO_ASCII
    QT_NO_CONTEXTLESS_CONNECT
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
    QT_NO_URL_CAST_FROM_STRING)

# room(NAME SOURCES ... USES ... LIBRARIES ...): one static library per room. USES names exactly the rooms that it may
# include from, each listed above it in src/CMakeLists.txt; LIBRARIES what it needs of the system's libraries.
function(room name)
  cmake_parse_arguments(PARSE_ARGV 1 ROOM "" "" "SOURCES;USES;LIBRARIES")
  cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR BASE_DIRECTORY ${CMAKE_SOURCE_DIR}/src OUTPUT_VARIABLE folder)
  foreach(used IN LISTS ROOM_USES)
    demand_room_above(${name} ${used})
  endforeach()
  foreach(library IN LISTS ROOM_LIBRARIES)
    demand_library(${name} ${library})
  endforeach()

  add_library(${name} STATIC ${ROOM_SOURCES})
  target_link_libraries(${name} PRIVATE hardened PUBLIC house_rules ${ROOM_USES} ${ROOM_LIBRARIES})
  set_property(TARGET ${name} PROPERTY IS_ROOM TRUE)
  demand_place_for_qt(${name} ${folder} ${ROOM_USES} ${ROOM_LIBRARIES})
  precompile_room(${name})
  list(JOIN ROOM_USES " " uses)
  list(JOIN ROOM_LIBRARIES " " libraries)
  file(APPEND ${ROOMS_LIST} "${name}|${folder}|${uses}|${libraries}\n")
endfunction()

# find_room(NAME OUT): the CMakeLists.txt below src that makes the room, wherever it is listed; empty if none does.
function(find_room name out)
  file(GLOB_RECURSE lists RELATIVE ${CMAKE_SOURCE_DIR} ${CMAKE_SOURCE_DIR}/src/*/CMakeLists.txt)
  foreach(list IN LISTS lists)
    file(READ ${CMAKE_SOURCE_DIR}/${list} text)
    if(text MATCHES "(^|\n) *room\\(${name}[ \n)]")
      set(${out} ${list} PARENT_SCOPE)
      return()
    endif()
  endforeach()
  set(${out} "" PARENT_SCOPE)
endfunction()

function(demand_room_above name used)
  if(TARGET ${used})
    get_target_property(is_room ${used} IS_ROOM)
    if(is_room)
      return()
    endif()
  endif()
  find_room(${used} place)
  if(place)
    message(FATAL_ERROR "The room ${name} uses ${used}, which src/CMakeLists.txt lists later (${place}): "
                        "a room uses only rooms above its own line.")
  endif()
  message(FATAL_ERROR "The room ${name} uses ${used}, and there is no such room. "
                      "A library of the system is named under LIBRARIES.")
endfunction()

function(demand_library name library)
  find_room(${library} place)
  if(place)
    message(FATAL_ERROR "The room ${name} names ${library} under LIBRARIES, and that is a room (${place}): "
                        "rooms are named under USES.")
  endif()
  if(library MATCHES "::" AND NOT TARGET ${library})
    message(FATAL_ERROR "The room ${name} needs the library ${library}, and no find_package has found it.")
  endif()
endfunction()

# No rules know Qt, neither by themselves nor through a room they use.
function(demand_place_for_qt name folder)
  foreach(used IN LISTS ARGN)
    set(brings_qt FALSE)
    if(used MATCHES "^Qt6::")
      set(brings_qt TRUE)
    elseif(TARGET ${used})
      get_target_property(brings_qt ${used} KNOWS_QT)
    endif()
    if(brings_qt)
      if(NOT folder MATCHES "(^|/)(app|desk|ui|qt)$")
        message(FATAL_ERROR "The room ${name} gets Qt through ${used}: "
                            "only app, desk and folders named ui or qt know Qt, and src/${folder} is none of them.")
      endif()
      set_property(TARGET ${name} PROPERTY KNOWS_QT TRUE)
      target_compile_definitions(${name} PRIVATE ${QT_WITHOUT_SURPRISES})
    endif()
  endforeach()
endfunction()
