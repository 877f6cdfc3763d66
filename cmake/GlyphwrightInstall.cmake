# Installation in three components, which are also the three packages: library (what programs need to
# run), development (what they need to be built) and program.
include(CMakePackageConfigHelpers)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/glyphwright)
set(made ${CMAKE_CURRENT_BINARY_DIR}/package)

configure_package_config_file(cmake/glyphwright-config.cmake.in ${made}/glyphwright-config.cmake
  INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${made}/glyphwright-config-version.cmake
  COMPATIBILITY SameMajorVersion)

# From where the file lies, so that an installed tree can be moved.
string(REGEX REPLACE "[^/]+" ".." up "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
set(pc_prefix "\${pcfiledir}/${up}")
set(pc_static_libs)
if(NOT BUILD_SHARED_LIBS)
  set(pc_static_libs " -Wl,--gc-sections")
endif()
configure_file(cmake/glyphwright.pc.in ${made}/glyphwright.pc @ONLY)

install(TARGETS glyphwright EXPORT glyphwright-targets
  RUNTIME COMPONENT library
  LIBRARY COMPONENT library NAMELINK_COMPONENT development
  ARCHIVE COMPONENT development
  FILE_SET HEADERS COMPONENT development)
install(EXPORT glyphwright-targets NAMESPACE glyphwright:: DESTINATION ${package_dir}
  COMPONENT development)
install(FILES ${made}/glyphwright-config.cmake ${made}/glyphwright-config-version.cmake
  DESTINATION ${package_dir} COMPONENT development)
install(FILES ${made}/glyphwright.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
  COMPONENT development)

# The program writes its own manual page and completions.
if(TARGET glyphwright_program)
  install(TARGETS glyphwright_program COMPONENT program)
  if(NOT CMAKE_CROSSCOMPILING)
    set(manual ${made}/glyphwright.1)
    set(bash ${made}/bash/glyphwright)
    set(zsh ${made}/zsh/_glyphwright)
    set(fish ${made}/fish/glyphwright.fish)
    file(MAKE_DIRECTORY ${made}/bash ${made}/zsh ${made}/fish)
    add_custom_command(OUTPUT ${manual} ${bash} ${zsh} ${fish}
      COMMAND glyphwright_program manual > ${manual}
      COMMAND glyphwright_program completions bash > ${bash}
      COMMAND glyphwright_program completions zsh > ${zsh}
      COMMAND glyphwright_program completions fish > ${fish}
      DEPENDS glyphwright_program VERBATIM)
    add_custom_target(glyphwright_program_texts ALL DEPENDS ${manual} ${bash} ${zsh} ${fish})
    install(FILES ${manual} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT program)
    install(FILES ${bash} DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
      COMPONENT program)
    install(FILES ${zsh} DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions COMPONENT program)
    install(FILES ${fish} DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d
      COMPONENT program)
  endif()
endif()

if(PROJECT_IS_TOP_LEVEL)
  set(CPACK_PACKAGE_CONTACT "The Glyphwright maintainers <maintainers@example.org>")
  set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
  set(CPACK_STRIP_FILES ON)
  set(CPACK_COMPONENTS_ALL library development program)
  set(CPACK_DEB_COMPONENT_INSTALL ON)
  set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
  set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
  set(library libglyphwright${PROJECT_VERSION_MAJOR})
  set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME ${library})
  set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
  set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libglyphwright-dev)
  set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
  if(BUILD_SHARED_LIBS)
    set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${library} (= ${PROJECT_VERSION})")
    set(CPACK_DEBIAN_PROGRAM_PACKAGE_DEPENDS "${library} (= ${PROJECT_VERSION})")
  else()
    list(REMOVE_ITEM CPACK_COMPONENTS_ALL library)
  endif()
  set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME glyphwright)
  set(CPACK_DEBIAN_PROGRAM_PACKAGE_SECTION graphics)
  set(CPACK_COMPONENT_LIBRARY_DESCRIPTION "icons as paths, bitmaps and layers: the library")
  set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
    "icons as paths, bitmaps and layers: headers for C++ and C")
  set(CPACK_COMPONENT_PROGRAM_DESCRIPTION "icons as paths, bitmaps and layers: the program")
  include(CPack)
endif()
