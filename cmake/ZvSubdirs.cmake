# Adds every folder below the current one that has a CMakeLists.txt, in
# name order, so that components can add their own test or fuzz folders.
# Names given as arguments are left out. A folder of sources without a
# CMakeLists.txt stops the configuration: its tests must not go missing
# without a word.
function(zv_add_all_subdirectories)
  file(GLOB entries LIST_DIRECTORIES true RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR}/*)
  list(SORT entries)
  foreach(entry ${entries})
    set(folder ${CMAKE_CURRENT_SOURCE_DIR}/${entry})
    if(entry IN_LIST ARGN OR NOT IS_DIRECTORY ${folder})
      continue()
    endif()
    if(EXISTS ${folder}/CMakeLists.txt)
      add_subdirectory(${entry})
    else()
      file(GLOB sources ${folder}/*.cpp)
      if(sources)
        message(FATAL_ERROR "${folder} holds sources but no CMakeLists.txt")
      endif()
    endif()
  endforeach()
endfunction()
