# cmake --install: programs, manual pages, documents, examples, and what editors and the shell read.
include(GNUInstallDirs)

# Who installs may have a umask that shuts others out; their folders are readable all the same.
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

# What learners use stands beside the programs' own data: some systems install nothing of share/doc.
if(WIN32) # one folder to unpack and to start from: the samples are beside the program that a double click starts
  set(TOLVANE_BIN .)
  set(TOLVANE_DOC .)
  set(TOLVANE_SHARE .)
  set(TOLVANE_EXAMPLES .)
else()
  set(TOLVANE_BIN ${CMAKE_INSTALL_BINDIR})
  set(TOLVANE_DOC ${CMAKE_INSTALL_DOCDIR})
  set(TOLVANE_SHARE ${CMAKE_INSTALL_DATADIR}/tolvane)
  set(TOLVANE_EXAMPLES ${TOLVANE_SHARE}/examples)
endif()

# That rule leaves out the folders above those that are installed.
if(NOT WIN32)
  set(data ${CMAKE_INSTALL_DATADIR})
  set(TOLVANE_FOLDERS . ${data} ${data}/tolvane ${data}/tolvane/docs ${data}/tolvane/examples ${data}/doc
      ${CMAKE_INSTALL_DOCDIR} ${CMAKE_INSTALL_BINDIR} ${CMAKE_INSTALL_MANDIR} ${CMAKE_INSTALL_MANDIR}/man1 ${CMAKE_INSTALL_MANDIR}/ja
      ${CMAKE_INSTALL_MANDIR}/ja/man1 ${data}/vim ${data}/nano ${data}/applications ${data}/bash-completion
      ${data}/bash-completion/completions)
  install(CODE "
    foreach(folder IN ITEMS ${TOLVANE_FOLDERS})
      cmake_path(ABSOLUTE_PATH folder BASE_DIRECTORY \"\${CMAKE_INSTALL_PREFIX}\" NORMALIZE)
      set(folder \"\$ENV{DESTDIR}\${folder}\")
      if(NOT EXISTS \"\${folder}\")
        file(MAKE_DIRECTORY \"\${folder}\")
        file(CHMOD \"\${folder}\" DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE
             GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
      endif()
    endforeach()")
endif()

install(TARGETS tolvane tolvane-run tolvane-debug RUNTIME DESTINATION ${TOLVANE_BIN})

install(FILES CHANGELOG.md DESTINATION ${TOLVANE_DOC})
# The READMEs as users need them: without what only developers do, and the programs stand where they are installed.
foreach(language IN ITEMS "" .ja)
  set(readme README${language}.md)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${readme})
  file(READ ${readme} text)
  string(FIND "${text}" "<!-- sources -->" begin)
  while(NOT begin EQUAL -1)
    string(FIND "${text}" "<!-- /sources -->" end)
    string(SUBSTRING "${text}" 0 ${begin} before)
    math(EXPR end "${end} + 18") # the mark and its line's end
    string(SUBSTRING "${text}" ${end} -1 text)
    string(CONCAT text "${before}" "${text}")
    string(FIND "${text}" "<!-- sources -->" begin)
  endwhile()
  string(REPLACE "`./run`" "`tolvane`" text "${text}")
  string(REPLACE "build/pages/" "docs/" text "${text}")
  string(REGEX REPLACE "(\\.\\./)?build/tolvane" "tolvane" text "${text}")
  string(REPLACE "cd examples && " "" text "${text}")
  string(REGEX REPLACE "([ `])examples/src/" "\\1src/" text "${text}")
  if(WIN32)
    string(REPLACE "(examples/" "(" text "${text}")
  endif()
  file(WRITE ${CMAKE_BINARY_DIR}/${readme} "${text}")
  install(FILES ${CMAKE_BINARY_DIR}/${readme} DESTINATION ${TOLVANE_SHARE})
  if(NOT WIN32)
    file(RELATIVE_PATH readme_from_doc ${CMAKE_INSTALL_FULL_DOCDIR} ${CMAKE_INSTALL_FULL_DATADIR}/tolvane/${readme})
    file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/links)
    file(CREATE_LINK ${readme_from_doc} ${CMAKE_BINARY_DIR}/links/${readme} SYMBOLIC)
    install(FILES ${CMAKE_BINARY_DIR}/links/${readme} DESTINATION ${TOLVANE_DOC})
  endif()
endforeach()

file(GLOB TOLVANE_DOCS CONFIGURE_DEPENDS docs/*.md docs/*.html)
install(FILES ${TOLVANE_DOCS} DESTINATION ${TOLVANE_SHARE}/docs)
install(DIRECTORY docs/figures DESTINATION ${TOLVANE_SHARE}/docs FILES_MATCHING PATTERN *.svg)
if(WIN32) # the exercises are beside the folder docs
  file(GLOB guides CONFIGURE_DEPENDS docs/guide.*.md)
  foreach(guide IN LISTS guides)
    file(READ ${guide} text)
    string(REPLACE "(../examples/" "(../" text "${text}")
    get_filename_component(guide ${guide} NAME)
    file(WRITE ${CMAKE_BINARY_DIR}/docs/${guide} "${text}")
    install(FILES ${CMAKE_BINARY_DIR}/docs/${guide} DESTINATION ${TOLVANE_SHARE}/docs)
  endforeach()
endif()
foreach(language IN ITEMS en ja)
  install(FILES ${CMAKE_BINARY_DIR}/pages/explain.${language}.html DESTINATION ${TOLVANE_SHARE}/docs OPTIONAL)
endforeach()
# The page for the browser, where tools/web has built it.
install(FILES build-web/tolvane.html DESTINATION ${TOLVANE_SHARE} OPTIONAL)

install(DIRECTORY examples/src examples/exercises DESTINATION ${TOLVANE_EXAMPLES}
        PATTERN my.txt EXCLUDE PATTERN grade EXCLUDE)
install(PROGRAMS examples/exercises/grade DESTINATION ${TOLVANE_EXAMPLES}/exercises)

install(DIRECTORY editors/ DESTINATION ${TOLVANE_SHARE}/editors)
if(NOT WIN32)
  # A system without the page has no use for the entry that opens it.
  set(page ${CMAKE_INSTALL_FULL_DATADIR}/tolvane/tolvane.html)
  configure_file(packaging/tolvane.desktop.in ${CMAKE_BINARY_DIR}/tolvane.desktop @ONLY)
  if(EXISTS ${CMAKE_SOURCE_DIR}/build-web/tolvane.html)
    install(FILES ${CMAKE_BINARY_DIR}/tolvane.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  endif()
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
