# What `cmake --install` lays down: libraries, public headers, the tool and the CMake package.
include(CMakePackageConfigHelpers)

# Installs public headers of one of the two libraries under include/<component>.
function(kto_install_headers component)
  install(FILES ${ARGN} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${component})
endfunction()

# Consumers reach a header as <component/Name.h> and as <Name.h>.
function(kto_consumer_includes target component)
  target_include_directories(${target} INTERFACE
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/${component}>)
endfunction()

function(kto_install_package)
  set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/ktoParameter)
  install(TARGETS ktoFramework ktoParameter EXPORT ktoParameterTargets)
  if(TARGET ktoparam)
    install(TARGETS ktoparam)
  endif()
  install(EXPORT ktoParameterTargets NAMESPACE kto:: DESTINATION ${package_dir})
  configure_package_config_file(
    ${PROJECT_SOURCE_DIR}/cmake/ktoParameterConfig.cmake.in
    ${PROJECT_BINARY_DIR}/ktoParameterConfig.cmake INSTALL_DESTINATION ${package_dir})
  write_basic_package_version_file(
    ${PROJECT_BINARY_DIR}/ktoParameterConfigVersion.cmake COMPATIBILITY SameMajorVersion)
  install(FILES ${PROJECT_BINARY_DIR}/ktoParameterConfig.cmake
                ${PROJECT_BINARY_DIR}/ktoParameterConfigVersion.cmake DESTINATION ${package_dir})
  configure_file(${PROJECT_SOURCE_DIR}/cmake/ktoParameter.pc.in ktoParameter.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/ktoParameter.pc
          DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endfunction()
