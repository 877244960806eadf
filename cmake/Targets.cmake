# Helpers that every layer uses. A target's include path holds just what its layer may use.

find_program(QSX_CCACHE ccache)
if(QSX_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${QSX_CCACHE})
endif()

# The warnings of the project; PRIVATE, so that a program that embeds the library keeps its own.
function(qsx_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
  if(QSX_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()

# qsx_sources(OUT dir...): every source file below the folders; a new file is picked up by the next build.
function(qsx_sources out)
  set(patterns)
  foreach(dir IN LISTS ARGN)
    list(APPEND patterns ${dir}/*.cpp)
  endforeach()
  file(GLOB_RECURSE files CONFIGURE_DEPENDS ${patterns})
  set(${out} ${files} PARENT_SCOPE)
endfunction()

# qsx_alone(file...): files whose local names others in their folder have, too. The sanitizers' build compiles several
# files as one, to be done in time, and takes these by themselves; where it tells of a name that is there twice, the
# file belongs here.
function(qsx_alone)
  set_source_files_properties(${ARGN} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
endfunction()

# qsx_layer(name dir...): a static library of all sources below the folders.
function(qsx_layer name)
  qsx_sources(files ${ARGN})
  add_library(${name} STATIC ${files})
  set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
  qsx_warnings(${name})
endfunction()

# qsx_library(name output dir...): a layer that other programs link as well: lib<output>.a and lib<output>.so
# from the same objects. What the shared library doesn't export by QSX_API is hidden.
function(qsx_library name output)
  qsx_layer(${name} ${ARGN})
  set_target_properties(${name} PROPERTIES OUTPUT_NAME ${output} EXPORT_NAME ${output}_static
    CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
  add_library(${name}_shared SHARED $<TARGET_OBJECTS:${name}>)
  set_target_properties(${name}_shared PROPERTIES OUTPUT_NAME ${output} EXPORT_NAME ${output}
    LINKER_LANGUAGE CXX VERSION ${PROJECT_VERSION} SOVERSION ${QSX_ABI})
endfunction()
