# What is measured is compiled as its users compile it, and no file leans on what another includes.
function(tool_binding_each_alone target)
  if(TOOL_BINDING_EACH_ALONE)
    set_target_properties(${target} PROPERTIES UNITY_BUILD OFF)
  endif()
endfunction()

# What the libraries have in common. Every header below `headers` is public: it is installed, and what it declares
# with TOOL_BINDING_API is all that a shared library shows.
function(tool_binding_library target headers)
  file(GLOB_RECURSE public_headers CONFIGURE_DEPENDS ${headers}/*.hpp)
  target_sources(${target} PUBLIC FILE_SET HEADERS BASE_DIRS ${headers} FILES ${public_headers})
  set_target_properties(${target} PROPERTIES
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON
    INSTALL_RPATH "$ORIGIN"
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}
    VERIFY_INTERFACE_HEADER_SETS ${TOOL_BINDING_EACH_ALONE})
  tool_binding_each_alone(${target})
endfunction()
