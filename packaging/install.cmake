# What is installed, and where. script/uninstall removes it again, from a list that the installation writes.
include(GNUInstallDirs)

# The list is a file of its own, as cpack overwrites the one that CMake writes. What is installed elsewhere first, to be
# moved or packed, is not in it. Folders that are made on the way are in it too, each before what lies in it.
install(CODE "
  set(textcfg_list \"\${CMAKE_CURRENT_LIST_DIR}/installed.txt\")
  set(textcfg_noted \"\")
  function(textcfg_note_folder folder)
    if(NOT EXISTS \"\${folder}\")
      get_filename_component(above \"\${folder}\" DIRECTORY)
      textcfg_note_folder(\"\${above}\")
      list(APPEND textcfg_noted \"\${folder}/\")
      list(REMOVE_DUPLICATES textcfg_noted)
      set(textcfg_noted \"\${textcfg_noted}\" PARENT_SCOPE)
    endif()
  endfunction()" ALL_COMPONENTS)

# textcfg_install(COMPONENT FOLDER TARGETS|FILES NAME… [RENAME NAME])
function(textcfg_install component folder)
  set(path ${folder})
  if(NOT IS_ABSOLUTE ${path})
    set(path "\${CMAKE_INSTALL_PREFIX}/${path}")
  endif()
  install(CODE "
    if(\"\$ENV{DESTDIR}\" STREQUAL \"\")
      get_filename_component(textcfg_folder \"${path}\" ABSOLUTE)
      textcfg_note_folder(\"\${textcfg_folder}\")
    endif()" COMPONENT ${component})
  install(${ARGN} DESTINATION ${folder} COMPONENT ${component})
endfunction()

set(textcfg_completions ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
textcfg_install(program ${CMAKE_INSTALL_BINDIR} TARGETS textcfg)
textcfg_install(documents ${CMAKE_INSTALL_MANDIR}/man1 FILES docs/textcfg.1)
textcfg_install(documents ${CMAKE_INSTALL_MANDIR}/man5 FILES docs/textcfg.5)
textcfg_install(documents ${textcfg_completions} FILES completions/textcfg.bash RENAME textcfg)
if(NOT TEXTCFG_PLATFORM_LIBRARY)
  textcfg_install(workstation ${CMAKE_INSTALL_BINDIR} TARGETS textcfg-store)
  textcfg_install(workstation ${CMAKE_INSTALL_MANDIR}/man1 FILES docs/textcfg-store.1)
  textcfg_install(workstation ${textcfg_completions} FILES completions/textcfg-store.bash RENAME textcfg-store)
endif()
if(TEXTCFG_INSPECT)
  textcfg_install(workstation ${CMAKE_INSTALL_BINDIR} TARGETS textcfg-inspect)
  textcfg_install(workstation ${CMAKE_INSTALL_MANDIR}/man1 FILES docs/textcfg-inspect.1)
  textcfg_install(workstation ${textcfg_completions} FILES completions/textcfg-inspect.bash RENAME textcfg-inspect)
endif()
textcfg_install(library ${CMAKE_INSTALL_LIBDIR} TARGETS textcfg_library)
textcfg_install(library ${CMAKE_INSTALL_INCLUDEDIR}/textcfg FILES app/textcfg.h)
# What a platform's library has to offer.
textcfg_install(library ${CMAKE_INSTALL_INCLUDEDIR}/textcfg/platform FILES platform/mapi.h platform/util.h)

# The documents for users: they mention only what is installed, so the README is one of their own, and the description
# of the record does not say how it was made.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS docs/image.md)
file(READ docs/image.md textcfg_image)
string(REGEX REPLACE "\n\nMade by [^\n]*\n" "\n" textcfg_image "${textcfg_image}")
file(WRITE ${CMAKE_BINARY_DIR}/installed/image.md "${textcfg_image}")
# How a firmware saves its images is for those who have the source tree.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS docs/dump.md)
file(READ docs/dump.md textcfg_dump)
string(REGEX REPLACE "\n\n[^\n]*\\[porting.md\\][^\n]*\n" "\n" textcfg_dump "${textcfg_dump}")
file(WRITE ${CMAKE_BINARY_DIR}/installed/dump.md "${textcfg_dump}")
textcfg_install(documents ${CMAKE_INSTALL_DOCDIR} FILES packaging/README.md CHANGELOG.md packaging/copyright)
textcfg_install(documents ${CMAKE_INSTALL_DOCDIR}/docs
  FILES docs/inspect-schema.json docs/recipes.md docs/text.md
    ${CMAKE_BINARY_DIR}/installed/dump.md ${CMAKE_BINARY_DIR}/installed/image.md)

# Last: what is installed after this is not on the list.
install(CODE "
  if(\"\$ENV{DESTDIR}\" STREQUAL \"\")
    if(EXISTS \"\${textcfg_list}\")
      file(STRINGS \"\${textcfg_list}\" textcfg_before)
    endif()
    set(textcfg_all \${textcfg_before} \${textcfg_noted} \${CMAKE_INSTALL_MANIFEST_FILES})
    list(REMOVE_DUPLICATES textcfg_all)
    list(JOIN textcfg_all \"\\n\" textcfg_all)
    file(WRITE \"\${textcfg_list}\" \"\${textcfg_all}\\n\")
  endif()" ALL_COMPONENTS)
