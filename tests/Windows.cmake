# The tests that need no POSIX, built for Windows with the sources of GoogleTest. The others start programs; those of
# this system start the programs that TOLVANE_PROGRAMS names (tools/check-windows).
add_library(gtest STATIC /usr/src/googletest/googletest/src/gtest-all.cc)
target_include_directories(gtest SYSTEM PUBLIC /usr/src/googletest/googletest/include)
target_include_directories(gtest PRIVATE /usr/src/googletest/googletest)
target_compile_options(gtest PRIVATE -w)
add_executable(tolvane_tests main.cpp BookTest.cpp TextTools.cpp unit/CatalogueTest.cpp unit/ConvertTest.cpp
               unit/DumpTest.cpp unit/IniFileTest.cpp unit/MachineTest.cpp unit/ReadersTest.cpp unit/TimeTest.cpp)
target_link_libraries(tolvane_tests PRIVATE tolvane_books gtest)
target_include_directories(tolvane_tests PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
target_compile_definitions(tolvane_tests PRIVATE TOLVANE_TESTS="${CMAKE_CURRENT_SOURCE_DIR}")
