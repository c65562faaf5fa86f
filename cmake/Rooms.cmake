# vantrel_room(NAME [LINK ...] [EXCLUDE ...] [DRAW_ALSO ...] [DRAW_LINK ...])
#
# Makes the library NAME from the .cpp files of the current folder. Files that end in
# "Draw.cpp", and those in DRAW_ALSO, include GL and go to a second library, NAME_draw, which
# programs without a screen don't link. LINK names the rooms that the folder's files include, all
# of them below it (src/CMakeLists.txt); the test `rooms` holds it to that.
#
# With VANTREL_LTO a library's objects hold both code as usual, for tests, which link fast, and what
# it was made from: programs that vantrel_whole(NAME) is called for are optimised as one from that.
find_package(OpenGL REQUIRED)

function(vantrel_room name)
  cmake_parse_arguments(ROOM "" "" "LINK;EXCLUDE;DRAW_ALSO;DRAW_LINK" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS *.cpp)
  list(TRANSFORM ROOM_EXCLUDE PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
  if(ROOM_EXCLUDE)
    list(REMOVE_ITEM sources ${ROOM_EXCLUDE})
  endif()
  file(GLOB draw CONFIGURE_DEPENDS *Draw.cpp)
  foreach(file ${ROOM_DRAW_ALSO})
    if(EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${file})
      list(APPEND draw ${CMAKE_CURRENT_SOURCE_DIR}/${file})
    endif()
  endforeach()
  if(draw)
    list(REMOVE_ITEM sources ${draw})
  endif()
  vantrel_library(${name} SOURCES ${sources} LINK ${ROOM_LINK})
  vantrel_library(${name}_draw SOURCES ${draw}
    LINK ${name} ${ROOM_DRAW_LINK} OpenGL::GL OpenGL::GLU)
endfunction()

function(vantrel_whole name)
  if(VANTREL_LTO)
    target_compile_options(${name} PRIVATE -flto=auto)
    target_link_options(${name} PRIVATE -flto=auto)
  endif()
endfunction()

# vantrel_library(NAME SOURCES ... LINK ...): a static library with the project's flags.
function(vantrel_library name)
  cmake_parse_arguments(LIB "" "" "SOURCES;LINK" ${ARGN})
  if(LIB_SOURCES)
    add_library(${name} STATIC ${LIB_SOURCES})
    if(VANTREL_LTO)
      target_compile_options(${name} PRIVATE -flto=auto -ffat-lto-objects)
    endif()
    target_link_libraries(${name} PUBLIC vantrel_flags ${LIB_LINK})
  else()
    add_library(${name} INTERFACE)
    target_link_libraries(${name} INTERFACE vantrel_flags ${LIB_LINK})
  endif()
endfunction()
