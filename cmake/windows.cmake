# Cross-building for 64-bit Windows by mingw, on libraries that stand in $QUBLET_WINDOWS_LIBRARIES.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# Windows 10 and later; no library of the compiler's need stand beside a program.
add_compile_definitions(_WIN32_WINNT=0x0A00 UNICODE _UNICODE)
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
set(ZLIB_USE_STATIC_LIBS ON)

set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 $ENV{QUBLET_WINDOWS_LIBRARIES})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_LIBDIR} $ENV{QUBLET_WINDOWS_LIBRARIES}/lib/pkgconfig)
