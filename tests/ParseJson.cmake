# Reads the JSON files of the editors; a fault in one ends the script.
file(GLOB_RECURSE FILES ${CMAKE_CURRENT_LIST_DIR}/../editors/*.json)
foreach(file IN LISTS FILES)
  file(READ ${file} text)
  string(JSON members LENGTH "${text}")
endforeach()
