#pragma once

// The system's header without what collides with ours. Everything that needs it includes this one.
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

// Its macros would rename functions of FileSystem.
#undef CopyFile
#undef DeleteFile
