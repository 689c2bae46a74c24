# Commands of tolvane-debug are edited by libedit where it is there for this compiler and way of linking; else they are
# plain lines.
include(CheckCXXSourceCompiles)
find_package(PkgConfig QUIET)
set(TOLVANE_LIBEDIT 0)
if(PKG_CONFIG_FOUND AND NOT CMAKE_CROSSCOMPILING)
  pkg_check_modules(LIBEDIT QUIET libedit)
endif()
if(LIBEDIT_FOUND)
  set(libraries ${LIBEDIT_LIBRARIES})
  if((TOLVANE_STATIC AND TOLVANE_CAN_BE_STATIC) OR TOLVANE_STATIC_PIE)
    set(libraries ${LIBEDIT_STATIC_LIBRARIES})
    set(CMAKE_REQUIRED_LINK_OPTIONS -static)
  endif()
  set(CMAKE_REQUIRED_INCLUDES ${LIBEDIT_INCLUDE_DIRS})
  set(CMAKE_REQUIRED_LIBRARIES ${libraries})
  check_cxx_source_compiles("
    #include <cstdio>
    #include <histedit.h>
    int ReadNothing(EditLine*, wchar_t*) { return 0; }
    int main() {
      EditLine* line = el_init(\"\", stdin, stdout, stderr);
      const el_rfunc_t read = &ReadNothing;
      return el_set(line, EL_GETCFN, read) + (history_init() != nullptr);
    }" TOLVANE_HAS_LIBEDIT)
  if(TOLVANE_HAS_LIBEDIT)
    set(TOLVANE_LIBEDIT 1)
    target_include_directories(tolvane-debug SYSTEM PRIVATE ${LIBEDIT_INCLUDE_DIRS})
    target_link_libraries(tolvane-debug PRIVATE ${libraries})
  endif()
  unset(CMAKE_REQUIRED_LINK_OPTIONS)
  unset(CMAKE_REQUIRED_INCLUDES)
  unset(CMAKE_REQUIRED_LIBRARIES)
endif()
target_compile_definitions(tolvane-debug PRIVATE TOLVANE_LIBEDIT=${TOLVANE_LIBEDIT})
