# Debian packages, one for each component that is installed: scripts/package builds and tries them.
option(KTO_DEBIAN_PACKAGES "Install what Debian asks of a package, too" OFF)

set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL library development tool)
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_STRIP_FILES ON)

# Each component has a summary of its own, in the first line of its description.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_DEBIAN_PACKAGE_NAME ktoparameter)
set(CPACK_DEBIAN_PACKAGE_SOURCE ktoparameter)
set(CPACK_DEBIAN_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "The libktoParameter authors <libktoparameter@example.org>")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# The packages need each other's libraries before they are installed.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
    ${PROJECT_BINARY_DIR}/src ${PROJECT_BINARY_DIR}/src/plot ${PROJECT_BINARY_DIR}/framework)

set(same_version "${CPACK_DEBIAN_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}")
set(library_package libktoparameter${PROJECT_VERSION_MAJOR})

set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME ${library_package})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
# Debian wants a trigger where CPack has scripts that run ldconfig, which it adds all the same.
file(WRITE ${PROJECT_BINARY_DIR}/debian/triggers "activate-noawait ldconfig\n")
foreach(library ktoFramework ktoParameter ktoParameterPlot)
  list(APPEND shlibs "lib${library} ${PROJECT_VERSION_MAJOR} ${library_package} (>= ${PROJECT_VERSION})\n")
endforeach()
file(WRITE ${PROJECT_BINARY_DIR}/debian/shlibs ${shlibs})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA
    ${PROJECT_BINARY_DIR}/debian/triggers ${PROJECT_BINARY_DIR}/debian/shlibs)
set(CPACK_COMPONENT_LIBRARY_DESCRIPTION
"parameter files of servo drives - library
Reads, edits and writes the definition, value, settings and compensation
files of servo drives: XML in which values survive exactly, and which a
save replaces as a whole or not at all.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libktoparameter-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${library_package} (= ${same_version}), qtbase5-dev (>= 5.15)")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
"parameter files of servo drives - development files
The headers of libktoParameter, its CMake package and pkg-config file, and
the XML schemas of the files.")

set(CPACK_DEBIAN_TOOL_PACKAGE_NAME ktoparam)
set(CPACK_DEBIAN_TOOL_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_TOOL_PACKAGE_DEPENDS "${library_package} (>= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_TOOL_PACKAGE_RECOMMENDS bash-completion)
set(CPACK_COMPONENT_TOOL_DESCRIPTION
"parameter files of servo drives - command line tool
ktoparam shows, checks, compares, edits and merges the parameter files of
servo drives, also for scripts and for git.")

include(CPack)

# The files that Debian wants in /usr/share/doc of every package.
if(KTO_DEBIAN_PACKAGES)
  file(STRINGS ${PROJECT_SOURCE_DIR}/packaging/changelog newest LIMIT_COUNT 1)
  if(NOT newest MATCHES "\\(${same_version}\\)")
    message(FATAL_ERROR "packaging/changelog has no entry of version ${same_version}: ${newest}")
  endif()
  execute_process(COMMAND gzip -9nc ${PROJECT_SOURCE_DIR}/packaging/changelog
                  OUTPUT_FILE ${PROJECT_BINARY_DIR}/debian/changelog.Debian.gz
                  COMMAND_ERROR_IS_FATAL ANY)
  foreach(component library development tool)
    string(TOUPPER ${component} upper)
    install(FILES ${PROJECT_SOURCE_DIR}/packaging/copyright
                  ${PROJECT_BINARY_DIR}/debian/changelog.Debian.gz
            DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${CPACK_DEBIAN_${upper}_PACKAGE_NAME}
            COMPONENT ${component})
  endforeach()
endif()
