# cmake --install: the library, its headers, its resources, and what find_package and pkg-config
# look for.
include(CMakePackageConfigHelpers)

set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/KTUtility")

install(TARGETS KTUtility EXPORT KTUtilityTargets
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT KTUtility)
install(DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}/" COMPONENT KTUtility
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/KTUtility"
    FILES_MATCHING PATTERN "*.h" PATTERN "*_p.h" EXCLUDE PATTERN "Resources" EXCLUDE
    PATTERN "Translations" EXCLUDE
    PATTERN "Designer" EXCLUDE)
install(DIRECTORY "${KTUTILITY_FORWARDING_HEADERS}/KTUtility/" COMPONENT KTUtility
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/KTUtility")
install(DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}/Resources" COMPONENT KTUtility
    DESTINATION "${CMAKE_INSTALL_LIBDIR}/KTUtility.framework")
install(FILES ${compiled_translations} COMPONENT KTUtility
    DESTINATION "${CMAKE_INSTALL_LIBDIR}/KTUtility.framework/Resources")

install(EXPORT KTUtilityTargets NAMESPACE KTUtility:: COMPONENT KTUtility
    DESTINATION "${package_folder}")
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/KTUtilityConfig.cmake.in"
    "${CMAKE_CURRENT_BINARY_DIR}/KTUtilityConfig.cmake"
    INSTALL_DESTINATION "${package_folder}")
write_basic_package_version_file("${CMAKE_CURRENT_BINARY_DIR}/KTUtilityConfigVersion.cmake"
    COMPATIBILITY SameMinorVersion)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/KTUtilityConfig.cmake"
              "${CMAKE_CURRENT_BINARY_DIR}/KTUtilityConfigVersion.cmake"
              "${PROJECT_SOURCE_DIR}/cmake/KTPlugIn.cmake"
              "${PROJECT_SOURCE_DIR}/cmake/KTPlugInInfo.plist.in"
    COMPONENT KTUtility DESTINATION "${package_folder}")

# For pkg-config. Relative to itself, so that the installed tree can be moved.
set(pkgconfig_folder "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
file(RELATIVE_PATH to_prefix "/${pkgconfig_folder}" "/")
string(REGEX REPLACE "/$" "" to_prefix "${to_prefix}")
configure_file("${PROJECT_SOURCE_DIR}/cmake/KTUtility.pc.in"
    "${CMAKE_CURRENT_BINARY_DIR}/KTUtility.pc" @ONLY)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/KTUtility.pc" COMPONENT KTUtility
    DESTINATION "${pkgconfig_folder}")
