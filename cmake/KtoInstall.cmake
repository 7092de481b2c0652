# What `cmake --install` lays down: libraries, public headers, the tool and the CMake package.
# There are three components, each a Debian package: library, development and tool. What says
# nothing else is for development, and in the tool's folder for the tool.
include(CMakePackageConfigHelpers)
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME development)
# The languages of messages.
set(kto_translations_dir ${CMAKE_INSTALL_DATADIR}/ktoParameter/translations)

# Installs public headers of one of the libraries under include/<component>.
function(kto_install_headers component)
  install(FILES ${ARGN} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${component})
endfunction()

# Consumers reach a header as <component/Name.h> and as <Name.h>.
function(kto_consumer_includes target component)
  target_include_directories(${target} INTERFACE
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/${component}>)
endfunction()

# The libraries find each other, as the tool finds them, wherever the installation is moved to.
function(kto_install_binaries)
  set_target_properties(ktoFramework ktoParameter ktoParameterPlot PROPERTIES INSTALL_RPATH "$ORIGIN")
  install(TARGETS ktoFramework ktoParameter ktoParameterPlot EXPORT ktoParameterTargets
          LIBRARY COMPONENT library NAMELINK_COMPONENT development)
  install(TARGETS ktoparam COMPONENT tool)
endfunction()

function(kto_install_cmake_package)
  set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/ktoParameter)
  install(EXPORT ktoParameterTargets NAMESPACE kto:: DESTINATION ${package_dir})
  configure_package_config_file(
    ${PROJECT_SOURCE_DIR}/cmake/ktoParameterConfig.cmake.in
    ${PROJECT_BINARY_DIR}/ktoParameterConfig.cmake INSTALL_DESTINATION ${package_dir}
    PATH_VARS kto_translations_dir)
  write_basic_package_version_file(
    ${PROJECT_BINARY_DIR}/ktoParameterConfigVersion.cmake COMPATIBILITY SameMajorVersion)
  install(FILES ${PROJECT_BINARY_DIR}/ktoParameterConfig.cmake
                ${PROJECT_BINARY_DIR}/ktoParameterConfigVersion.cmake DESTINATION ${package_dir})
endfunction()

function(kto_install_pkgconfig)
  set(pkgconfig_dir ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig)
  file(RELATIVE_PATH PKGCONFIG_TO_PREFIX ${pkgconfig_dir} ${CMAKE_INSTALL_PREFIX})
  foreach(library ktoParameter ktoParameterPlot)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/${library}.pc.in ${library}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${library}.pc
            DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
  endforeach()
endfunction()

function(kto_install_package)
  kto_install_binaries()
  kto_install_cmake_package()
  kto_install_pkgconfig()
endfunction()
