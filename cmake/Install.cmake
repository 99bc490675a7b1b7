# `cmake --install` and find_package(FetchKit), with the hosts that were built as COMPONENTS. Windows
# has the component instead.
if(WIN32)
  include(cmake/InstallComponent.cmake)
  return()
endif()
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

install(TARGETS FetchKit EXPORT FetchKitTargets)
install(DIRECTORY src/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN "*.h")
install(EXPORT FetchKitTargets NAMESPACE FetchKit::
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/FetchKit)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/FetchKitConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_SOURCE_DIR}/cmake/FetchKitConfig.cmake
              ${PROJECT_BINARY_DIR}/FetchKitConfigVersion.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/FetchKit)
