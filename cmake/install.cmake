# The package: find_package(tool_binding), its components json, server and nlohmann, and a pkg-config file for each
# library.
include(CMakePackageConfigHelpers)

set(package_directory ${CMAKE_INSTALL_LIBDIR}/cmake/tool_binding)

function(tool_binding_install_library target pkg_config_name)
  install(TARGETS ${target} EXPORT ${target}-targets
    LIBRARY COMPONENT library NAMELINK_COMPONENT development
    ARCHIVE COMPONENT development
    FILE_SET HEADERS COMPONENT development)
  install(EXPORT ${target}-targets NAMESPACE tool_binding:: DESTINATION ${package_directory} COMPONENT development)
  configure_file(cmake/${pkg_config_name}.pc.in ${PROJECT_BINARY_DIR}/${pkg_config_name}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${pkg_config_name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
    COMPONENT development)
endfunction()

# A shared adapter brings the parser that it is built on; a static one leaves it to whoever links it.
get_target_property(library_type tool_binding TYPE)
if(library_type STREQUAL "STATIC_LIBRARY")
  set(json_needs simdjson)
  set(json_requires ", simdjson")
endif()

# The paths of a pkg-config file follow the prefix where they may, so that an installed tree can be moved.
foreach(kind LIB INCLUDE)
  string(TOLOWER ${kind} variable)
  if(IS_ABSOLUTE ${CMAKE_INSTALL_${kind}DIR})
    set(pkg_config_${variable}dir ${CMAKE_INSTALL_${kind}DIR})
  else()
    set(pkg_config_${variable}dir "\${prefix}/${CMAKE_INSTALL_${kind}DIR}")
  endif()
endforeach()
file(RELATIVE_PATH pkg_config_to_prefix
  ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" pkg_config_to_prefix ${pkg_config_to_prefix})

tool_binding_install_library(tool_binding tool_binding)
if(TARGET tool_binding_json)
  tool_binding_install_library(tool_binding_json tool_binding_json)
  tool_binding_install_library(tool_binding_report tool_binding_report)
endif()
if(TARGET tool_binding_nlohmann)
  tool_binding_install_library(tool_binding_nlohmann tool_binding_nlohmann)
endif()
if(TARGET tool_binding_server)
  tool_binding_install_library(tool_binding_server tool_binding_server)
endif()

configure_package_config_file(cmake/tool_binding-config.cmake.in ${PROJECT_BINARY_DIR}/tool_binding-config.cmake
  INSTALL_DESTINATION ${package_directory} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/tool_binding-config-version.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/tool_binding-config.cmake ${PROJECT_BINARY_DIR}/tool_binding-config-version.cmake
  DESTINATION ${package_directory} COMPONENT development)

if(TARGET tool-binding)
  file(RELATIVE_PATH from_command_to_libraries ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
  set_target_properties(tool-binding PROPERTIES INSTALL_RPATH "$ORIGIN/${from_command_to_libraries}")
  install(TARGETS tool-binding COMPONENT command)
  install(FILES cli/manual/tool-binding.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1
    COMPONENT command)
  install(FILES cli/completions/tool-binding DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
    COMPONENT command)
  install(FILES cli/completions/_tool-binding DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions
    COMPONENT command)
  install(FILES cli/completions/tool-binding.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d
    COMPONENT command)
endif()
# The pages refer to each other and to the examples.
install(FILES LICENSE README.md CHANGELOG.md CONTRIBUTING.md SECURITY.md DESTINATION ${CMAKE_INSTALL_DOCDIR}
  COMPONENT development)
install(DIRECTORY docs examples DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development
  PATTERN Doxyfile EXCLUDE PATTERN mainpage.md EXCLUDE PATTERN tests EXCLUDE)
include(cmake/package.cmake)
