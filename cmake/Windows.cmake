# What Windows reads in the programs themselves: their version, and that they take paths longer than 260 characters. Each
# is described as its manual page does.
if(NOT WIN32)
  return()
endif()
enable_language(RC)
foreach(program IN ITEMS tolvane tolvane-run tolvane-debug)
  set(page man/${program}.1.in)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${page})
  file(STRINGS ${page} description REGEX "^tolvane.* \\\\- " LIMIT_COUNT 1)
  string(REGEX REPLACE ".* \\\\- " "" description "${description}")
  configure_file(packaging/windows.rc.in ${CMAKE_BINARY_DIR}/packaging/${program}.rc @ONLY)
  target_sources(${program} PRIVATE ${CMAKE_BINARY_DIR}/packaging/${program}.rc)
  set_source_files_properties(${CMAKE_BINARY_DIR}/packaging/${program}.rc PROPERTIES
                              OBJECT_DEPENDS ${CMAKE_SOURCE_DIR}/packaging/windows.manifest)
endforeach()
