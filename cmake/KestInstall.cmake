# What is installed: the library, its headers, and what CMake and pkg-config need to find them.
include(CMakePackageConfigHelpers)

set(KESTXML_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/KestXml)

install(TARGETS kestxml EXPORT KestXmlTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT KestXmlTargets NAMESPACE KestXml:: DESTINATION ${KESTXML_CMAKE_DIR})

configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/KestXmlConfig.cmake.in KestXmlConfig.cmake
                              INSTALL_DESTINATION ${KESTXML_CMAKE_DIR})
write_basic_package_version_file(KestXmlConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/KestXmlConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/KestXmlConfigVersion.cmake
        DESTINATION ${KESTXML_CMAKE_DIR})

# Paths in the pkg-config file are relative to it, so that the installed tree can be moved.
file(RELATIVE_PATH KESTXML_PC_PREFIX /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(${CMAKE_CURRENT_LIST_DIR}/kestxml.pc.in kestxml.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/kestxml.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
