# What a mistake in memory can't be turned into. tests/house/guarded.py reads the programs for it.
set(can_be_hardened ON)
if(QUBLET_SANITIZE OR QUBLET_FUZZ OR CMAKE_BUILD_TYPE STREQUAL "Debug")
  set(can_be_hardened OFF)  # sanitizers see more, and FORTIFY needs optimisation
endif()
option(QUBLET_HARDENED "Guards against misuse of memory in rooms and programs" ${can_be_hardened})

# For the sources of rooms and programs. Tests do without: they aren't optimised. It is named before Qt, which wants
# -fPIC and has the last word.
add_library(hardened INTERFACE)

# harden_program(TARGET): the guards of a whole program. Comes before its libraries are named.
function(harden_program target)
  target_link_libraries(${target} PRIVATE hardened)
  if(NOT QUBLET_HARDENED)
    return()
  endif()
  if(WIN32)
    target_link_options(${target} PRIVATE -Wl,--dynamicbase,--high-entropy-va,--nxcompat)
    return()
  endif()
  target_link_options(${target} PRIVATE -pie -Wl,-z,relro,-z,now,-z,noexecstack)
  if(CMAKE_SYSTEM_PROCESSOR STREQUAL "x86_64")
    # The linker gives this mark up for start files of the C library that lack it, which keep to shadow stacks all the
    # same. The mark for indirect branches (IBT) they lack with reason.
    target_link_options(${target} PRIVATE -Wl,-z,shstk)
  endif()
endfunction()

if(NOT QUBLET_HARDENED)
  return()
endif()
target_compile_options(hardened INTERFACE -fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3
                                          -D_GLIBCXX_ASSERTIONS)
# With mingw that brings the library which the checks call; it is linked in.
target_link_options(hardened INTERFACE -fstack-protector-strong)
if(NOT WIN32)
  target_compile_options(hardened INTERFACE -fstack-clash-protection -fPIE)
  if(CMAKE_SYSTEM_PROCESSOR STREQUAL "x86_64")
    target_compile_options(hardened INTERFACE -fcf-protection=full)
  endif()
endif()
