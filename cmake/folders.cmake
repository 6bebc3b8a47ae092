# add_folder(NAME [USED...]) makes an object library of one folder's sources.
# Sources named *_window.cpp are Windows views and are compiled there alone;
# platform/ takes besides the port of the build, portable/ or win32/.
# Folders without sources are still targets, so that the map below is whole.
define_property(GLOBAL PROPERTY TESSELLOMATICS_FOLDERS BRIEF_DOCS "folders so far, from the ground up")

function(add_folder name)
  file(GLOB sources CONFIGURE_DEPENDS ${name}/*.cpp)
  if(WIN32)
    file(GLOB port_sources CONFIGURE_DEPENDS ${name}/win32/*.cpp)
  else()
    list(FILTER sources EXCLUDE REGEX "_window\\.cpp$")
    file(GLOB port_sources CONFIGURE_DEPENDS ${name}/portable/*.cpp)
  endif()
  list(APPEND sources ${port_sources})
  if(sources)
    add_library(${name} OBJECT ${sources})
    target_link_libraries(${name} PUBLIC build_settings ${ARGN})
    target_compile_options(${name} PRIVATE ${sanitizer_options})
    set_property(GLOBAL APPEND PROPERTY TESSELLOMATICS_FOLDERS ${name})
  else()
    add_library(${name} INTERFACE)
    target_link_libraries(${name} INTERFACE build_settings ${ARGN})
  endif()
endfunction()

# link_folders(TARGET TOP [DRAWS_SHAPES]) links TARGET with the objects of TOP and of
# every folder below it, and on Windows with the resource section. Natively a program
# draws shapes (platform/vector_drawing.h) only where it asks to.
function(link_folders target top)
  get_property(folders GLOBAL PROPERTY TESSELLOMATICS_FOLDERS)
  list(FIND folders ${top} position)
  if(position EQUAL -1)
    message(FATAL_ERROR "link_folders: ${top} is no folder with sources")
  endif()
  math(EXPR count "${position} + 1")
  list(SUBLIST folders 0 ${count} below)
  target_link_libraries(${target} PRIVATE ${below} resource_tables)
  if(WIN32)
    target_link_libraries(${target} PRIVATE gdi32 user32 comctl32 comdlg32 shell32 ole32 gdiplus)
    embed_windows_resources(${target})
  elseif("DRAWS_SHAPES" IN_LIST ARGN)
    target_link_libraries(${target} PRIVATE cairo_drawing)
  else()
    target_link_libraries(${target} PRIVATE no_drawing)
  endif()
endfunction()
