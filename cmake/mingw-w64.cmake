# Compiles for Windows on Debian: mingw-w64 with POSIX threads, everything linked into the program.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(mingw_triple x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${mingw_triple}-gcc-posix)
set(CMAKE_CXX_COMPILER ${mingw_triple}-g++-posix)
set(CMAKE_RC_COMPILER ${mingw_triple}-windres)

# Windows 10 is what the calls need; file offsets have 64 bits, and the C library has the calls of POSIX that it can have.
set(CMAKE_C_FLAGS_INIT "-D_WIN32_WINNT=0x0A00 -D_FILE_OFFSET_BITS=64 -D_POSIX_C_SOURCE=200809L")
set(CMAKE_CXX_FLAGS_INIT "-D_WIN32_WINNT=0x0A00 -D_FILE_OFFSET_BITS=64 -D_POSIX_C_SOURCE=200809L")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -static-libgcc -static-libstdc++")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static -static-libgcc -static-libstdc++")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-static -static-libgcc -static-libstdc++")

# Libraries come from cmake/windows_libraries.sh and from the cross packages, never from this machine's own system.
get_filename_component(windows_libraries ${CMAKE_CURRENT_LIST_DIR}/../build/windows-libraries ABSOLUTE)
set(CMAKE_FIND_ROOT_PATH ${windows_libraries} /usr/${mingw_triple})
set(CMAKE_PREFIX_PATH ${windows_libraries})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_LIBDIR} ${windows_libraries}/lib/pkgconfig:/usr/${mingw_triple}/lib/pkgconfig)

set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/wine.sh)
