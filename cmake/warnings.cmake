# The project's own targets are compiled with these warnings; whoever builds the library inside another project gets none.
function(tool_binding_warnings target)
  if(PROJECT_IS_TOP_LEVEL)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
                                             -Wnon-virtual-dtor -Wold-style-cast -Woverloaded-virtual)
  endif()
  # GCC 12 sees overlapping copies in every `"text" + std::string` that it inlines.
  if(PROJECT_IS_TOP_LEVEL AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(${target} PRIVATE -Wno-restrict)
  endif()
  if(TOOL_BINDING_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()
