# SPDX-License-Identifier: MIT
# Fails when a source below SOURCE_DIR includes a header of a folder that stands above its own.
# A folder may include itself and those named behind it.
cmake_minimum_required(VERSION 3.22)

set(platform)
set(model platform)
set(daemon model platform)
set(update model platform)
set(desktop model platform)
set(ui_style desktop daemon update model platform)
set(ui_controls ui_style ${ui_style})
set(ui_panel ui_controls ${ui_controls})
set(ui_windows ui_controls ${ui_controls})
set(app ui_panel ui_windows ui_controls ${ui_controls})

file(GLOB_RECURSE sources RELATIVE ${SOURCE_DIR} ${SOURCE_DIR}/*.h ${SOURCE_DIR}/*.cpp)
set(wrong "")
foreach(source IN LISTS sources)
  string(REGEX MATCH "^(ui/[a-z]+|[a-z]+)/" folder "${source}")
  string(REGEX REPLACE "/$" "" folder "${folder}")
  string(REPLACE "/" "_" room "${folder}")
  file(STRINGS ${SOURCE_DIR}/${source} includes REGEX "^#include \".*[.]h\"") # not what moc makes
  foreach(include IN LISTS includes)
    string(REGEX REPLACE "^#include \"((ui/)?[a-z]+)/.*$" "\\1" target "${include}")
    string(REPLACE "/" "_" target "${target}")
    if(NOT target STREQUAL room AND NOT target IN_LIST ${room})
      string(APPEND wrong "\n  src/${source}: ${include}")
    endif()
  endforeach()
endforeach()
if(wrong)
  message(FATAL_ERROR "Includes point downwards only, but:${wrong}")
endif()
