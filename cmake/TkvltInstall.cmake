# What `cmake --install` lays out:
#   bin/pipenet, lib/ with the shared libraries and the entry code of extension libraries,
#   include/tkvlt/{module,host,siblings}, share/tkvlt/{settings,support}, lib/cmake/TKVltSearchModule18.
include(CMakePackageConfigHelpers)

set(TKVLT_INSTALL_SETTINGS "${CMAKE_INSTALL_DATADIR}/tkvlt/settings")
set(TKVLT_INSTALL_SUPPORT "${CMAKE_INSTALL_DATADIR}/tkvlt/support")
set(TKVLT_INSTALL_CMAKE "${CMAKE_INSTALL_LIBDIR}/cmake/${PROJECT_NAME}")

# The libraries find each other beside themselves, wherever the prefix is moved to.
set_target_properties(tkvlt_host tkvlt_siblings TKVltSearchModule18 pipenet_check PROPERTIES
  INSTALL_RPATH "$ORIGIN")
file(RELATIVE_PATH tkvlt_lib_from_bin
  "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_LIBDIR}")
set_target_properties(pipenet PROPERTIES INSTALL_RPATH "$ORIGIN/${tkvlt_lib_from_bin}")

set_target_properties(tkvlt_host PROPERTIES EXPORT_NAME host)
set_target_properties(tkvlt_host_entry PROPERTIES EXPORT_NAME host_entry)
set_target_properties(tkvlt_siblings PROPERTIES EXPORT_NAME siblings)
set_target_properties(TKVltSearchModule18 PROPERTIES EXPORT_NAME module)

install(TARGETS tkvlt_host tkvlt_host_entry tkvlt_siblings TKVltSearchModule18
  EXPORT TKVltSearchModule18Targets
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
  ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}")
# A part of the command: whoever builds against the module does not link to it.
install(TARGETS pipenet_check LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}")
install(TARGETS pipenet RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
foreach(building host siblings module)
  install(DIRECTORY "${CMAKE_SOURCE_DIR}/${building}/"
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/tkvlt/${building}" FILES_MATCHING PATTERN "*.h")
endforeach()
install(DIRECTORY "${CMAKE_SOURCE_DIR}/examples/settings/" DESTINATION "${TKVLT_INSTALL_SETTINGS}")
install(DIRECTORY "${CMAKE_SOURCE_DIR}/host/support/" DESTINATION "${TKVLT_INSTALL_SUPPORT}")

install(EXPORT TKVltSearchModule18Targets NAMESPACE tkvlt::
  DESTINATION "${TKVLT_INSTALL_CMAKE}")
configure_package_config_file(
  "${CMAKE_CURRENT_LIST_DIR}/TKVltSearchModule18Config.cmake.in"
  "${CMAKE_BINARY_DIR}/TKVltSearchModule18Config.cmake"
  INSTALL_DESTINATION "${TKVLT_INSTALL_CMAKE}"
  PATH_VARS TKVLT_INSTALL_SETTINGS)
write_basic_package_version_file(
  "${CMAKE_BINARY_DIR}/TKVltSearchModule18ConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES
  "${CMAKE_BINARY_DIR}/TKVltSearchModule18Config.cmake"
  "${CMAKE_BINARY_DIR}/TKVltSearchModule18ConfigVersion.cmake"
  DESTINATION "${TKVLT_INSTALL_CMAKE}")
