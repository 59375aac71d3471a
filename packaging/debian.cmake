# What Debian wants of the installed files and cmake --install does not do: manual pages and changelogs compressed, and a
# word to lintian. cpack runs this where the package is put together.
file(GLOB pages ${CPACK_TEMPORARY_DIRECTORY}/usr/share/man/man*/*)
set(documents ${CPACK_TEMPORARY_DIRECTORY}/usr/share/doc/textcfg)
file(RENAME ${documents}/CHANGELOG.md ${documents}/changelog)
configure_file(${CMAKE_CURRENT_LIST_DIR}/changelog ${documents}/changelog.Debian COPYONLY)
execute_process(COMMAND gzip -9n ${pages} ${documents}/changelog ${documents}/changelog.Debian
  COMMAND_ERROR_IS_FATAL ANY)
file(CHMOD ${documents}/changelog.gz ${documents}/changelog.Debian.gz
  PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)

file(GLOB programs ${CPACK_TEMPORARY_DIRECTORY}/usr/bin/*)
execute_process(COMMAND strip --remove-section=.comment ${programs} COMMAND_ERROR_IS_FATAL ANY)

# The package is not on its way into Debian, where its first upload would close a wish for it.
set(overrides ${CPACK_TEMPORARY_DIRECTORY}/usr/share/lintian/overrides)
file(WRITE ${overrides}/textcfg "textcfg: initial-upload-closes-no-bugs *\n")
file(CHMOD ${overrides}/textcfg PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
