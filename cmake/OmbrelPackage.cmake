# SPDX-FileCopyrightText: 2026 The Ombrel developers
# SPDX-License-Identifier: MIT
#
# The package OmbrelControls: it exports no target (nothing links a QML plugin), it tells where the
# modules are.

include(CMakePackageConfigHelpers)
configure_package_config_file(
    "${CMAKE_CURRENT_LIST_DIR}/OmbrelControlsConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/OmbrelControlsConfig.cmake"
    INSTALL_DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/OmbrelControls"
    PATH_VARS OMBREL_QML_DIR)
write_basic_package_version_file(
    "${PROJECT_BINARY_DIR}/OmbrelControlsConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/OmbrelControlsConfig.cmake"
    "${PROJECT_BINARY_DIR}/OmbrelControlsConfigVersion.cmake"
    DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/OmbrelControls")
