# Builds for 64-bit Windows with Debian's cross compiler. ZELVO_WINDOWS_LIBRARIES, in the environment, lists the folders
# of the libraries that tools/windows/libraries.sh has made.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(triplet x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${triplet}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triplet}-g++-posix)
set(CMAKE_RC_COMPILER ${triplet}-windres)
set(CMAKE_AR ${triplet}-gcc-ar-posix)
set(CMAKE_RANLIB ${triplet}-gcc-ranlib-posix)
set(CMAKE_STRIP ${triplet}-strip)

set(CMAKE_FIND_ROOT_PATH /usr/${triplet} $ENV{ZELVO_WINDOWS_LIBRARIES})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# What a library says of itself is read from those folders alone.
set(packages $ENV{ZELVO_WINDOWS_LIBRARIES})
list(TRANSFORM packages APPEND /lib/pkgconfig)
list(JOIN packages ":" packages)
set(ENV{PKG_CONFIG_LIBDIR} "${packages}")

# Nothing but the system's own libraries is asked for beside the program.
set(ZLIB_LIBRARY /usr/${triplet}/lib/libz.a CACHE FILEPATH "")
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
set(CMAKE_SHARED_LINKER_FLAGS_INIT -static)
set(CMAKE_MODULE_LINKER_FLAGS_INIT -static)
set(CMAKE_LINK_SEARCH_START_STATIC ON)
set(CMAKE_LINK_SEARCH_END_STATIC ON)

# Windows 10: what the clinics still have.
add_compile_definitions(_WIN32_WINNT=0x0A00 WINVER=0x0A00 UNICODE _UNICODE)

set(CMAKE_CROSSCOMPILING_EMULATOR wine)

# The toolkit's own tools, which run here.
set(QT_HOST_PATH /usr CACHE PATH "")
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/x86_64-linux-gnu/cmake CACHE PATH "")
