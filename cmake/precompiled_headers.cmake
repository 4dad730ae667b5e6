# SPDX-License-Identifier: MIT
# Test builds read the headers of Qt and GoogleTest once for a target, not once for each of its files.
# What is shipped is built without: so no file can lack an include unnoticed.

option(TARNWICK_PRECOMPILE_HEADERS "Precompile the headers of libraries" OFF)

set(TARNWICK_CORE_HEADERS <algorithm> <chrono> <functional> <memory> <optional> <string> <vector>
    <QDeadlineTimer> <QFile> <QJsonArray> <QJsonDocument> <QJsonObject> <QList> <QString>
    <QStringList>)
set(TARNWICK_WIDGET_HEADERS ${TARNWICK_CORE_HEADERS}
    <QApplication> <QKeyEvent> <QPainter> <QStyle> <QVBoxLayout> <QWidget>)

# tarnwick_precompile_headers(TARGET HEADERS…)
function(tarnwick_precompile_headers target)
  if(TARNWICK_PRECOMPILE_HEADERS)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
endfunction()

# tarnwick_precompile_test_headers(TARGET LIBRARY): one test program precompiles for all those of the
# core, and one of a folder above it; Qt's test library tells every folder's programs where they are.
function(tarnwick_precompile_test_headers target library)
  if(library STREQUAL "tarnwick_core")
    set(headers ${TARNWICK_CORE_HEADERS})
    set(scope GLOBAL)
  else()
    set(headers ${TARNWICK_WIDGET_HEADERS})
    set(scope DIRECTORY)
  endif()
  get_property(first ${scope} PROPERTY tarnwick_precompiled_test_headers)
  if(first AND TARNWICK_PRECOMPILE_HEADERS)
    target_precompile_headers(${target} REUSE_FROM ${first})
    return()
  endif()
  tarnwick_precompile_headers(${target} ${headers} <gmock/gmock.h> <gtest/gtest.h> <QDir>
                              <QTemporaryDir>)
  set_property(${scope} PROPERTY tarnwick_precompiled_test_headers ${target})
endfunction()
