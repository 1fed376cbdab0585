# `cpack -G DEB` makes three packages: the shared libraries, what it takes to build against them, and the command. A build
# with static libraries has no package of shared ones.
option(TOOL_BINDING_PACKAGES "Let cpack make Debian packages" ${PROJECT_IS_TOP_LEVEL})
if(NOT TOOL_BINDING_PACKAGES)
  return()
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tool-binding)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
    WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/debian_layout.cmake)
set(CPACK_TOOL_BINDING_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)

# Whoever answers for a build is the author of the commit that it is of; where there is none, the one who makes it says so.
find_package(Git QUIET)
if(GIT_FOUND)
  execute_process(COMMAND ${GIT_EXECUTABLE} -C ${PROJECT_SOURCE_DIR} log -1 "--format=%an <%ae>;%aD" OUTPUT_VARIABLE commit
                  OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
  list(APPEND commit "" "")
  list(GET commit 0 author)
  list(GET commit 1 CPACK_TOOL_BINDING_DATE)
endif()
set(TOOL_BINDING_MAINTAINER "${author}" CACHE STRING "Who answers for the Debian packages: NAME <ADDRESS>")
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${TOOL_BINDING_MAINTAINER})

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/src ${PROJECT_BINARY_DIR}/json
    ${PROJECT_BINARY_DIR}/server ${PROJECT_BINARY_DIR}/report)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "argument layer between a tool request and its handler")
set(about "It turns the arguments of a tool request into exactly what the tool's handler
takes, says what it changed, and refuses what it cannot mend.")

set(CPACK_COMPONENTS_ALL development)
set(development libtool-binding-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME ${development})
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "${about}
.
This package has the headers, the files for CMake and pkg-config, the pages and
the examples.")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS "nlohmann-json3-dev")

if(library_type STREQUAL "SHARED_LIBRARY")
  list(APPEND CPACK_COMPONENTS_ALL library)
  set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME libtool-binding${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
  set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
  set(CPACK_DEBIAN_LIBRARY_DESCRIPTION "${about}
.
This package has the shared libraries.")
  file(WRITE ${PROJECT_BINARY_DIR}/triggers "activate-noawait ldconfig\n")
  set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${PROJECT_BINARY_DIR}/triggers)
  set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${CPACK_DEBIAN_LIBRARY_PACKAGE_NAME} (= ${PROJECT_VERSION})")
elseif(TARGET tool_binding_json)
  set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS libsimdjson-dev)
endif()

if(TARGET tool-binding)
  list(APPEND CPACK_COMPONENTS_ALL command)
  set(CPACK_DEBIAN_COMMAND_PACKAGE_NAME tool-binding)
  set(CPACK_DEBIAN_COMMAND_PACKAGE_SECTION utils)
  set(CPACK_DEBIAN_COMMAND_DESCRIPTION "${about}
.
This package has the command: it reads a registry and lines of JSON, and
answers what each request becomes.")
  if(library_type STREQUAL "SHARED_LIBRARY")
    set(CPACK_COMPONENT_COMMAND_DEPENDS library)
  endif()
endif()
include(CPack)
