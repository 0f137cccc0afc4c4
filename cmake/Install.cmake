# What a host installs: the headers, the library, the CMake package, the pkg-config module and the tool. All of it may be
# moved to another prefix after the installation.

include(CMakePackageConfigHelpers)

install(DIRECTORY include/vellum DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(TARGETS Vellum EXPORT Vellum)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Vellum)
write_basic_package_version_file(VellumConfigVersion.cmake COMPATIBILITY SameMajorVersion)
# Hosts of the static library link what it is linked with; the shared one brings that along.
set(package_dependencies "")
set(pkgconfig_requires "")
set(pkgconfig_libraries "")
if(NOT BUILD_SHARED_LIBS)
    set(package_dependencies "find_dependency(Freetype)")
    set(pkgconfig_requires "Requires: freetype2")
    if(WIN32)
        set(pkgconfig_libraries " -lgdi32")
    else()
        string(APPEND package_dependencies "\nfind_dependency(Fontconfig)")
        string(APPEND pkgconfig_requires " fontconfig")
    endif()
    string(APPEND pkgconfig_requires "\n")
endif()
configure_file(cmake/VellumConfig.cmake.in VellumConfig.cmake @ONLY)
install(FILES
    ${CMAKE_CURRENT_BINARY_DIR}/VellumConfig.cmake
    ${CMAKE_CURRENT_BINARY_DIR}/VellumConfigVersion.cmake
    DESTINATION ${package_dir})
install(EXPORT Vellum NAMESPACE Vellum:: FILE VellumTargets.cmake DESTINATION ${package_dir})

set(pkgconfig_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
string(REGEX REPLACE "[^/]+" ".." pkgconfig_to_prefix ${pkgconfig_dir})
set(pkgconfig_definitions "")
if(NOT BUILD_SHARED_LIBS)
    set(pkgconfig_definitions " -DVELLUM_STATIC")
endif()
get_target_property(vellum_output_name Vellum OUTPUT_NAME)
configure_file(cmake/vellum.pc.in vellum.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/vellum.pc DESTINATION ${pkgconfig_dir})
