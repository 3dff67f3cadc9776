# cmake --install: the bundle, the public headers and a CMake package for hosts.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(package_directory ${CMAKE_INSTALL_LIBDIR}/cmake/AppKitGlue)

# The bundle is complete as built: its libraries lie inside and are found from where it stands.
install(DIRECTORY ${CMAKE_BINARY_DIR}/AppKitGlue.bundle DESTINATION ${CMAKE_INSTALL_LIBDIR} USE_SOURCE_PERMISSIONS)
install(TARGETS AppKitGlueCore ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
set(public_headers)
foreach(name AboutScreenView AboutSections DecodingError MenuEventDelegate MenuItem+Ext ObservableObject QVAboutScreen
             QVAppKitController SettingsKeys SettingsPayload ToolbarAction ViewTree)
    list(APPEND public_headers ${CMAKE_SOURCE_DIR}/AppKitGlue/${name}.h)
endforeach()
install(FILES ${public_headers} ${CMAKE_SOURCE_DIR}/Platform/NSToolbarDelegate.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/AppKitGlue)

# The flat look is the host's to choose. On macOS there is nothing to link.
set(FLAT_THEME "")
if(NOT APPLE)
    add_library(flat-theme-archive STATIC $<TARGET_OBJECTS:FlatTheme>)
    set_target_properties(flat-theme-archive PROPERTIES OUTPUT_NAME FlatTheme LINKER_LANGUAGE OBJCXX)
    install(TARGETS flat-theme-archive ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
    set(FLAT_THEME ${CMAKE_INSTALL_LIBDIR}/libFlatTheme.a)
endif()
install(FILES ${CMAKE_SOURCE_DIR}/Platform/$<IF:$<BOOL:${APPLE}>,Apple,GNUstep/Theme>/FlatTheme.h
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/AppKitGlue)

# What a host's Objective-C sources need is what ours need, but for blocks.
foreach(property COMPILE_OPTIONS COMPILE_DEFINITIONS LINK_LIBRARIES SYSTEM_INCLUDE_DIRECTORIES)
    get_target_property(HOST_${property} qv_objc INTERFACE_${property})
    if(NOT HOST_${property})
        set(HOST_${property} "")
    endif()
endforeach()
list(REMOVE_ITEM HOST_COMPILE_OPTIONS -fblocks)

set(BUNDLE ${CMAKE_INSTALL_LIBDIR}/AppKitGlue.bundle)
set(HEADERS ${CMAKE_INSTALL_INCLUDEDIR}/AppKitGlue)
set(CORE ${CMAKE_INSTALL_LIBDIR}/${CMAKE_STATIC_LIBRARY_PREFIX}AppKitGlueCore${CMAKE_STATIC_LIBRARY_SUFFIX})
configure_package_config_file(${CMAKE_SOURCE_DIR}/cmake/AppKitGlueConfig.cmake.in ${CMAKE_BINARY_DIR}/AppKitGlueConfig.cmake
                              INSTALL_DESTINATION ${package_directory} PATH_VARS BUNDLE HEADERS CORE FLAT_THEME)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/AppKitGlueConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/AppKitGlueConfig.cmake ${CMAKE_BINARY_DIR}/AppKitGlueConfigVersion.cmake
        DESTINATION ${package_directory})
