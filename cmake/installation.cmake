# What `cmake --install` puts where, and the Debian package. tools/package makes the
# packages for both systems.
#
# The default groups are those of resources/groups/ and those that the target
# default_groups makes.

file(GLOB help_pictures CONFIGURE_DEPENDS resources/help/pictures/*)
set(help_page ${PROJECT_BINARY_DIR}/pages/VORBELx1.HTML)
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/pages)
add_custom_command(
  OUTPUT ${help_page}
  COMMAND ${PROJECT_SOURCE_DIR}/tools/put-pictures-into-page
    ${PROJECT_SOURCE_DIR}/resources/help/VORBELx1.HTML ${help_page}
  DEPENDS resources/help/VORBELx1.HTML ${help_pictures} tools/put-pictures-into-page
  COMMENT "Putting the pictures into the help page" VERBATIM)
add_custom_target(help_page ALL DEPENDS ${help_page})

# install_groups(FOLDER) installs the default groups.
function(install_groups folder)
  install(FILES ${PROJECT_SOURCE_DIR}/resources/groups/vorbelx1.fft
    ${PROJECT_BINARY_DIR}/share/tessellomatics/groups/vorbelx1.mtx DESTINATION ${folder})
endfunction()

if(WIN32)
  # One folder, to be copied as it is.
  install(TARGETS vorbelx1_x64 tilehost RUNTIME DESTINATION .)
  install(FILES ${help_page} resources/package/README.txt DESTINATION .)
  install_groups(groups)
  return()
endif()

set(CMAKE_INSTALL_DOCDIR share/doc/tessellomatics CACHE PATH "folder of the help page")
set(TESSELLOMATICS_ZSH_FOLDER zsh/site-functions CACHE STRING
  "folder in share/ of zsh's completion; Debian's packages have theirs in zsh/vendor-completions")
include(GNUInstallDirs)
set(pages ${PROJECT_BINARY_DIR}/pages)
install(TARGETS tessellomatics RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${help_page} DESTINATION ${CMAKE_INSTALL_DOCDIR})
install_groups(${CMAKE_INSTALL_DATADIR}/tessellomatics/groups)
install(FILES ${pages}/tessellomatics.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${pages}/tessellomatics.bash RENAME tessellomatics
  DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES ${pages}/_tessellomatics
  DESTINATION ${CMAKE_INSTALL_DATADIR}/${TESSELLOMATICS_ZSH_FOLDER})
install(FILES ${pages}/tessellomatics.fish
  DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tessellomatics)
set(CPACK_PACKAGE_CONTACT "The Tessellomatics developers <developers@tessellomatics.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "make seamless animated background tiles")
set(CPACK_PACKAGE_DESCRIPTION
"Small pictures that join themselves on all four sides and whose last frame
leads back into the first, in twenty styles, as GIF, WebP, animated PNG or
bitmaps. The same seed and settings give the same tile on every machine.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# preview opens its page with xdg-open.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS xdg-utils)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
include(CPack)
