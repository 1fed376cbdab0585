# Run by cpack when the files of all packages are in place: what Debian has otherwise than other systems.
find_program(GZIP gzip REQUIRED)
if(NOT CPACK_DEBIAN_PACKAGE_MAINTAINER)
  message(FATAL_ERROR "who answers for the packages is not known: configure with -DTOOL_BINDING_MAINTAINER='NAME <ADDRESS>'")
endif()
if(NOT CPACK_TOOL_BINDING_DATE)
  execute_process(COMMAND date -R OUTPUT_VARIABLE CPACK_TOOL_BINDING_DATE OUTPUT_STRIP_TRAILING_WHITESPACE)
endif()

foreach(component ${CPACK_COMPONENTS_ALL})
  set(root ${CPACK_TEMPORARY_DIRECTORY}/${component}/usr)
  string(TOUPPER ${component} upper)
  set(package ${CPACK_DEBIAN_${upper}_PACKAGE_NAME})

  # The system's linker finds the libraries without a path of their own.
  file(GLOB_RECURSE files ${root}/bin/* ${root}/lib/*.so.*)
  foreach(file ${files})
    if(NOT IS_SYMLINK ${file})
      file(RPATH_REMOVE FILE ${file})
    endif()
  endforeach()

  set(documents ${root}/share/doc/${package})
  if(EXISTS ${root}/share/doc/tool_binding)
    file(RENAME ${root}/share/doc/tool_binding ${documents})
    file(REMOVE ${documents}/LICENSE)
  endif()
  file(MAKE_DIRECTORY ${documents})
  configure_file(${CPACK_TOOL_BINDING_LICENSE} ${documents}/copyright COPYONLY)
  file(WRITE ${documents}/changelog "${CPACK_PACKAGE_NAME} (${CPACK_PACKAGE_VERSION}) unstable; urgency=medium

  * What a user would notice stands in CHANGELOG.md of ${CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME}.

 -- ${CPACK_DEBIAN_PACKAGE_MAINTAINER}  ${CPACK_TOOL_BINDING_DATE}
")
  file(GLOB manuals ${root}/share/man/man1/*.1)
  execute_process(COMMAND ${GZIP} -9nf ${documents}/changelog ${manuals} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
