# Adds every folder below the current one that has a CMakeLists.txt, in
# name order, so that components can add their own test or fuzz folders.
# Names given as arguments are left out.
function(zv_add_all_subdirectories)
  file(GLOB entries LIST_DIRECTORIES true RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR}/*)
  list(SORT entries)
  foreach(entry ${entries})
    if(NOT entry IN_LIST ARGN AND IS_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR}/${entry} AND EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${entry}/CMakeLists.txt)
      add_subdirectory(${entry})
    endif()
  endforeach()
endfunction()
