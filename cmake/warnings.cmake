# The project's own targets are compiled with these warnings; whoever builds the library inside another project gets none.
function(tool_binding_warnings target)
  if(PROJECT_IS_TOP_LEVEL)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
                                             -Wnon-virtual-dtor -Wold-style-cast -Woverloaded-virtual)
  endif()
  if(TOOL_BINDING_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()
