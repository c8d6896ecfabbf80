# Sources that are listed but not written yet are left out with a message, so that the tree builds
# while it is being filled. The lists are complete when no message is left.

function(ktrcl_existing_sources result)
  set(found)
  foreach(source IN LISTS ARGN)
    if(EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/${source}")
      list(APPEND found "${source}")
    else()
      file(RELATIVE_PATH folder "${PROJECT_SOURCE_DIR}" "${CMAKE_CURRENT_SOURCE_DIR}")
      message(STATUS "Not written yet: ${folder}/${source}")
    endif()
  endforeach()
  set(${result}
      "${found}"
      PARENT_SCOPE)
endfunction()

# A library without any source cannot be created; an empty one stands in.
function(ktrcl_placeholder_source target)
  set(file "${PROJECT_BINARY_DIR}/generated/${target}_placeholder.cpp")
  file(CONFIGURE OUTPUT "${file}" CONTENT "// No source yet.\n")
  target_sources(${target} PRIVATE "${file}")
endfunction()
