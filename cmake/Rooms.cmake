# What the compiler says of our own code ends the build.
function(zelvo_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror
                         # GCC 12 warns of std::string + "literal" where nothing overlaps.
                         $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
endfunction()

# What differs between systems stands in two files beside each other, Name_posix.cpp and Name_windows.cpp.
if(WIN32)
  set(ZELVO_SYSTEM windows)
  set(ZELVO_OTHER_SYSTEM posix)
else()
  set(ZELVO_SYSTEM posix)
  set(ZELVO_OTHER_SYSTEM windows)
endif()

# One static library a folder of src/, named zelvo_<folder>, so that the linker sees the order of the house as well.
# zelvo_room(screen USES basics tables) builds src/screen/*.cpp against the rooms below it.
function(zelvo_room name)
  cmake_parse_arguments(ROOM "" "FOLDER" "USES;LINK" ${ARGN})
  if(NOT ROOM_FOLDER)
    set(ROOM_FOLDER ${name})
  endif()
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/${ROOM_FOLDER}/*.cpp)
  list(FILTER sources EXCLUDE REGEX "_${ZELVO_OTHER_SYSTEM}\\.cpp$")
  if(NOT sources)
    add_library(zelvo_${name} INTERFACE)
    set(scope INTERFACE)
  else()
    add_library(zelvo_${name} STATIC ${sources})
    set(scope PUBLIC)
    zelvo_warnings(zelvo_${name})
  endif()
  target_include_directories(zelvo_${name} ${scope} ${CMAKE_SOURCE_DIR}/src)
  foreach(room ${ROOM_USES})
    target_link_libraries(zelvo_${name} ${scope} zelvo_${room})
  endforeach()
  if(ROOM_LINK)
    target_link_libraries(zelvo_${name} ${scope} ${ROOM_LINK})
  endif()
endfunction()
