# cmake --install: programs, manual pages, documents, examples, and what editors and the shell read.
include(GNUInstallDirs)

if(WIN32) # one folder to unpack and to start from
  set(TOLVANE_BIN .)
  set(TOLVANE_DOC .)
  set(TOLVANE_EDITORS editors)
else()
  set(TOLVANE_BIN ${CMAKE_INSTALL_BINDIR})
  set(TOLVANE_DOC ${CMAKE_INSTALL_DOCDIR})
  set(TOLVANE_EDITORS ${CMAKE_INSTALL_DATADIR}/tolvane/editors)
endif()

install(TARGETS tolvane tolvane-run tolvane-debug RUNTIME DESTINATION ${TOLVANE_BIN})

file(GLOB TOLVANE_READMES CONFIGURE_DEPENDS README*.md)
file(GLOB TOLVANE_DOCS CONFIGURE_DEPENDS docs/*.md docs/*.html)
install(FILES ${TOLVANE_READMES} CHANGELOG.md DESTINATION ${TOLVANE_DOC})
install(FILES ${TOLVANE_DOCS} DESTINATION ${TOLVANE_DOC}/docs)
install(DIRECTORY docs/figures DESTINATION ${TOLVANE_DOC}/docs FILES_MATCHING PATTERN *.svg)
foreach(language IN ITEMS en ja)
  install(FILES ${CMAKE_BINARY_DIR}/pages/explain.${language}.html DESTINATION ${TOLVANE_DOC}/docs OPTIONAL)
endforeach()

install(DIRECTORY examples/src DESTINATION ${TOLVANE_DOC}/examples)
if(EXISTS ${CMAKE_SOURCE_DIR}/examples/exercises)
  install(DIRECTORY examples/exercises DESTINATION ${TOLVANE_DOC}/examples
          USE_SOURCE_PERMISSIONS # grade is a program
          PATTERN my.txt EXCLUDE)
endif()

install(DIRECTORY editors/ DESTINATION ${TOLVANE_EDITORS})
if(NOT WIN32)
  install(DIRECTORY editors/vim/ DESTINATION ${CMAKE_INSTALL_DATADIR}/vim/vimfiles)
  install(FILES editors/nano/casl2.nanorc DESTINATION ${CMAKE_INSTALL_DATADIR}/nano)
  install(FILES completions/tolvane-run completions/tolvane-debug
          DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
  foreach(page IN ITEMS tolvane tolvane-run tolvane-debug)
    foreach(folder IN ITEMS man man/ja)
      configure_file(${folder}/${page}.1.in ${CMAKE_BINARY_DIR}/${folder}/${page}.1 @ONLY)
      string(REPLACE man ${CMAKE_INSTALL_MANDIR} destination ${folder})
      install(FILES ${CMAKE_BINARY_DIR}/${folder}/${page}.1 DESTINATION ${destination}/man1)
    endforeach()
  endforeach()
endif()
